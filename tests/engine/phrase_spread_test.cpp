#include "engine/analysis/phrase_spread.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <numeric>

#include "tests/engine/counting_world.h"
#include "tests/reference/naive_spread.h"

namespace korv {
namespace {

CountingWorld DrawWorldWithPlaces() {
  CountingWorld world = DrawWorld({.Lists = true, .Rules = true, .Folder = *rc::gen::arbitrary<bool>()});
  world.Options.KeepPlaces = true;
  world.Options.MinFrequency = 1;
  RC_LOG() << world << '\n';
  return world;
}

RC_GTEST_PROP(PhraseSpread, ByPartIsThatOfTheModel, ()) {
  const CountingWorld world = DrawWorldWithPlaces();
  const EngineRun run = CountedByEngine(world);
  const reference::CountingRun model = ModelRun(world);
  const auto parts = static_cast<size_t>(*rc::gen::inRange(1, 120));
  NoYielder yielder;
  TakenWords words;
  RC_ASSERT(words.Build(run.Table.Corpus(), yielder));
  for (const PhraseIndex i : run.Table.All()) {
    if (!run.Table.Listed(i)) continue;
    RC_ASSERT(OccurrencesByPart(run.Table, i, words, parts) ==
              reference::OccurrencesByPart(model, run.Table.Text(i), parts));
  }
}

RC_GTEST_PROP(TextBorders, LieBetweenTheTextsOfTheModel, ()) {
  const CountingWorld world = DrawWorldWithPlaces();
  const EngineRun run = CountedByEngine(world);
  const reference::CountingRun model = ModelRun(world);
  NoYielder yielder;
  TakenWords words;
  RC_ASSERT(words.Build(run.Table.Corpus(), yielder));
  std::vector<double> expected;
  double before = 0;
  for (const int64_t ofText : model.WordsOfSources()) {
    if (before > 0 && ofText > 0) expected.push_back(before / static_cast<double>(model.WordsTaken()));
    before += static_cast<double>(ofText);
  }
  RC_ASSERT(TextBorders(run.Table.Corpus(), words) == expected);
  RC_TAG(expected.empty() ? "one text" : "several");
}

RC_GTEST_PROP(PhraseSpread, BySourceIsThatOfTheModel, ()) {
  const CountingWorld world = DrawWorldWithPlaces();
  const EngineRun run = CountedByEngine(world);
  const reference::CountingRun model = ModelRun(world);
  std::vector<PhraseIndex> phrases;
  for (const PhraseIndex i : run.Table.All())
    if (run.Table.Listed(i) && phrases.size() < 3) phrases.push_back(i);
  std::vector<std::vector<uint32_t>> expected;
  for (const PhraseIndex i : phrases)
    expected.push_back(reference::OccurrencesBySource(model, run.Table.Text(i)));

  uint64_t before = UINT64_MAX;
  size_t held = 0;
  for (const SourceOccurrences& source : OccurrencesBySource(run.Table, phrases)) {
    ++held;
    for (size_t k = 0; k < phrases.size(); ++k)
      RC_ASSERT(source.Occurrences[k] == expected[k][source.Source]);
    const uint64_t sum = std::accumulate(source.Occurrences.begin(), source.Occurrences.end(), uint64_t{0});
    RC_ASSERT(sum > 0 && sum <= before);
    before = sum;
  }
  size_t holding = 0;
  for (size_t s = 0; s < run.Table.Corpus().Sources.size(); ++s)
    for (const auto& ofPhrase : expected)
      if (ofPhrase[s] > 0) {
        ++holding;
        break;
      }
  RC_ASSERT(held == holding);
}

}  // namespace
}  // namespace korv
