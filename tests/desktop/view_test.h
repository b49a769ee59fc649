#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <memory>
#include <string>

#include "desktop/desktop.h"
#include "desktop/toolkit/text.h"
#include "tests/app/run_world.h"
#include "tests/desktop/fake_surroundings.h"

namespace korv {

/// Views of a finished run, with everything around them faked: the files stand in memory.
class ViewTest : public testing::Test {
 protected:
  ViewTest() {
    world.Encodings = EncodingChooser(EncodingChoice::Utf8);
    world.Request.Options.KeepPlaces = true;
    world.Request.Rules.IgnoreShortWords = false;
    world.UseLengths(2, 3, 1);
  }

  Desktop Surroundings() { return around.On(world.Files, world.Messages, world.Clock); }
  /// Counts the folder /t.
  std::shared_ptr<const CountedRun> CountFolder() {
    world.Request.IncludeSubfolders = true;
    world.UseFolder("/t");
    return Counted();
  }
  std::shared_ptr<const CountedRun> Counted() {
    world.Run = {};
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    return std::make_shared<CountedRun>(std::move(world.Run));
  }

  /// Handles events until the view is idle.
  template <typename View>
  static void UntilIdle(const View& view) {
    QTimer wake;
    wake.start(20);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(120);
    while (!view.Idle()) {
      QApplication::processEvents(QEventLoop::WaitForMoreEvents);
      ASSERT_LT(std::chrono::steady_clock::now(), end) << "what goes on does not end";
    }
    QApplication::processEvents();
  }

  RunWorld world;
  FakeSurroundings around;
  FakeLauncher& launcher = around.Launcher;
};

}  // namespace korv
