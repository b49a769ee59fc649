#include "base/yielder.h"

#include <algorithm>

namespace korv {

namespace {
using std::chrono::milliseconds;
constexpr milliseconds kTurnEvery{15};
constexpr milliseconds kLookEvery{2};
// Short enough that steps which suddenly take 100 microseconds each are noticed within 30 ms, long
// enough that the look at the clock costs a tenth of a nanosecond per step.
constexpr uint32_t kLongestStride = 256;
}  // namespace

uint32_t Yielder::NextStride() {
  const auto now = std::chrono::steady_clock::now();
  const auto passed = now - lastLook_;
  lastLook_ = now;
  // The stride grows slowly and drops to one at once: steps that suddenly become long must not wait for the
  // end of a stride that fitted short ones.
  if (passed > 2 * kLookEvery)
    stride_ = 1;
  else if (passed < kLookEvery)
    stride_ = std::min(stride_ * 2, kLongestStride);
  if (now - lastTurn_ >= kTurnEvery) {
    lastTurn_ = now;
    HandOver();
  }
  return stride_;
}

void Yielder::Turn() {
  // If the turn throws, the next call of Yield() must take a turn again instead of counting down from 0.
  left_ = 1;
  left_ = std::max<uint32_t>(1, NextStride());
}

}  // namespace korv
