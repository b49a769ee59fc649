#include "engine/counting/phrase_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Counted = std::pair<std::string, int>;

PhraseTable TableOf(const std::vector<std::string>& phrases) {
  PhraseTable table;
  table.Clear();
  for (const std::string& phrase : phrases) table.AddWordToList(phrase);
  return table;
}

/// Sorted, everything listed.
PhraseTable CountedTable(const std::vector<Counted>& phrases) {
  PhraseTable table = TableOf({});
  for (const Counted& phrase : phrases) {
    for (int i = 0; i < phrase.second; ++i) table.AddWordToList(phrase.first);
  }
  NoYielder yielder;
  EXPECT_TRUE(SortPhrases(table, yielder));
  return table;
}

PhraseIndex IndexOf(const PhraseTable& table, const std::string& text) {
  for (const PhraseIndex i : table.All()) {
    if (table.Text(i) == text) return i;
  }
  return kNoPhrase;
}

std::vector<std::string> Texts(const PhraseTable& table) {
  std::vector<std::string> texts;
  for (const PhraseIndex i : table.All()) texts.push_back(table.Text(i));
  return texts;
}

std::vector<std::string> Listed(const PhraseTable& table) {
  std::vector<std::string> texts;
  for (const PhraseIndex i : table.All()) {
    if (table.Listed(i)) texts.push_back(table.Text(i));
  }
  return texts;
}

/// The indices of the entries in the order of the chain.
std::vector<uint32_t> Chain(const PhraseTable& table) {
  std::vector<uint32_t> chain;
  for (PhraseIndex i = table.ChainHead(); i != kNoPhrase; i = table.ChainNext(i)) chain.push_back(ValueOf(i));
  return chain;
}

/// A phrase of `characters` characters, most of them of two bytes.
std::string PhraseOfCharacters(int characters) {
  std::string phrase = "a b";
  for (int i = 3; i < characters; ++i) phrase += "é";
  return phrase;
}

TEST(AddWordToList, CreatesAnEntryOfTheFirstPhrase) {
  PhraseTable table = TableOf({"The Cat"});
  EXPECT_EQ(table.PhraseCount(), 1u);
  EXPECT_EQ(table.Occurrences(), 1u);
  ASSERT_EQ(table.EntryCount(), 1u);
  EXPECT_EQ(table.Text(PhraseIndex{1}), "The Cat");
  EXPECT_EQ(table.Key(PhraseIndex{1}), "the cat");
  EXPECT_EQ(table.Count(PhraseIndex{1}), 1u);
  EXPECT_EQ(table.Words(PhraseIndex{1}), 2);
  EXPECT_EQ(table.Characters(PhraseIndex{1}), 7);
  EXPECT_TRUE(table.Listed(PhraseIndex{1}));
  EXPECT_EQ(table.ChainPosition(PhraseIndex{1}), kNoRank);
  EXPECT_EQ(table.ChainNext(PhraseIndex{1}), kNoPhrase);
  EXPECT_EQ(table.MaxSearchDepth(), 0);
}

TEST(AddWordToList, CountsRepeatedPhrasesAndTellsCaseApart) {
  PhraseTable table = TableOf({"the cat", "The cat", "the cat", "the Cat"});
  EXPECT_EQ(table.PhraseCount(), 3u);
  EXPECT_EQ(table.Occurrences(), 4u);
  EXPECT_EQ(table.Count(IndexOf(table, "the cat")), 2u);
  EXPECT_EQ(table.Count(IndexOf(table, "The cat")), 1u);
  EXPECT_EQ(table.Count(IndexOf(table, "the Cat")), 1u);
}

TEST(AddWordToList, CountsAPhraseOf100CharactersAndNotOneOf101) {
  PhraseTable table = TableOf({PhraseOfCharacters(101)});
  EXPECT_EQ(table.PhraseCount(), 0u);
  EXPECT_EQ(table.Occurrences(), 0u);
  table.AddWordToList(PhraseOfCharacters(100));
  EXPECT_EQ(table.PhraseCount(), 1u);
  EXPECT_EQ(table.Characters(PhraseIndex{1}), 100);
}

