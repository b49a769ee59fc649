#include "engine/analysis/phrase_fate.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "tests/engine/counting_world.h"
#include "tests/reference/naive_fate.h"
#include "tests/reference/naive_text.h"

namespace korv {
namespace {

using Words = std::vector<std::string>;

const char* NameOf(FateCause cause) {
  constexpr const char* kNames[] = {"apart",     "never in a row", "too few words",  "too many words",
                                    "too long",  "all ignored",    "not count-only", "too rare",
                                    "redundant", "listed"};
  return kNames[static_cast<size_t>(cause)];
}

/// For each word of the model, and one behind, whether a text begins there.
std::vector<bool> BeginsOf(const Corpus& corpus, size_t words) {
  std::vector<bool> begins(words + 1);
  for (const CorpusSource& source : corpus.Sources)
    if (source.Begin < begins.size()) begins[source.Begin] = true;
  return begins;
}

/// Every phrase of up to `most` words, phrase ends passed over; and some whose words do not follow each
/// other.
std::set<Words> PhrasesOf(const Words& text, size_t most) {
  std::set<Words> phrases;
  for (size_t begin = 0; begin < text.size(); ++begin) {
    Words phrase;
    for (size_t i = begin; i < text.size() && phrase.size() < most; ++i) {
      if (text[i].empty()) continue;
      phrase.push_back(text[i]);
      phrases.insert(phrase);
    }
    if (phrase.size() > 1) phrases.insert({phrase.back(), phrase.front()});
  }
  return phrases;
}

void CheckKind(const WorldKind& kind) {
  const CountingWorld world = DrawWorld(kind);
  RC_LOG() << world << '\n';
  const EngineRun run = CountedByEngine(world);
  const reference::CountingRun model = ModelRun(world);
  const Corpus& corpus = run.Table.Corpus();
  const std::vector<bool> begins = BeginsOf(corpus, model.Words().size());
  const auto most = static_cast<size_t>(std::min(world.Options.MaxWords + 1, kMostWords));
  for (const Words& phrase : PhrasesOf(model.Words(), most)) {
    std::vector<WordNumber> numbers;
    for (const std::string& word : phrase) numbers.push_back(corpus.Words.Find(word));
    const reference::Fate expected = reference::FateOf(model, begins, world.Options, world.Entries, phrase);
    PhraseFate fate;
    NoYielder yielder;
    RC_ASSERT(FindPhraseFate(run.Table, numbers, yielder, fate));
    Words causes;
    for (const FateCause cause : fate.Causes) causes.emplace_back(NameOf(cause));
    for (const std::string& word : phrase) RC_LOG() << word << ' ';
    RC_LOG() << '\n';
    RC_ASSERT(causes == expected.Causes);
    RC_ASSERT(fate.Occurrences == expected.Occurrences);
    RC_ASSERT(fate.Apart == expected.Apart);
    if (expected.Apart > 0) RC_ASSERT(ValueOf(fate.FirstApart) == expected.FirstApart);
    RC_ASSERT((fate.Within == kNoPhrase) == expected.Within.empty());
    // Of phrases of one length the order decides, which the model has the other way round.
    if (fate.Within != kNoPhrase)
      RC_ASSERT(run.Table.Characters(fate.Within) == reference::CharacterCount(expected.Within));
    if (world.Order == ChainOrder::ByCount) RC_ASSERT(int64_t{fate.Rank} == expected.Rank);
  }
}

RC_GTEST_PROP(PhraseFate, OfEveryPhraseOfAText, ()) {
  CheckKind({.MostWords = 5});
}

RC_GTEST_PROP(PhraseFate, UnderRulesAndListsAndInFiles, ()) {
  CheckKind({.Lists = true, .Rules = true, .Folder = true, .MostWords = 4});
}

TEST(PhraseFate, AStopEndsTheLook) {
  CountingWorld world;
  for (int i = 0; i < 10; ++i) world.Steps.push_back({CountingWorld::Step::Kind::Word, "whale"});
  world.Options.MinWords = world.Options.MaxWords = 2;
  const EngineRun run = CountedByEngine(world);
  NoYielder yielder;
  yielder.RequestStop();
  const WordNumber whale = run.Table.Corpus().Words.Find("whale");
  PhraseFate fate;
  EXPECT_FALSE(FindPhraseFate(run.Table, std::vector{whale, whale}, yielder, fate));
}

}  // namespace
}  // namespace korv
