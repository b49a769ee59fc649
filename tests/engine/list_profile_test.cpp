#include "engine/analysis/list_profile.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include "tests/engine/counting_world.h"
#include "tests/fakes/fake_yielder.h"
#include "tests/reference/naive_profile.h"

namespace korv {
namespace {

ListProfile ProfileOf(const PhraseTable& table) {
  NoYielder yielder;
  ListProfile profile;
  EXPECT_TRUE(FindListProfile(table, yielder, profile));
  return profile;
}

std::vector<int64_t> ByRank(const ListProfile& profile) {
  std::vector<int64_t> frequencies;
  for (const FrequencyStep& step : profile.Frequencies)
    frequencies.insert(frequencies.end(), step.Phrases, step.Frequency);
  return frequencies;
}

RC_GTEST_PROP(ListProfile, IsThatOfTheListedPhrases, ()) {
  CountingWorld world = DrawWorld({.Lists = true, .Rules = true});
  world.Options.MinFrequency = *rc::gen::inRange(1, 4);
  RC_LOG() << world << '\n';
  const ListProfile profile = ProfileOf(CountedByEngine(world).Table);
  const reference::CountingRun model = ModelRun(world);
  RC_ASSERT(ByRank(profile) == reference::FrequenciesByRank(model));
  const std::map<int, reference::OfLength> lengths = reference::ListedByLength(model);
  for (int words = 0; words <= kMostWords; ++words) {
    const auto found = lengths.find(words);
    const auto expected = found == lengths.end() ? reference::OfLength{} : found->second;
    const LengthStep& length = profile.Lengths[static_cast<size_t>(words)];
    RC_ASSERT(length.Phrases == static_cast<uint64_t>(expected.Phrases));
    RC_ASSERT(length.Occurrences == static_cast<uint64_t>(expected.Occurrences));
  }
}

RC_GTEST_PROP(ListProfile, HasOneStepForEachFrequency, ()) {
  const ListProfile profile = ProfileOf(CountedByEngine(DrawWorld({})).Table);
  for (size_t s = 1; s < profile.Frequencies.size(); ++s)
    RC_ASSERT(profile.Frequencies[s - 1].Frequency > profile.Frequencies[s].Frequency);
}

TEST(ListProfile, IsNotFinishedAfterAStop) {
  CountingWorld world;
  world.Options.MinWords = world.Options.MaxWords = 2;
  world.Options.MinFrequency = 1;
  for (const char* word : {"some", "words"}) world.Steps.push_back({CountingWorld::Step::Kind::Word, word});
  const EngineRun run = CountedByEngine(world);
  ASSERT_EQ(run.Table.EntryCount(), 1u);
  NoYielder yielder;
  yielder.RequestStop();
  ListProfile profile;
  EXPECT_FALSE(FindListProfile(run.Table, yielder, profile));
}

}  // namespace
}  // namespace korv