TEST(AddWordToList, HasNoLimitOfLengthForAWordList) {
  PhraseTable table;
  table.Clear(true);
  for (int i = 0; i < 2; ++i) table.AddWordToList(std::string(200, 'a'));
  ASSERT_EQ(table.PhraseCount(), 1u);
  EXPECT_EQ(table.Count(PhraseIndex{1}), 2u);
  EXPECT_EQ(table.Text(PhraseIndex{1}), std::string(200, 'a'));
}

TEST(AddWordToList, NumbersOnlyFilesThatYieldAPhrase) {
  PhraseTable table = TableOf({});
  table.BeginFile("one.txt");
  table.AddWordToList("a b");
  table.AddWordToList("a b");
  table.BeginFile("too-long.txt");
  table.AddWordToList(PhraseOfCharacters(101));
  table.BeginFile("two.txt");
  table.AddWordToList("c d");
  table.AddWordToList("a b");
  EXPECT_THAT(table.FilePaths(), ElementsAre("one.txt", "two.txt"));
  const PhraseIndex ab = IndexOf(table, "a b");
  const PhraseIndex cd = IndexOf(table, "c d");
  EXPECT_EQ(table.Files(ab).FileNumbers(), "0000100002");
  EXPECT_EQ(table.Files(ab).FileCounts(), "0000200001");
  EXPECT_EQ(table.FileCount(ab), 2u);
  EXPECT_EQ(table.Files(cd).FileNumbers(), "00002");
  EXPECT_EQ(table.Files(cd).FileCounts(), "00001");
}

TEST(AddWordToList, GivesTheSameFileOneNumberHoweverOftenItIsBegun) {
  PhraseTable table = TableOf({});
  for (int i = 0; i < 2; ++i) {
    table.BeginFile("one.txt");
    table.AddWordToList("a b");
  }
  EXPECT_THAT(table.FilePaths(), ElementsAre("one.txt"));
  EXPECT_EQ(table.Files(PhraseIndex{1}).FileCounts(), "00002");
}

TEST(AddWordToList, KeepsFilesWithTheirPhrasesWhenSorted) {
  PhraseTable table = TableOf({});
  table.BeginFile("one.txt");
  table.AddWordToList("c d");
  table.BeginFile("two.txt");
  table.AddWordToList("a b");
  NoYielder yielder;
  ASSERT_TRUE(SortPhrases(table, yielder));
  EXPECT_THAT(Texts(table), ElementsAre("a b", "c d"));
  EXPECT_EQ(table.Files(PhraseIndex{1}).FileNumbers(), "00002");
  EXPECT_EQ(table.Files(PhraseIndex{2}).FileNumbers(), "00001");
}

TEST(PhraseTable, IsEmptyAfterClear) {
  PhraseTable table = CountedTable({{"a b", 2}, {"c d", 1}});
  NoYielder yielder;
  ASSERT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByCount, yielder));
  table.FindPhrase("b");
  table.Clear();
  EXPECT_EQ(table.PhraseCount(), 0u);
  EXPECT_EQ(table.Occurrences(), 0u);
  EXPECT_EQ(table.EntryCount(), 0u);
  EXPECT_EQ(table.ChainHead(), kNoPhrase);
  EXPECT_EQ(table.MaxSearchDepth(), 0);
  EXPECT_THAT(table.FilePaths(), IsEmpty());
  table.AddWordToList("e f");
  EXPECT_EQ(table.Text(PhraseIndex{1}), "e f");
}

TEST(FindPhrase, TellsWhereATextIsOrBelongs) {
  struct Case {
    std::vector<std::string> Phrases;
    std::string Text;
    bool Found;
    int64_t Position;
  };
  const Case cases[] = {
      {{}, "a", false, -1},
      {{"b"}, "c", false, -1},
      {{"b"}, "a", false, -2},
      {{"b"}, "b", true, 1},
      {{"b", "d"}, "e", false, -1},
      {{"b", "d"}, "d", true, 1},
      {{"b", "d"}, "c", false, -2},
      {{"b", "d"}, "b", true, 2},
      {{"b", "d"}, "a", false, -3},
      {{"a", "c", "e"}, "d", false, -2},
      {{"a", "c", "e"}, "c", true, 2},
      {{"a", "c", "e"}, "b", false, -3},
      {{"a", "c", "e"}, "a", true, 3},
      {{"The cat", "the cat"}, "THE cat", false, -3},
      {{"e", "é", "z"}, "é", true, 1},
  };
  for (const Case& c : cases) {
    PhraseTable table = TableOf(c.Phrases);
    const PhraseTable::Lookup lookup = table.FindPhrase(c.Text);
    EXPECT_EQ(lookup.Found, c.Found) << c.Text << " in " << testing::PrintToString(c.Phrases);
    EXPECT_EQ(lookup.Position, c.Position) << c.Text << " in " << testing::PrintToString(c.Phrases);
  }
}

