#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <utility>

namespace korv {

/// Keeps the program alive during long loops, and carries the request to stop.
///
/// A loop calls Yield() once per step, however small the step is, because nearly every call only counts down.
/// The count adapts to the time that steps take, so that the platform gets its turn about every 15 ms.
/// Yield() belongs to one thread at a time, the one whose loops it keeps alive; Stopped() and RequestStop()
/// may be called from any thread and from a signal handler.
class Yielder {
 public:
  Yielder() = default;
  Yielder(const Yielder&) = delete;
  Yielder& operator=(const Yielder&) = delete;
  virtual ~Yielder() = default;

  void Yield() {
    if (--left_ == 0) Turn();
  }
  /// For callers that wait rather than work: looks at the clock in every call.
  void YieldNow() { Turn(); }
  bool Stopped() const { return stopped_.load(std::memory_order_relaxed); }
  void RequestStop() { stopped_.store(true, std::memory_order_relaxed); }
  void ClearStop() { stopped_.store(false, std::memory_order_relaxed); }

 protected:
  /// The platform's turn: process events, show progress. May call RequestStop().
  virtual void HandOver() = 0;
  /// Hands over if the platform's turn is due, and returns the number of calls of Yield() until the next call
  /// of this function, at least 1. The base class goes by the clock. A test that needs every call hands over
  /// and returns 1.
  virtual uint32_t NextStride();

 private:
  void Turn();

  static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");
  std::atomic<bool> stopped_{false};
  uint32_t left_ = 1;
  uint32_t stride_ = 1;
  std::chrono::steady_clock::time_point lastLook_{};
  std::chrono::steady_clock::time_point lastTurn_{};
};

/// Has a function called at every turn, on the thread that yields.
class TurnYielder : public Yielder {
 public:
  /// Replaces the one before; an empty one is not called. On the thread that yields, or while none does.
  void SetTurn(std::function<void()> turn) { turn_ = std::move(turn); }

 protected:
  void HandOver() override {
    if (turn_) turn_();
  }

 private:
  std::function<void()> turn_;
};

/// For callers that have nothing to keep alive.
class NoYielder final : public Yielder {
 protected:
  void HandOver() override {}
};

}  // namespace korv
