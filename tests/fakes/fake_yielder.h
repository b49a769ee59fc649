#pragma once

#include <cstdint>
#include <functional>

#include "base/yielder.h"

namespace korv {

/// Hands over at every call, so that a test can stop at any one of them.
class FakeYielder final : public TurnYielder {
 public:
  /// Requests a stop at that call of Yield() from here on, counted from 1; 0 for never.
  void StopAtCall(uint64_t call) {
    Calls = 0;
    stopAt_ = call;
  }

  uint64_t Calls = 0;
  std::function<void()> OnTurn;  ///< May be empty.

 protected:
  void HandOver() override {
    TurnYielder::HandOver();
    if (++Calls == stopAt_) RequestStop();
    if (OnTurn) OnTurn();
  }
  uint32_t NextStride() override {
    HandOver();
    return 1;
  }

 private:
  uint64_t stopAt_ = 0;
};

}  // namespace korv
