#include "app/run/stage_yielder.h"

#include <gtest/gtest.h>

#include "tests/fakes/fake_yielder.h"

namespace korv {
namespace {

struct Stage {
  int Questions = 0;
  int Steps = 0;  ///< Done before it ended.
};

/// A stage of 2,000 steps that ends when it is told to.
Stage RunStage(FakeYielder& run, bool goesOn) {
  Stage stage;
  StageYielder yielder(run, [&] {
    ++stage.Questions;
    run.ClearStop();
    return goesOn;
  });
  while (stage.Steps < 2000 && !yielder.Stopped()) {
    yielder.Yield();
    ++stage.Steps;
  }
  return stage;
}

TEST(StageYielder, LetsAStageGoOnFromWhereItWasStopped) {
  FakeYielder run;
  run.StopAtCall(3);
  const Stage stage = RunStage(run, true);
  EXPECT_EQ(stage.Questions, 1);
  EXPECT_EQ(stage.Steps, 2000);
  EXPECT_FALSE(run.Stopped());
  EXPECT_GT(run.Calls, 3u) << "turns go on";
}

TEST(StageYielder, EndsAStageThatIsNotWanted) {
  FakeYielder run;
  run.StopAtCall(3);
  const Stage stage = RunStage(run, false);
  EXPECT_EQ(stage.Questions, 1);
  EXPECT_EQ(run.Calls, 3u);
  EXPECT_LT(stage.Steps, 2000);
  EXPECT_FALSE(run.Stopped());
}

TEST(StageYielder, AsksNothingWhereNobodyStops) {
  FakeYielder run;
  const Stage stage = RunStage(run, false);
  EXPECT_EQ(stage.Questions, 0);
  EXPECT_EQ(stage.Steps, 2000);
}

TEST(StageYielder, AsksAgainForAnotherStop) {
  FakeYielder run;
  run.OnTurn = [&] {
    if (run.Calls == 2 || run.Calls == 4) run.RequestStop();
  };
  EXPECT_EQ(RunStage(run, true).Questions, 2);
}

}  // namespace
}  // namespace korv
