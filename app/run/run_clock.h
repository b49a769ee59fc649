#pragma once

#include <chrono>

#include "base/clock.h"

namespace korv {

/// The time that a run has taken. It stands while somebody waits for the user.
class RunClock {
 public:
  explicit RunClock(const Clock& clock) : clock_(clock) {}

  void Start() {
    running_ = true;
    begin_ = clock_.Now();
    waited_ = {};
  }
  /// Whether it has been started and not been stopped.
  bool Running() const { return running_; }
  void Stop() { running_ = false; }
  /// Since the start; of use while it runs.
  std::chrono::seconds Elapsed() const {
    const auto until = waiting_ > 0 ? waitBegin_ : clock_.Now();
    return std::chrono::duration_cast<std::chrono::seconds>(until - begin_ - waited_);
  }

  /// The clock stands for as long as one of these lives; they may be nested.
  class Waiting {
   public:
    explicit Waiting(RunClock& clock) : clock_(clock) {
      if (clock_.waiting_++ == 0) clock_.waitBegin_ = clock_.clock_.Now();
    }
    ~Waiting() {
      if (--clock_.waiting_ == 0) clock_.waited_ += clock_.clock_.Now() - clock_.waitBegin_;
    }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

   private:
    RunClock& clock_;
  };

 private:
  using TimePoint = std::chrono::steady_clock::time_point;

  const Clock& clock_;
  TimePoint begin_{};
  TimePoint waitBegin_{};
  std::chrono::steady_clock::duration waited_{};
  int waiting_ = 0;
  bool running_ = false;
};

}  // namespace korv