TEST(FindPhrase, AgreesWithALinearSearchInTablesOfEverySize) {
  for (int n = 0; n <= 70; ++n) {
    std::vector<std::string> phrases;
    for (int i = 0; i < n; ++i) phrases.push_back(std::string(1, static_cast<char>('!' + i)) + "m");
    std::shuffle(phrases.begin(), phrases.end(), std::mt19937(static_cast<unsigned>(n)));
    PhraseTable table = TableOf(phrases);
    std::sort(phrases.rbegin(), phrases.rend());
    for (int i = 0; i <= n; ++i) {
      for (const char* tail : {"a", "m", "z"}) {
        const std::string text = std::string(1, static_cast<char>('!' + i)) + tail;
        size_t at = 0;
        while (at < phrases.size() && phrases[at] > text) ++at;
        const bool found = at < phrases.size() && phrases[at] == text;
        const int64_t position = static_cast<int64_t>(at) + 1;
        const PhraseTable::Lookup lookup = table.FindPhrase(text);
        ASSERT_EQ(lookup.Found, found) << n << text;
        ASSERT_EQ(lookup.Position, found ? position : -position) << n << text;
      }
    }
  }
}

TEST(FindPhrase, HalvesItsWayThroughTheTable) {
  PhraseTable table = TableOf({});
  for (int i = 0; i < 1000; ++i) table.AddWordToList(std::to_string(1000 + i));
  table.FindPhrase("1500");
  EXPECT_EQ(table.MaxSearchDepth(), 1) << "the middle is looked at first";
  for (int i = 0; i < 1000; ++i) table.FindPhrase(std::to_string(1000 + i));
  EXPECT_GE(table.MaxSearchDepth(), 9);
  EXPECT_LE(table.MaxSearchDepth(), 12);
}

TEST(FindPhrase, SeesPhrasesAddedSinceTheLastCall) {
  PhraseTable table = TableOf({"b"});
  EXPECT_FALSE(table.FindPhrase("a").Found);
  table.AddWordToList("a");
  EXPECT_TRUE(table.FindPhrase("a").Found);
}

TEST(SortPhrases, OrdersByKeyAndEqualKeysByText) {
  PhraseTable table = CountedTable(
      {{"cote a", 1}, {"b", 1}, {"côte a", 1}, {"Cote a", 1}, {"d", 1}, {"côté", 1}, {"b b", 1}});
  EXPECT_THAT(Texts(table), ElementsAre("b", "b b", "côté", "Cote a", "cote a", "côte a", "d"));
}

TEST(SortPhrases, LetsTheWholeKeyDecideBeforeTheTextOfAnyWord) {
  PhraseTable table = CountedTable({{"côte a", 1}, {"cote b", 1}, {"Cote c", 1}, {"Côte b", 1}});
  EXPECT_THAT(Texts(table), ElementsAre("côte a", "Côte b", "cote b", "Cote c"));
}

TEST(SortPhrases, CopesWithAnEmptyTable) {
  PhraseTable table = CountedTable({});
  EXPECT_EQ(table.EntryCount(), 0u);
}

TEST(ListByFrequency, ListsPhrasesFromTheMinimumOn) {
  PhraseTable table = CountedTable({{"a", 1}, {"b", 2}, {"c", 3}});
  ListByFrequency(table, 2);
  EXPECT_THAT(Listed(table), ElementsAre("b", "c"));
  ListByFrequency(table, 1);
  EXPECT_THAT(Listed(table), ElementsAre("a", "b", "c"));
}

