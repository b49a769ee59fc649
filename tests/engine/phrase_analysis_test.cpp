#include "engine/analysis/phrase_analysis.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"

namespace korv {
namespace {

/// A counted text. Words are parted by blanks; "/" ends phrases, and "{" begins a file.
class AnalysisWorld {
 public:
  AnalysisWorld(RunOptions options, const std::string& text, const std::string& wordToIgnore = {})
      : lists_(FilterOf(wordToIgnore)) {
    options.KeepPlaces = true;
    WordRules rules;
    rules.IgnoreShortWords = false;
    CorpusBuilder builder(rules, options, lists_);
    builder.BeginSource("first");
    std::istringstream words(text);
    for (std::string word; words >> word;) {
      if (word == "/")
        builder.ResetPhrases();
      else if (word == "{")
        builder.BeginSource("next");
      else
        builder.TakeWord(word);
    }
    NoYielder yielder;
    TakeText(std::move(builder), Table);
    CountPhrases(Table, yielder);
    SortPhrases(Table, yielder);
    ListByFrequency(Table, options.MinFrequency);
    ExcludeRedundantSubphrases(Table, yielder);
  }

  PhraseIndex Entry(const std::string& phrase) const {
    for (const PhraseIndex i : Table.All())
      if (Table.Text(i) == phrase) return i;
    ADD_FAILURE() << phrase;
    return kNoPhrase;
  }

  PhraseTable Table;

 private:
  static WordFilterSpec FilterOf(const std::string& wordToIgnore) {
    WordFilterSpec filter;
    if (!wordToIgnore.empty()) filter.TypedWordsToIgnore = {wordToIgnore};
    return filter;
  }

