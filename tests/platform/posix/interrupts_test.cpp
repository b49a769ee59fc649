#include "platform/interrupts.h"

#include <gtest/gtest.h>
#include <signal.h>

#include "platform/yielder.h"

namespace korv {
namespace {

TEST(Interrupts, EachRequestsAStopOnceTheOneBeforeWasHeeded) {
  NoYielder yielder;
  const InterruptGuard guard(yielder);
  for (const int number : {SIGINT, SIGINT, SIGTERM, SIGINT}) {
    EXPECT_FALSE(yielder.Stopped());
    raise(number);
    EXPECT_TRUE(yielder.Stopped());
    yielder.ClearStop();
  }
}

TEST(InterruptsDeathTest, ASecondOneEndsAProgramThatDoesNotHeedTheFirst) {
  NoYielder yielder;
  const InterruptGuard guard(yielder);
  EXPECT_EXIT(
      {
        raise(SIGINT);
        raise(SIGINT);
      },
      testing::KilledBySignal(SIGINT), "");
}

TEST(InterruptsDeathTest, EndTheProgramAsUsualAfterTheGuard) {
  NoYielder yielder;
  { const InterruptGuard guard(yielder); }
  EXPECT_EXIT(raise(SIGINT), testing::KilledBySignal(SIGINT), "");
  EXPECT_FALSE(yielder.Stopped());
}

}  // namespace
}  // namespace korv