TEST(ExcludeRedundantSubphrases, DropsWhatALongerPhraseOfTheSameCountContains) {
  struct Case {
    std::vector<Counted> Phrases;
    std::vector<std::string> Listed;
  };
  const Case cases[] = {
      {{{"of the", 5}, {"of the year", 5}}, {"of the year"}},
      {{{"of the", 6}, {"of the year", 5}}, {"of the", "of the year"}},
      // Any run of characters will do, not only whole words.
      {{{"he sat", 2}, {"the sat mat", 2}}, {"the sat mat"}},
      {{{"the sat", 2}, {"lathe satin mat", 2}}, {"lathe satin mat"}},
      {{{"he sat", 2}, {"the  sat", 2}}, {"he sat", "the  sat"}},
      {{{"a b", 2}, {"a b c", 2}, {"a b c d", 2}, {"b c", 2}}, {"a b c d"}},
      {{{"The cat sat", 2}, {"the cat", 2}}, {"The cat sat", "the cat"}},
      {{{"ab cd", 2}, {"cd ab", 2}}, {"ab cd", "cd ab"}},
      {{{"é t", 1}, {"té te", 1}}, {"té te"}},
      {{{"e t", 1}, {"té te", 1}}, {"e t", "té te"}},
      // Two words, at either end or both, by every affix.
      {{{"s a", 2}, {"cats a", 2}}, {"cats a"}},
      {{{"cats a", 2}, {"cats an", 2}}, {"cats an"}},
      {{{"s a", 2}, {"ts an", 2}, {"ats and", 2}, {"cats andy", 2}}, {"cats andy"}},
      {{{"s a", 2}, {"my cats andy ate", 2}}, {"my cats andy ate"}},
      {{{"s a", 2}, {"my cats andy ate", 3}}, {"s a", "my cats andy ate"}},
      {{{"s a", 2}, {"a s", 2}, {"s s", 2}}, {"s a", "a s", "s s"}},
      {{{"a a", 2}, {"a a a", 2}, {"aa aa", 2}}, {"a a a", "aa aa"}},
      // Three, whose middle one stays.
      {{{"s a n", 2}, {"cats a nut", 2}, {"cats an nut", 2}}, {"cats a nut", "cats an nut"}},
  };
  for (const Case& c : cases) {
    PhraseTable table = CountedTable(c.Phrases);
    NoYielder yielder;
    ASSERT_TRUE(ExcludeRedundantSubphrases(table, yielder));
    EXPECT_THAT(Listed(table), testing::UnorderedElementsAreArray(c.Listed));
  }
}

TEST(ExcludeRedundantSubphrases, DoesNotLookAtUnlistedPhrases) {
  PhraseTable table = CountedTable({{"of the", 1}, {"of the year", 1}});
  table.SetListed(IndexOf(table, "of the year"), false);
  NoYielder yielder;
  ASSERT_TRUE(ExcludeRedundantSubphrases(table, yielder));
  EXPECT_THAT(Listed(table), ElementsAre("of the"));
}

/// Phrases of words that hold one another, so many that threads share the work.
std::vector<Counted> PhrasesOfNestedWords() {
  const char* const words[] = {"a",  "an",  "and", "andy", "s",  "es",  "ces",  "e",    "he",
                               "th", "the", "t",   "at",   "ca", "cat", "cats", "sand", "b"};
  std::mt19937 random(5);
  std::map<std::string, int> counts;
  while (counts.size() < 5000) {
    std::string phrase;
    for (size_t left = 2 + random() % 3; left > 0; --left) {
      phrase += words[random() % std::size(words)];
      if (left > 1) phrase += ' ';
    }
    counts.emplace(phrase, 1 + static_cast<int>(random() % 30));
  }
  std::vector<Counted> phrases;
  for (const auto& [phrase, count] : counts) phrases.push_back({phrase, count});
  return phrases;
}

