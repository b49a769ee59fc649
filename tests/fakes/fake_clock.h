#pragma once

#include <chrono>

#include "base/clock.h"

namespace korv {

/// A clock that goes on by `Step` with every look at it, and when it is told to.
class FakeClock final : public Clock {
 public:
  std::chrono::steady_clock::time_point Now() const override { return now_ += Step; }

  void Advance(std::chrono::steady_clock::duration time) { now_ += time; }

  std::chrono::steady_clock::duration Step{0};

 private:
  mutable std::chrono::steady_clock::time_point now_{};
};

}  // namespace korv
