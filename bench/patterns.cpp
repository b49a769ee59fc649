// Lists against the vocabulary of a large text. Ten million words of English hold some 200,000 to 300,000
// different ones, and each is asked for once per list; so a time below is what a list costs a whole run.
//
//   bench_patterns --benchmark_filter=Ask

#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/patterns/matching.h"
#include "engine/patterns/word_filters.h"

namespace korv {
namespace {

constexpr size_t kVocabulary = 300'000;
constexpr size_t kPatterns = 5'000;
constexpr size_t kPlainWords = 100'000;

/// A word of so many syllables.
std::string MakeWord(std::mt19937& random, size_t syllables) {
  static constexpr const char* kSyllables[] = {
      "a",   "be",  "con", "de",  "en",   "fi",   "gra", "ha",  "in",  "ju",  "ko", "la",   "mi",   "no",
      "o",   "pre", "qui", "re",  "sta",  "ti",   "un",  "ver", "wi",  "ex",  "ly", "za",   "ing",  "ed",
      "ter", "al",  "our", "str", "ment", "ness", "chi", "the", "ous", "per", "or", "able", "ship", "é"};
  std::string word;
  for (; syllables > 0; --syllables) word += kSyllables[random() % std::size(kSyllables)];
  return word;
}

const std::vector<std::string>& Vocabulary() {
  static const std::vector<std::string> words = [] {
    std::mt19937 random(2026);
    std::vector<std::string> result;
    for (size_t i = 0; i < kVocabulary; ++i) result.push_back(MakeWord(random, 1 + random() % 5));
    return result;
  }();
  return words;
}

enum class Kind { PlainWords, Wildcards, Expressions, Mixed, Shapes };

/// What people put into lists: beginnings, endings, words with something in the middle; and for the worst
/// case expressions that need no certain letter.
std::string MakePattern(Kind kind, std::mt19937& random) {
  // Long enough that most words match none, and so are tried with all that they could match.
  const std::string a = MakeWord(random, kind == Kind::PlainWords ? 1 + random() % 5 : 3);
  const std::string b = MakeWord(random, 2);
  const auto form = random() % 4;
  switch (kind) {
    case Kind::PlainWords:
      return a;
    case Kind::Wildcards:
      return form == 0 ? a + "~" : form == 1 ? "~" + a : form == 2 ? a + "~" + b : "?" + a;
    case Kind::Expressions:
      return form == 0   ? "<^" + a + ">"
             : form == 1 ? "<" + a + "$>"
             : form == 2 ? "<" + a + "|" + b + ">"
                         : "<" + a + "[aeiou]" + b + ">";
    case Kind::Mixed:
      return MakePattern(random() % 2 == 0 ? Kind::Wildcards : Kind::Expressions, random);
    case Kind::Shapes:
      return "<^[" + a + "]{" + std::to_string(6 + form) + "}[" + b + "]$>";
  }
  return {};
}

WordFilterSpec MakeEntries(Kind kind, size_t count) {
  std::mt19937 random(7);
  WordFilterSpec entries;
  for (size_t i = 0; i < count; ++i) entries.TypedWordsToIgnore.push_back(MakePattern(kind, random));
  return entries;
}

/// The fast way must give the same answers as one question at a time.
void CheckAnswers(const WordFilterSpec& entries, const WordFilters& lists) {
  for (size_t i = 0; i < Vocabulary().size(); i += Vocabulary().size() / 5) {
    const std::string& word = Vocabulary()[i];
    bool any = false;
    for (const std::string& entry : entries.TypedWordsToIgnore)
      any =
          any || (HoldsPattern(entry) ? MatchPattern(word, entry, kAnyRun, kAnyChar, false) : word == entry);
    if (any != lists.IsWordToIgnore(word)) throw std::logic_error("wrong answer for " + word);
  }
}

void Ask(benchmark::State& state, Kind kind, size_t count) {
  const WordFilterSpec entries = MakeEntries(kind, count);
  const WordFilters lists(entries);
  CheckAnswers(entries, lists);
  int64_t found = 0;
  for (auto _ : state)
    for (const std::string& word : Vocabulary()) found += lists.IsWordToIgnore(word);
  benchmark::DoNotOptimize(found);
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(kVocabulary));
  state.counters["found"] =
      static_cast<double>(found) / static_cast<double>(state.iterations()) / static_cast<double>(kVocabulary);
}

void SetUp(benchmark::State& state, Kind kind, size_t count) {
  const WordFilterSpec entries = MakeEntries(kind, count);
  for (auto _ : state) benchmark::DoNotOptimize(WordFilters(entries));
}

#define KORV_LIST_BENCH(kind, count)                                                             \
  BENCHMARK_CAPTURE(Ask, kind, Kind::kind, count)->Unit(benchmark::kMillisecond)->UseRealTime(); \
  BENCHMARK_CAPTURE(SetUp, kind, Kind::kind, count)->Unit(benchmark::kMillisecond)->UseRealTime()

KORV_LIST_BENCH(PlainWords, kPlainWords);
KORV_LIST_BENCH(Wildcards, kPatterns);
KORV_LIST_BENCH(Expressions, kPatterns);
KORV_LIST_BENCH(Mixed, kPatterns);
KORV_LIST_BENCH(Shapes, kPatterns);

}  // namespace
}  // namespace korv