TEST(ExcludeRedundantSubphrases, FindsOnThreadsWhatALookAtEveryOtherPhraseFinds) {
  const std::vector<Counted> phrases = PhrasesOfNestedWords();
  std::vector<std::string> expected;
  for (const Counted& phrase : phrases)
    if (std::none_of(phrases.begin(), phrases.end(), [&](const Counted& other) {
          return other.second == phrase.second && other.first.size() > phrase.first.size() &&
                 other.first.find(phrase.first) != std::string::npos;
        }))
      expected.push_back(phrase.first);
  ASSERT_LT(expected.size(), phrases.size() * 9 / 10);
  PhraseTable table = CountedTable(phrases);
  NoYielder yielder;
  ASSERT_TRUE(ExcludeRedundantSubphrases(table, yielder));
  std::vector<std::string> listed = Listed(table);
  std::ranges::sort(listed);
  std::ranges::sort(expected);
  EXPECT_EQ(listed, expected);
}

TEST(ExcludeRedundantSubphrases, CopesWithAnEmptyTable) {
  PhraseTable table = CountedTable({});
  NoYielder yielder;
  EXPECT_TRUE(ExcludeRedundantSubphrases(table, yielder));
}

TEST(SetUpFrequencyChain, GoesByCountThenByIndex) {
  PhraseTable table = CountedTable({{"a", 5}, {"b", 9}, {"c", 5}});
  NoYielder yielder;
  ASSERT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByCount, yielder));
  EXPECT_THAT(Chain(table), ElementsAre(2, 1, 3));
  EXPECT_EQ(table.ChainPosition(PhraseIndex{1}), PhraseRank{2});
  EXPECT_EQ(table.ChainPosition(PhraseIndex{2}), PhraseRank{1});
  EXPECT_EQ(table.ChainPosition(PhraseIndex{3}), PhraseRank{3});
}

TEST(SetUpFrequencyChain, OfOneEntryIsThatEntry) {
  PhraseTable table = CountedTable({{"a", 1}});
  NoYielder yielder;
  ASSERT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByCount, yielder));
  EXPECT_THAT(Chain(table), ElementsAre(1));
}

TEST(SetUpFrequencyChain, LeavesOutUnlistedEntries) {
  PhraseTable table = CountedTable({{"a", 5}, {"b", 9}, {"c", 5}});
  table.SetListed(PhraseIndex{2}, false);
  NoYielder yielder;
  ASSERT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByCount, yielder));
  EXPECT_THAT(Chain(table), ElementsAre(1, 3));
  EXPECT_EQ(table.ChainPosition(PhraseIndex{2}), kNoRank);
  EXPECT_EQ(table.ChainNext(PhraseIndex{2}), kNoPhrase);
  for (const PhraseIndex i : {PhraseIndex{1}, PhraseIndex{3}}) table.SetListed(i, false);
  ASSERT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByCount, yielder));
  EXPECT_THAT(Chain(table), IsEmpty());
}

TEST(SetUpFrequencyChain, GoesByFilesThenCountThenIndexWhenAsked) {
  PhraseTable table = TableOf({});
  table.BeginFile("one.txt");
  for (const char* phrase : {"a", "b", "b", "b", "b", "c", "d", "d"}) table.AddWordToList(phrase);
  table.BeginFile("two.txt");
  for (const char* phrase : {"a", "c", "d"}) table.AddWordToList(phrase);
  NoYielder yielder;
  ASSERT_TRUE(SortPhrases(table, yielder));
  ASSERT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByFiles, yielder));
  EXPECT_THAT(Chain(table), ElementsAre(4, 1, 3, 2));
}

// ---- The same limits where a whole text is counted.

/// Counts a text of one phrase length; `steps` are words, "/" begins a file.
PhraseTable CountText(const std::vector<std::string>& steps, int words, TextSource source) {
  WordRules rules;
  rules.IgnoreShortWords = false;
  rules.IgnoreRepetitions = false;
  rules.LongWordSize = 80;
  RunOptions options;
  options.MinWords = options.MaxWords = words;
  options.MinFrequency = 1;
  options.SourceKind = source;
  const WordFilters none;
  CorpusBuilder stream(rules, options, none);
  int file = 0;
  stream.BeginSource("0");
  for (const std::string& step : steps) {
    if (step == "/") {
      stream.BeginSource(std::to_string(++file));
    } else {
      stream.TakeWord(step);
    }
  }
  PhraseTable table;
  TakeText(std::move(stream), table);
  NoYielder yielder;
  EXPECT_TRUE(CountPhrases(table, yielder));
  EXPECT_TRUE(SortPhrases(table, yielder));
  return table;
}

