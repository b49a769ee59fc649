#pragma once

#include <atomic>
#include <chrono>

#include "base/clock.h"

namespace korv {

/// A clock that goes on by `Step` with every look at it, and when it is told to. A worker and a window may
/// look at it at the same time.
class FakeClock final : public Clock {
 public:
  using Duration = std::chrono::steady_clock::duration;

  std::chrono::steady_clock::time_point Now() const override {
    const Duration step = Step;
    return std::chrono::steady_clock::time_point(Duration(now_.fetch_add(step.count()) + step.count()));
  }

  std::chrono::system_clock::time_point WallTime() const override { return Wall; }

  void Advance(Duration time) { now_ += time.count(); }

  std::atomic<Duration> Step{Duration(0)};
  std::chrono::system_clock::time_point Wall{};  ///< The time of day; it stands still.

 private:
  mutable std::atomic<Duration::rep> now_{0};
};

}  // namespace korv
