#include "app/run/run_clock.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

using std::chrono::seconds;

/// Goes on only when told to.
class HandClock final : public Clock {
 public:
  std::chrono::steady_clock::time_point Now() const override { return Time; }
  std::chrono::steady_clock::time_point Time{};
};

TEST(RunClock, TellsTheTimeSinceItsStart) {
  HandClock hand;
  RunClock clock(hand);
  EXPECT_FALSE(clock.Running());
  hand.Time += seconds(5);
  clock.Start();
  EXPECT_TRUE(clock.Running());
  hand.Time += seconds(7);
  EXPECT_EQ(clock.Elapsed(), seconds(7));
  clock.Start();
  EXPECT_EQ(clock.Elapsed(), seconds(0));
  clock.Stop();
  EXPECT_FALSE(clock.Running());
}

TEST(RunClock, StandsWhileSomebodyWaitsForTheUser) {
  HandClock hand;
  RunClock clock(hand);
  clock.Start();
  hand.Time += seconds(1);
  {
    const RunClock::Waiting question(clock);
    hand.Time += seconds(100);
    EXPECT_EQ(clock.Elapsed(), seconds(1));
    {
      const RunClock::Waiting withinIt(clock);
      hand.Time += seconds(100);
    }
    hand.Time += seconds(100);
    EXPECT_EQ(clock.Elapsed(), seconds(1));
  }
  hand.Time += seconds(2);
  EXPECT_EQ(clock.Elapsed(), seconds(3));
}

TEST(RunClock, ForgetsWaitsOfEarlierRuns) {
  HandClock hand;
  RunClock clock(hand);
  clock.Start();
  {
    const RunClock::Waiting question(clock);
    hand.Time += seconds(100);
  }
  clock.Start();
  hand.Time += seconds(4);
  EXPECT_EQ(clock.Elapsed(), seconds(4));
}

}  // namespace
}  // namespace korv
