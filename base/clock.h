#pragma once

#include <chrono>

namespace korv {

/// The time, as something a test can set.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual std::chrono::steady_clock::time_point Now() const = 0;
  /// The time of day and the date.
  virtual std::chrono::system_clock::time_point WallTime() const = 0;
};

class SystemClock final : public Clock {
 public:
  std::chrono::steady_clock::time_point Now() const override { return std::chrono::steady_clock::now(); }
  std::chrono::system_clock::time_point WallTime() const override { return std::chrono::system_clock::now(); }
};

}  // namespace korv
