#pragma once

#include <functional>
#include <utility>

#include "base/yielder.h"

namespace korv {

/// Calls a function on each of its turns: the one that shows progress.
class ConsoleYielder final : public Yielder {
 public:
  /// Replaces the function; null for none.
  void OnTurn(std::function<void()> turn) { turn_ = std::move(turn); }

 protected:
  void HandOver() override {
    if (turn_) turn_();
  }

 private:
  std::function<void()> turn_;
};

}  // namespace korv
