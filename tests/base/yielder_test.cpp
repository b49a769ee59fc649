#include "base/yielder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace korv {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Counts looks at the clock and turns.
class Watched final : public Yielder {
 public:
  int Looks = 0;
  int Turns = 0;
  bool Throws = false;

 protected:
  void HandOver() override {
    ++Turns;
    if (Throws) throw std::runtime_error("torn");
  }
  uint32_t NextStride() override {
    ++Looks;
    return Yielder::NextStride();
  }
};

void TakeShortSteps(Watched& yielder, int steps) {
  for (int k = 0; k < steps; ++k) yielder.Yield();
}

TEST(Yielder, HandsOverNowAndThenHoweverManySteps) {
  Watched yielder;
  const auto begin = steady_clock::now();
  while (steady_clock::now() - begin < milliseconds(120)) TakeShortSteps(yielder, 1000);
  const auto passed = std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
  EXPECT_GE(yielder.Turns, 2);
  EXPECT_LE(yielder.Turns, passed.count() / 15 + 1);
}

TEST(Yielder, SeldomLooksAtTheClockWhereStepsAreShort) {
  Watched yielder;
  TakeShortSteps(yielder, 100'000);
  EXPECT_LT(yielder.Looks, 10'000);
}

TEST(Yielder, LooksAtEveryStepOnceStepsAreLongAndSeldomAgainAfterwards) {
  Watched yielder;
  TakeShortSteps(yielder, 10'000);
  std::this_thread::sleep_for(milliseconds(8));
  // Up to the end of the stride that was begun.
  for (const int before = yielder.Looks; yielder.Looks == before;) yielder.Yield();
  const int looks = yielder.Looks;
  std::this_thread::sleep_for(milliseconds(8));
  yielder.Yield();
  EXPECT_EQ(yielder.Looks, looks + 1);
  TakeShortSteps(yielder, 100'000);
  EXPECT_LT(yielder.Looks, looks + 10'000);
}

TEST(Yielder, TakesATurnAgainWhereOneThrew) {
  Watched yielder;
  yielder.Throws = true;
  EXPECT_THROW(yielder.YieldNow(), std::runtime_error);
  const int looks = yielder.Looks;
  std::this_thread::sleep_for(milliseconds(16));
  EXPECT_THROW(yielder.Yield(), std::runtime_error);
  EXPECT_EQ(yielder.Looks, looks + 1);
}

TEST(Yielder, StopsUntilTheStopIsCleared) {
  Watched yielder;
  EXPECT_FALSE(yielder.Stopped());
  yielder.RequestStop();
  EXPECT_TRUE(yielder.Stopped());
  yielder.ClearStop();
  EXPECT_FALSE(yielder.Stopped());
}

}  // namespace
}  // namespace korv
