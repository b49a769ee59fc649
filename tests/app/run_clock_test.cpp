#include "app/run/run_clock.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_clock.h"

namespace korv {
namespace {

using std::chrono::seconds;

TEST(RunClock, TellsTheTimeSinceItsStart) {
  FakeClock hand;
  RunClock clock(hand);
  EXPECT_FALSE(clock.Running());
  hand.Advance(seconds(5));
  clock.Start();
  EXPECT_TRUE(clock.Running());
  hand.Advance(seconds(7));
  EXPECT_EQ(clock.Elapsed(), seconds(7));
  clock.Start();
  EXPECT_EQ(clock.Elapsed(), seconds(0));
  clock.Stop();
  EXPECT_FALSE(clock.Running());
}

TEST(RunClock, StandsWhileSomebodyWaitsForTheUser) {
  FakeClock hand;
  RunClock clock(hand);
  clock.Start();
  hand.Advance(seconds(1));
  {
    const RunClock::Waiting question(clock);
    hand.Advance(seconds(100));
    EXPECT_EQ(clock.Elapsed(), seconds(1));
    {
      const RunClock::Waiting withinIt(clock);
      hand.Advance(seconds(100));
    }
    hand.Advance(seconds(100));
    EXPECT_EQ(clock.Elapsed(), seconds(1));
  }
  hand.Advance(seconds(2));
  EXPECT_EQ(clock.Elapsed(), seconds(3));
}

TEST(RunClock, ForgetsWaitsOfEarlierRuns) {
  FakeClock hand;
  RunClock clock(hand);
  clock.Start();
  {
    const RunClock::Waiting question(clock);
    hand.Advance(seconds(100));
  }
  clock.Start();
  hand.Advance(seconds(4));
  EXPECT_EQ(clock.Elapsed(), seconds(4));
}

}  // namespace
}  // namespace korv
