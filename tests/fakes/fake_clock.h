#pragma once

#include <chrono>

#include "base/clock.h"

namespace korv {

/// A clock that goes on by `Step` with every look at it.
class FakeClock final : public Clock {
 public:
  std::chrono::steady_clock::time_point Now() const override { return now_ += Step; }

  std::chrono::steady_clock::duration Step{0};

 private:
  mutable std::chrono::steady_clock::time_point now_{};
};

}  // namespace korv
