#include "app/run/run.h"

#include <gmock/gmock.h>

#include <string>

#include "app/run/questions.h"
#include "tests/app/run_texts.h"
#include "tests/app/run_world.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// ---- Before a run.

struct Asked {
  bool Starts;
  int MinFrequency;
  ReportOptions Report;
};

Asked Ask(RunWorld& world, ReportOptions report = {}) {
  const bool starts = AskBeforeCounting(world.Request, report, world.Files, world.Messages);
  return {starts, world.Request.Options.MinFrequency, report};
}

TEST(AskBeforeCounting, RefusesAMaximumBelowTheMinimum) {
  RunWorld world;
  world.UseLengths(5, 4, 1);
  EXPECT_FALSE(Ask(world).Starts);
  EXPECT_EQ(world.Messages.Only().Text,
            "The maximum number of words in each phrase\nmust not be less than the minimum number.");
  EXPECT_EQ(world.Messages.Only().Title, "Invalid input");
  EXPECT_EQ(world.Messages.Only().Icon, Icon::Exclamation);
}

TEST(AskBeforeCounting, AcceptsEqualLengths) {
  RunWorld world;
  world.UseLengths(5, 5);
  EXPECT_TRUE(Ask(world).Starts);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(AskBeforeCounting, AdvisesAgainstAMinimumFrequencyOfOne) {
  constexpr size_t kBelow = 51 * 1024 - 513;
  constexpr size_t kEnough = 51 * 1024 - 511;
  struct Case {
    TextSource Source;
    size_t FileBytes;
    int MinFrequency;
    int WordOrder;
    bool Advised;
  };
  for (const Case c : {Case{TextSource::Folder, 0, 1, 0, true},
                       {TextSource::Folder, 0, 2, 0, false},
                       {TextSource::Folder, 0, 1, 1, false},
                       {TextSource::Clipboard, kEnough, 1, 0, false},
                       {TextSource::SingleFile, kBelow, 1, 0, false},
                       {TextSource::SingleFile, kEnough, 1, 0, true},
                       {TextSource::SingleFile, kEnough, 1, 1, false}})
    for (const Answer answer : {Answer::Yes, Answer::No}) {
      RunWorld world;
      world.UseFile("/a.txt", std::string(c.FileBytes, 'x'));
      world.UseLengths(2, 3, c.MinFrequency);
      world.Request.Options.SourceKind = c.Source;
      world.Messages.WillAnswer(questions::kMinimumFrequency, answer);
      const Asked asked = Ask(world, {.WordOrder = c.WordOrder});
      EXPECT_TRUE(asked.Starts);
      EXPECT_EQ(!world.Messages.Shown.empty(), c.Advised) << c.FileBytes;
      EXPECT_EQ(asked.MinFrequency, c.Advised && answer == Answer::Yes ? 2 : c.MinFrequency);
      if (c.Advised) {
        EXPECT_EQ(world.Messages.Only().Text,
                  "If you are just interested in the most frequently occurring phrases then the minimum "
                  "number of occurrences should be set to at least 2, otherwise processing will take "
                  "longer.\nDo you wish to reset it?");
        EXPECT_EQ(world.Messages.Only().Buttons, Buttons::YesNo);
      }
    }
}

TEST(AskBeforeCounting, AsksWhetherToKeepTheFilter) {
  for (const bool keep : {true, false}) {
    RunWorld world;
    world.Messages.WillAnswer(questions::kKeepFilter, keep ? Answer::Yes : Answer::No);
    const Asked asked = Ask(world, {.FilterText = "cat"});
    EXPECT_TRUE(asked.Starts);
    EXPECT_EQ(asked.Report.FilterText, keep ? "cat" : "");
    EXPECT_EQ(asked.Report.FilterActive, keep);
    EXPECT_EQ(world.Messages.Only().Text, "Do you wish to keep the filter settings?");
    EXPECT_EQ(world.Messages.Only().Title, "Filter results?");
  }
}

TEST(AskBeforeCounting, WithoutFilterWordsTheListIsWhole) {
  RunWorld world;
  const Asked asked = Ask(world, {.FilterActive = true});
  EXPECT_FALSE(asked.Report.FilterActive);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

// ---- Stopping.

TEST(AskToStop, StopsOnYesOnly) {
  for (const bool yes : {false, true}) {
    RunWorld world;
    if (yes) world.Messages.WillAnswer(questions::kReallyStop, Answer::Yes);
    AskToStop(world.Messages, world.Yielder, world.View);
    EXPECT_EQ(world.Messages.Only().Text, "Really stop?");
    EXPECT_EQ(world.Messages.Only().DefaultAnswer, Answer::No);
    EXPECT_EQ(world.Yielder.Stopped(), yes);
    EXPECT_EQ(world.View.Statuses.empty(), !yes);
    if (yes) {
      EXPECT_THAT(world.View.Statuses, ElementsAre("Counting of all phrases was stopped."));
    }
  }
}

std::string LinesOfWords(int lines) {
  std::string text;
  for (int k = 0; k < lines; ++k) text += "the big cat sat on line " + ManyPhrases(k % 7 + 1) + "\n";
  return text;
}

TEST(RunCount, AStopAtAnyMomentAsksOnceAndListsWhatWasRead) {
  const std::string text = LinesOfWords(30);
  for (uint64_t call = 1;; ++call) {
    RunWorld world;
    world.UseFile("/a.txt", text);
    world.UseLengths(2, 4);
    world.Yielder.StopAtCall(call);
    world.Messages.WillAnswer(questions::kCountingInterrupted, Answer::Yes);
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    if (!world.Yielder.Stopped() && world.Messages.Shown.empty()) break;

    // The same as a text that ends there, whatever the stage in which the stop came.
    const bool cut = world.Run.Facts.Options.Stopped;
    size_t end = 0;
    for (uint64_t line = 0; line < (cut ? call : 30); ++line) end = text.find('\n', end) + 1;
    RunWorld shorter;
    shorter.UseFile("/a.txt", text.substr(0, end));
    shorter.UseLengths(2, 4);
    shorter.Count();
    EXPECT_EQ(world.Listed(), shorter.Listed()) << call;
    EXPECT_EQ(world.Run.Table.PhraseCount(), shorter.Run.Table.PhraseCount());
    if (world.Yielder.Stopped()) continue;  // The very last call: nothing was left to stop.
    EXPECT_TRUE(world.Run.Interrupted);
    EXPECT_EQ(world.Messages.Only().Text,
              "The operation was stopped before all phrases were counted.\n"
              "Do you wish to list those which were were found?");
    EXPECT_EQ(world.Messages.Only().Title, "Counting interrupted");
  }
}

TEST(RunCount, AStopAnsweredWithNoEndsTheRun) {
  RunWorld world;
  world.UseFile("/a.txt", LinesOfWords(30));
  world.Yielder.StopAtCall(5);
  world.Messages.WillAnswer(questions::kCountingInterrupted, Answer::No);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_EQ(world.View.Statuses.back(), "Stopped");
  EXPECT_FALSE(world.Yielder.Stopped());
}

TEST(RunCount, AStopWhileListsAreCompiledEndsTheRunInSilence) {
  RunWorld world;
  world.UseFile("/a.txt", LinesOfWords(5));
  for (int k = 0; k < 100; ++k)
    world.Request.Lists.TypedWordsToIgnore.push_back("<a[" + std::to_string(k) + "]b>");
  world.Yielder.StopAtCall(50);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_EQ(world.Yielder.Calls, 50u);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunCount, AStopBeforeAnythingWasReadEndsTheRunInSilence) {
  RunWorld world;
  world.UseFile("/a.txt", "word\n" + LinesOfWords(5));
  world.Yielder.StopAtCall(1);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunCount, AStopBeforeAnyPhraseWasReadEndsTheRunInSilence) {
  RunWorld world;
  // Words enough for many phrases, but a period behind each of them.
  std::string words;
  for (int k = 0; k < 50; ++k) words += "word.\n";
  world.UseFile("/a.txt", words + LinesOfWords(5));
  world.UseLengths(2, 4);
  world.Yielder.StopAtCall(40);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunCount, AStopWhileFilesAreCountedEndsTheRun) {
  RunWorld world;
  for (int k = 0; k < 5; ++k) world.Files.Add("/t/" + std::to_string(k) + ".txt", kText);
  world.UseFolder("/t");
  world.Yielder.StopAtCall(3);
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_EQ(world.View.Statuses.back(), "Stopped while counting files (so far: 2).");
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunCount, AStopBetweenFilesListsTheFilesRead) {
  RunWorld world;
  for (int k = 0; k < 5; ++k) world.Files.Add("/t/" + std::to_string(k) + ".txt", "the big cat");
  world.UseFolder("/t");
  world.UseLengths(2, 2);
  world.Messages.WillAnswer(questions::kCountingInterrupted, Answer::Yes);
  world.Yielder.StopAtCall(10);  // Five while counting files; then two per file.
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_TRUE(world.Run.Facts.Options.Stopped);
  EXPECT_LT(world.Run.Facts.FilesScanned, 5u);
  EXPECT_EQ(world.Listed().substr(2),
            "big cat, " + std::to_string(world.Run.Facts.FilesScanned) + " the big");
}

TEST(RunCount, AStopRequestedBeforeTheRunStopsIt) {
  RunWorld world;
  world.UseFile("/a.txt", kText);
  world.Yielder.RequestStop();
  EXPECT_EQ(world.Count(), RunEnd::Stopped);
  EXPECT_EQ(world.Run.Facts.Words.Read(), 0u);
}

}  // namespace
}  // namespace korv
