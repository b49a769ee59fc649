#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/engine/counting_world.h"

// Every text of up to seven steps, against the naive model.

namespace korv {
namespace {

using Kind = CountingWorld::Step::Kind;
using Step = CountingWorld::Step;

void CountEveryText(CountingWorld world, const std::vector<Step>& steps, size_t most) {
  NoYielder yielder;
  const CountingOutcome model = ModelOutcome(world);
  const CountingOutcome engine = EngineOutcome(world, yielder);
  ASSERT_TRUE(engine == model) << world << "\nmodel: " << model << "engine: " << engine;
  if (world.Steps.size() == most) return;
  for (const Step& step : steps) {
    world.Steps.push_back(step);
    if (step.What == Kind::NextFile) world.Steps.back().Text = std::to_string(world.Steps.size());
    CountEveryText(world, steps, most);
    if (testing::Test::HasFatalFailure()) return;
    world.Steps.pop_back();
  }
}

CountingWorld World(int minWords, int maxWords, int minFrequency) {
  CountingWorld world;
  world.Rules.CaseSignificant = true;
  world.Rules.IgnoreShortWords = false;
  world.Options.MinWords = minWords;
  world.Options.MaxWords = maxWords;
  world.Options.MinFrequency = minFrequency;
  return world;
}

const Step kEnd{Kind::EndOfPhrase, ""};
const Step kNextFile{Kind::NextFile, ""};

Step Word(const char* text) {
  return {Kind::Word, text};
}

TEST(CountingSmallTexts, OfTwoWordsAndPhraseEnds) {
  for (int minFrequency : {1, 2}) {
    CountEveryText(World(2, 3, minFrequency), {Word("a"), Word("b"), kEnd}, 7);
    CountEveryText(World(2, 6, minFrequency), {Word("a"), Word("b"), kEnd}, 7);
    CountEveryText(World(3, 3, minFrequency), {Word("a"), Word("b"), kEnd}, 7);
  }
}

TEST(CountingSmallTexts, OfWordsWithinWords) {
  CountEveryText(World(2, 3, 1), {Word("e"), Word("he"), Word("the"), Word("het")}, 6);
  CountEveryText(World(2, 2, 1), {Word("e"), Word("he"), Word("the"), kEnd}, 6);
}

TEST(CountingSmallTexts, OfWordsWithEqualKeys) {
  CountEveryText(World(2, 3, 1), {Word("a"), Word("á"), Word("A"), Word("b")}, 6);
}

TEST(CountingSmallTexts, OfSeveralFiles) {
  for (ChainOrder order : {ChainOrder::ByCount, ChainOrder::ByFiles}) {
    CountingWorld world = World(2, 3, 1);
    world.Options.SourceKind = TextSource::Folder;
    world.Order = order;
    CountEveryText(world, {Word("a"), Word("b"), kNextFile}, 7);
  }
}

TEST(CountingSmallTexts, InEveryIgnoreMode) {
  for (IgnoreRule mode :
       {IgnoreRule::Allow, IgnoreRule::ExcludeAll, IgnoreRule::Remove, IgnoreRule::ExcludeWith}) {
    CountingWorld world = World(2, 3, 1);
    world.Options.IgnoreMode = mode;
    world.Entries.FileWordsToIgnore = {"b"};
    CountEveryText(world, {Word("a"), Word("b"), kEnd}, 7);
  }
}

TEST(CountingSmallTexts, WithCountOnlyEntries) {
  for (const char* entry : {"b", "a b", "~ a", "<b a>", "b~"}) {
    CountingWorld world = World(2, 3, 1);
    world.Entries.CountOnly = {entry};
    world.Entries.CaseSignificant = true;
    CountEveryText(world, {Word("a"), Word("b"), kEnd}, 6);
  }
}

}  // namespace
}  // namespace korv
