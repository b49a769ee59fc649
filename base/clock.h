#pragma once

#include <chrono>

namespace korv {

/// The time, as something a test can set.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual std::chrono::steady_clock::time_point Now() const = 0;
};

class SystemClock final : public Clock {
 public:
  std::chrono::steady_clock::time_point Now() const override { return std::chrono::steady_clock::now(); }
};

}  // namespace korv
