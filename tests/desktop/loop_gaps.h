#pragma once

#include <QApplication>
#include <QTimer>
#include <algorithm>
#include <chrono>

namespace korv {

/// Looks how long the rounds of the event loop take. For programs that measure, on the loop's thread.
class LoopGaps {
 public:
  using Milliseconds = std::chrono::duration<double, std::milli>;
  using SteadyTime = std::chrono::steady_clock::time_point;

  LoopGaps() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Beat(); });
    timer_.start(1);
  }

  /// Does `act` and handles events until `idle()`.
  template <typename Act, typename Idle>
  void Measure(const Act& act, const Idle& idle) {
    begin_ = last_ = std::chrono::steady_clock::now();
    longest_ = {};
    act();
    Beat();
    do {
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    } while (!idle());
    QApplication::processEvents();
    Beat();
  }
  /// Of the last Measure(): when it began, how long it took, and the longest time between two rounds.
  SteadyTime Begin() const { return begin_; }
  double Took() const { return Milliseconds(last_ - begin_).count(); }
  double Longest() const { return longest_.count(); }

 private:
  void Beat() {
    const SteadyTime now = std::chrono::steady_clock::now();
    longest_ = std::max(longest_, Milliseconds(now - last_));
    last_ = now;
  }

  QTimer timer_;
  SteadyTime begin_{};
  SteadyTime last_{};
  Milliseconds longest_{};
};

}  // namespace korv