  WordFilters lists_;
};

RunOptions Lengths(int minWords, int maxWords, int minFrequency = 2) {
  RunOptions options;
  options.MinWords = minWords;
  options.MaxWords = maxWords;
  options.MinFrequency = minFrequency;
  return options;
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  while (times-- > 0) all += text;
  return all;
}

struct PartsCase {
  const char* Name;
  std::string Text;
  int Parts;
  size_t Count;
  uint64_t Fewest;
};

const PartsCase kPartsCases[] = {
    {"too short for equal parts", Repeated("a b ", 99), 0, 0, 0},
    {"short", Repeated("a b ", 100), 0, 2, 100},
    {"one part for 100 words", Repeated("a b ", 225), 0, 4, 112},
    {"never more than ten", Repeated("a b ", 5000), 0, 10, 1000},
    {"as many as asked for", Repeated("a b ", 5000), 3, 3, 3333},
    {"asked for, but too short", "a b { c d", 2, 0, 0},
    {"files, one of them empty", "a b { { c d e", 0, 2, 2},
    {"one file with words", "{ { a b {", 0, 0, 0},
    {"asked for equal parts of files", Repeated("a b { ", 100), 7, 7, 28},
};

TEST(TextParts, AreFilesOrOfEqualLength) {
  for (const PartsCase& c : kPartsCases) {
    const AnalysisWorld world(Lengths(2, 3), c.Text);
    NoYielder yielder;
    TakenWords words;
    ASSERT_TRUE(words.Build(world.Table.Corpus(), yielder));
    TextParts parts;
    parts.Divide(world.Table.Corpus(), words, {c.Parts});
    EXPECT_EQ(parts.Count(), c.Count) << c.Name;
    EXPECT_EQ(parts.FewestWords(), c.Fewest) << c.Name;
    uint64_t sum = 0;
    for (size_t part = 0; part < parts.Count(); ++part) sum += parts.WordsOf(part);
    EXPECT_EQ(sum, c.Count == 0 ? 0 : words.Total()) << c.Name;
  }
}

struct NetCase {
  const char* Name;
  const char* Text;
  RunOptions Options;
  const char* Phrase;
  uint32_t Net;
};

const NetCase kNetCases[] = {
    {"inside a longer phrase", "a b c / a b c / a b", Lengths(2, 3), "a b", 1},
    {"the longer phrase", "a b c / a b c / a b", Lengths(2, 3), "a b c", 2},
    {"overlap costs nothing", "a b c / a b / b c / a b c", Lengths(2, 2), "a b", 3},
    {"sum of several longer ones", "a b c / a b c / a b d / a b d", Lengths(2, 3), "a b", 0},
    {"a longer one below the minimum", "a b c / a b d / a b d", Lengths(2, 3), "a b", 1},
    {"within itself", "a a a a / a a", Lengths(2, 3), "a a", 1},
    {"redundant within words only", "xa b / xa b / xxa b / xxa b", Lengths(2, 2), "xa b", 2},
};

TEST(FreeOccurrences, AreThoseInNoLongerPhrase) {
  for (const NetCase& c : kNetCases) {
    const AnalysisWorld world(c.Options, c.Text);
    PhraseAnalysis analysis(world.Table, {});
    NoYielder yielder;
    ASSERT_TRUE(analysis.Prepare({.FreeOccurrences = true}, yielder)) << c.Name;
    EXPECT_EQ(analysis.NetFrequency(world.Entry(c.Phrase)), c.Net) << c.Name;
  }
}

TEST(FreeOccurrences, CoverTheWordsOfAllOccurrences) {
  const AnalysisWorld world(Lengths(2, 3), "a b c d / x / a b c / b c d / y z");
  FreeOccurrences found;
  NoYielder yielder;
  ASSERT_TRUE(FindFreeOccurrences(world.Table, yielder, found));
  EXPECT_EQ(found.WordsCovered, 4u + 3 + 3);
}

TEST(TakenWords, CountWordsThatExcludedPhrases) {
  RunOptions options = Lengths(2, 3);
  options.IgnoreMode = IgnoreRule::ExcludeWith;
  const AnalysisWorld world(options, "the a b the the a { the / a b", "the");
  NoYielder yielder;
  TakenWords words;
  ASSERT_TRUE(words.Build(world.Table.Corpus(), yielder));
  EXPECT_EQ(words.Total(), 9u);
  std::string before;
  const Corpus& corpus = world.Table.Corpus();
  for (size_t i = 0; i < corpus.Tokens.size(); ++i)
    if (corpus.Tokens[i] != kNoWord)
      before += std::to_string(words.Before(Place{static_cast<uint32_t>(i)})) + " ";
  EXPECT_EQ(before, "1 2 5 7 8 ");
}

struct TermCase {
  const char* Term;
  double CValue;
};

/// An example from ophthalmology that the measure's authors give.
TEST(PhraseAnalysis, CValuesAreThoseOfTheAuthorsExample) {
  const AnalysisWorld world(Lengths(2, 5), Repeated("adenoid cystic basal cell carcinoma / ", 5) +
                                               Repeated("cystic basal cell carcinoma / ", 11 - 5) +
                                               Repeated("ulcerated basal cell carcinoma / ", 7) +
                                               Repeated("recurrent basal cell carcinoma / ", 5) +
                                               Repeated("circumscribed basal cell carcinoma / ", 3) +
                                               Repeated("basal cell carcinoma / ", 984 - 11 - 7 - 5 - 3));
  PhraseAnalysis analysis(world.Table, {});
  NoYielder yielder;
  ASSERT_TRUE(analysis.Prepare({.CValues = true}, yielder));
  const TermCase cases[] = {
      {"adenoid cystic basal cell carcinoma", 11.6096}, {"cystic basal cell carcinoma", 12},
      {"ulcerated basal cell carcinoma", 14},           {"recurrent basal cell carcinoma", 10},
      {"circumscribed basal cell carcinoma", 6},        {"basal cell carcinoma", 1551.361}};
  for (const TermCase& c : cases)
    EXPECT_NEAR(analysis.CValue(world.Entry(c.Term)).value_or(0), c.CValue, 0.0005) << c.Term;
}

TEST(PhraseAnalysis, WithoutPlacesOnlyCValuesAreDefined) {
  const WordFilters lists;
  CorpusBuilder builder({}, Lengths(2, 3, 1), lists);
  for (const char* word : {"cat", "sat", "mat"}) builder.TakeWord(word);
  PhraseTable table;
  NoYielder yielder;
  TakeText(std::move(builder), table);
  CountPhrases(table, yielder);
  PhraseAnalysis analysis(table, {});
  ASSERT_TRUE(analysis.Prepare({.Positions = true,
                                .Parts = true,
                                .FreeOccurrences = true,
                                .Words = true,
                                .Joints = true,
                                .CValues = true},
                               yielder));
  EXPECT_EQ(analysis.Association(PhraseIndex{1}, MutualInformation), std::nullopt);
  EXPECT_EQ(analysis.WeakestJoint(PhraseIndex{1}), std::nullopt);
  EXPECT_TRUE(analysis.CValue(PhraseIndex{1}).has_value()) << "made of the phrases alone";
  EXPECT_EQ(analysis.NetFrequency(PhraseIndex{1}), std::nullopt);
  EXPECT_EQ(analysis.ReducedFrequency(PhraseIndex{1}), std::nullopt);
  EXPECT_EQ(analysis.Dispersion(PhraseIndex{1}, DispersionP), std::nullopt);
  EXPECT_EQ(analysis.Range(PhraseIndex{1}), std::nullopt);
}

TEST(PhraseAnalysis, AStopLeavesTheRestForLater) {
  const AnalysisWorld world(Lengths(2, 3), Repeated("a b c { ", 2000));
  PhraseAnalysis analysis(world.Table, {});
  NoYielder yielder;
  yielder.RequestStop();
  EXPECT_FALSE(analysis.Prepare({.FreeOccurrences = true}, yielder));
  EXPECT_EQ(analysis.NetFrequency(PhraseIndex{1}), std::nullopt);
  yielder.ClearStop();
  EXPECT_TRUE(analysis.Prepare({.FreeOccurrences = true}, yielder));
  EXPECT_EQ(analysis.NetFrequency(world.Entry("a b c")), 2000u);
}

}  // namespace
}  // namespace korv
