#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "base/yielder.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "engine/patterns/word_filters.h"
#include "tests/fakes/chosen_threads.h"

// The same text on any number of threads.

namespace korv {
namespace {

constexpr size_t kThreads[] = {1, 2, 3, 16};

/// Words that hold one another, long ones among them, with stretches that come again.
std::vector<std::string> MadeWords() {
  const char* const stems[] = {"a", "s", "an", "the", "he", "cat", "cats", "sand", "andy", "e", "n", "other"};
  std::vector<std::string> vocabulary(std::begin(stems), std::end(stems));
  for (int k = 0; k < 400; ++k) vocabulary.push_back(stems[k % 12] + std::to_string(k) + stems[k * 5 % 12]);
  vocabulary.push_back(std::string(45, 'x') + "y");
  std::mt19937 random(11);
  std::vector<std::string> words;
  while (words.size() < 60'000) {
    if (words.size() > 100 && random() % 6 == 0) {
      const size_t from = random() % (words.size() - 12);
      for (size_t k = 0; k < 12; ++k) words.push_back(words[from + k]);
    } else {
      words.push_back(vocabulary[std::min(random() % vocabulary.size(), random() % vocabulary.size())]);
    }
  }
  return words;
}

void TakeMadeText(const RunOptions& options, const WordFilters& lists, PhraseTable& table) {
  static const std::vector<std::string> kWords = MadeWords();
  WordRules rules;
  rules.IgnoreShortWords = false;
  rules.IgnoreRepetitions = false;
  CorpusBuilder builder(rules, options, lists);
  for (size_t i = 0; i < kWords.size(); ++i) {
    if (i % 20'000 == 0) builder.BeginSource(std::to_string(i));
    builder.TakeWord(kWords[i]);
    if (i % 37 == 0) builder.ResetPhrases();
  }
  TakeText(std::move(builder), table);
}

struct Entry {
  std::string Text;
  uint32_t Count;
  Place First;
  bool Listed;
  PhraseRank Rank;
  std::vector<Place> Places;
  bool operator==(const Entry&) const = default;
};

struct Outcome {
  std::vector<Entry> Entries;
  uint64_t PhraseCount;
  uint64_t Occurrences;
  uint64_t LongPhrases;
  bool operator==(const Outcome&) const = default;
};

Outcome OutcomeOf(const PhraseTable& table) {
  Outcome outcome{{}, table.PhraseCount(), table.Occurrences(), table.LongPhrases()};
  for (const PhraseIndex i : table.All()) {
    const auto places = table.Places(i);
    outcome.Entries.push_back({table.Text(i),
                               table.Count(i),
                               table.First(i),
                               table.Listed(i),
                               table.ChainPosition(i),
                               {places.begin(), places.end()}});
  }
  return outcome;
}

bool CountAll(PhraseTable& table, Yielder& yielder) {
  return CountPhrases(table, yielder, 5000) && SortPhrases(table, yielder) &&
         (ListByFrequency(table, 2), true) && ExcludeRedundantSubphrases(table, yielder) &&
         SetUpFrequencyChain(table, ChainOrder::ByCount, yielder);
}

struct Kind {
  const char* Name;
  int MaxWords;
  bool KeepsPlaces;
  bool KeepsRedundant;
  bool Lists;
};

constexpr Kind kKinds[] = {
    {"short phrases", 6, false, false, false},
    {"all lengths, with places", 25, true, false, false},
    {"redundant ones, too", 5, false, true, false},
    {"with lists", 4, true, false, true},
};

RunOptions OptionsOf(const Kind& kind) {
  RunOptions options;
  options.MinWords = 2;
  options.MaxWords = kind.MaxWords;
  options.MinFrequency = 2;
  options.KeepPlaces = kind.KeepsPlaces;
  options.KeepRedundant = kind.KeepsRedundant;
  return options;
}

WordFilters ListsOf(const Kind& kind) {
  WordFilterSpec spec;
  if (kind.Lists) {
    spec.FileWordsToIgnore = {"the", "he", "e"};
    spec.CountOnly = {"c~", "the he", "an ~ a~"};
  }
  return WordFilters(spec);
}

TEST(Threads, ChangeNoResult) {
  for (const Kind& kind : kKinds) {
    SCOPED_TRACE(kind.Name);
    const RunOptions options = OptionsOf(kind);
    const WordFilters lists = ListsOf(kind);
    Outcome expected;
    for (const size_t threads : kThreads) {
      SCOPED_TRACE(threads);
      WithThreads<> yielder(threads);
      PhraseTable table;
      TakeMadeText(options, lists, table);
      ASSERT_TRUE(CountAll(table, yielder));
      Outcome outcome = OutcomeOf(table);
      if (threads == 1)
        expected = std::move(outcome);
      else
        EXPECT_TRUE(outcome == expected);
    }
    EXPECT_GT(expected.Entries.size(), 1000U);
  }
}

/// Asks for a stop at one turn.
class StopAtTurn : public Yielder {
 public:
  explicit StopAtTurn(int turn) : left_(turn) {}

 protected:
  void HandOver() override {
    if (--left_ == 0) RequestStop();
  }
  uint32_t NextStride() override {
    HandOver();
    return 1;
  }

 private:
  int left_;
};

TEST(Threads, ChangeNoResultAfterAStopAtAnyTurn) {
  const RunOptions options = OptionsOf(kKinds[0]);
  const WordFilters lists = ListsOf(kKinds[0]);
  NoYielder never;
  PhraseTable whole;
  TakeMadeText(options, lists, whole);
  ASSERT_TRUE(CountAll(whole, never));
  const Outcome expected = OutcomeOf(whole);
  for (const size_t threads : kThreads)
    for (const int turn : {1, 2, 4, 7, 11, 16, 30}) {
      SCOPED_TRACE(threads);
      WithThreads<StopAtTurn> yielder(threads, turn);
      PhraseTable table;
      TakeMadeText(options, lists, table);
      if (!CountAll(table, yielder)) {
        EXPECT_TRUE(yielder.Stopped());
        yielder.ClearStop();
        ASSERT_TRUE(CountAll(table, yielder));
      }
      EXPECT_TRUE(OutcomeOf(table) == expected);
    }
}

}  // namespace
}  // namespace korv