TEST(CountPhrases, CountsPhrasesOf100CharactersAndNoneOf101) {
  for (const char* letter : {"x", "é"}) {
    std::string w49, w50;
    for (int i = 0; i < 49; ++i) w49 += letter;
    w50 = w49 + letter;
    PhraseTable table = CountText({w49, w50, w50, w49}, 2, TextSource::SingleFile);
    EXPECT_EQ(table.PhraseCount(), 2u) << letter;
    EXPECT_EQ(table.Occurrences(), 2u) << letter;
    EXPECT_THAT(Texts(table), testing::UnorderedElementsAre(w49 + " " + w50, w50 + " " + w49));
    EXPECT_EQ(table.Characters(PhraseIndex{1}), 100);
  }
}

TEST(CountPhrases, StopsCountingInOneFileAt99999) {
  std::vector<std::string> steps(100001, "a");
  steps.insert(steps.end(), {"/", "a", "a"});
  PhraseTable table = CountText(steps, 2, TextSource::Folder);
  ASSERT_EQ(table.EntryCount(), 1u);
  EXPECT_EQ(table.Count(PhraseIndex{1}), 100001u);
  EXPECT_EQ(table.Files(PhraseIndex{1}).FileNumbers(), "0000100002");
  EXPECT_EQ(table.Files(PhraseIndex{1}).FileCounts(), "9999900001");
}

TEST(CountPhrases, RecordsNothingMoreFromThe10000thFileOn) {
  std::vector<std::string> steps;
  for (int i = 0; i < 10001; ++i) steps.insert(steps.end(), {"a", "a", "a", "/"});
  PhraseTable table = CountText(steps, 2, TextSource::Folder);
  ASSERT_EQ(table.EntryCount(), 1u);
  EXPECT_EQ(table.Count(PhraseIndex{1}), 20002u);
  EXPECT_EQ(table.FileCount(PhraseIndex{1}), 10000u);
  EXPECT_EQ(table.FilePaths().size(), 10001u);
  const DocumentCounts files = table.Files(PhraseIndex{1});
  EXPECT_EQ(files.FileNumbers().substr(49990), "0999910000");
  EXPECT_EQ(files.FileCounts().substr(49990), "0000200001") << "the list is full before the second one";
}

TEST(CountPhrases, PutsVeryFrequentPhrasesIntoTheChainAsAnyOther) {
  std::vector<std::string> steps;
  for (const auto& [word, times] :
       {Counted{"a", 70001}, {"b", 80001}, {"c", 70001}, {"d", 6}, {"e", 65537}}) {
    steps.insert(steps.end(), static_cast<size_t>(times), word);
    steps.push_back("/");
  }
  PhraseTable table = CountText(steps, 2, TextSource::SingleFile);
  NoYielder yielder;
  ASSERT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByCount, yielder));
  EXPECT_THAT(Texts(table), ElementsAre("a a", "b b", "c c", "d d", "e e"));
  EXPECT_THAT(Chain(table), ElementsAre(2, 1, 3, 5, 4));
}

TEST(CountPhrases, NumbersOnlyFilesThatYieldAPhrase) {
  PhraseTable table = CountText({"a", "b", "/", "a", "/", "/", "b", "a", "b"}, 2, TextSource::Folder);
  EXPECT_THAT(table.FilePaths(), ElementsAre("0", "3"));
  EXPECT_THAT(Texts(table), ElementsAre("a b", "b a"));
  EXPECT_EQ(table.Files(PhraseIndex{1}).FileNumbers(), "0000100002");
  EXPECT_EQ(table.Files(PhraseIndex{2}).FileNumbers(), "00002");
}

TEST(CountPhrases, CopesWithNoTextAndWithTooFewWords) {
  for (const std::vector<std::string>& steps : {std::vector<std::string>{}, {"a"}, {"a", "/", "b"}}) {
    PhraseTable table = CountText(steps, 2, TextSource::Folder);
    EXPECT_EQ(table.PhraseCount(), 0u);
    EXPECT_EQ(table.EntryCount(), 0u);
    EXPECT_THAT(table.FilePaths(), IsEmpty());
  }
}

}  // namespace
}  // namespace korv
