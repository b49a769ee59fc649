#include "tests/reference/naive_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace korv::reference {
namespace {

std::vector<std::string> Texts(const Table& table) {
  std::vector<std::string> texts;
  for (int32_t i = 1; i <= table.PhraseCount; ++i) texts.push_back(table[i].Text);
  return texts;
}

Table TableOf(const std::vector<std::string>& phrases, TextSource source = TextSource::SingleFile) {
  Table table(source);
  for (const std::string& phrase : phrases) table.AddWordToList(phrase);
  return table;
}

TEST(NaiveAddWordToList, CreatesTheFirstEntryWithoutALookup) {
  Table table = TableOf({"the cat"});
  EXPECT_EQ(table.PhraseCount, 1);
  EXPECT_EQ(table[1].Text, "the cat");
  EXPECT_EQ(table[1].Key, "the cat");
  EXPECT_EQ(table[1].Count, 1);
  EXPECT_TRUE(table[1].Listed);
  EXPECT_EQ(table.MaxSearchDepth, 0);
}

TEST(NaiveAddWordToList, KeepsEntriesInDescendingOrderOfText) {
  Table table = TableOf({"b c", "a b", "c d", "b b", "b c", "é a", "Z z"});
  EXPECT_THAT(Texts(table), testing::ElementsAre("é a", "c d", "b c", "b b", "a b", "Z z"));
  EXPECT_EQ(table[3].Count, 2);
  EXPECT_EQ(table.Occurrences, 7);
}

TEST(NaiveAddWordToList, TellsLettersOfDifferentCaseApart) {
  Table table = TableOf({"the cat", "The cat", "the Cat", "the cat"});
  EXPECT_THAT(Texts(table), testing::ElementsAre("the cat", "the Cat", "The cat"));
  EXPECT_EQ(table[1].Count, 2);
}

TEST(NaiveAddWordToList, CountsAPhraseOf100CharactersAndNotOneOf101) {
  // Characters, not bytes: each e-acute takes two of the latter.
  std::string hundred = "a";
  for (int i = 0; i < 98; ++i) hundred += i == 50 ? " " : "é";
  hundred += "b";
  Table table(TextSource::Folder);
  table.SetPath("a.txt");
  table.AddWordToList(hundred + "c");
  EXPECT_EQ(table.PhraseCount, 0);
  EXPECT_EQ(table.Occurrences, 0);
  EXPECT_EQ(table.CurrentFileNumber, 0);
  table.AddWordToList(hundred);
  EXPECT_EQ(table.PhraseCount, 1);
  EXPECT_EQ(table.Occurrences, 1);
  EXPECT_EQ(table.CurrentFileNumber, 1);
}

TEST(NaiveAddWordToList, HasNoLimitOfLengthNorFilesForAWordList) {
  Table table(TextSource::Folder, Table::Use::WordList);
  table.SetPath("a.txt");
  table.AddWordToList(std::string(101, 'a'));
  table.AddWordToList(std::string(101, 'a'));
  EXPECT_EQ(table.PhraseCount, 1);
  EXPECT_EQ(table[1].Count, 2);
  EXPECT_EQ(table[1].FileNumbers, "");
  EXPECT_EQ(table.CurrentFileNumber, 0);
}

TEST(NaiveAddWordToList, GrowsBy500EntriesAnd100Paths) {
  Table table(TextSource::Folder);
  for (int i = 0; i < 501; ++i) {
    EXPECT_EQ(table.UpperBound(), 500) << i;
    table.SetPath(std::to_string(i));
    table.AddWordToList("w" + std::to_string(i));
  }
  EXPECT_EQ(table.UpperBound(), 1000);
  EXPECT_EQ(table.PhraseCount, 501);
  EXPECT_EQ(table.FilePaths.size(), 1u + 600u);
  EXPECT_EQ(table.FilePaths[501], "500");
  EXPECT_EQ(table.CurrentFileNumber, 501);
}

TEST(NaiveAddWordToList, NumbersOnlyFilesThatYieldAPhrase) {
  Table table(TextSource::Folder);
  table.SetPath("one.txt");
  table.AddWordToList("a b");
  table.AddWordToList("a b");
  table.SetPath("nothing.txt");
  table.SetPath("two.txt");
  table.AddWordToList("a b");
  table.AddWordToList("c d");
  EXPECT_EQ(table.CurrentFileNumber, 2);
  EXPECT_EQ(table.FilePaths[1], "one.txt");
  EXPECT_EQ(table.FilePaths[2], "two.txt");
  EXPECT_EQ(table[2].Text, "a b");
  EXPECT_EQ(table[2].FileNumbers, "0000100002");
  EXPECT_EQ(table[2].FileCounts, "0000200001");
  EXPECT_EQ(table[2].FileCount, 2);
  EXPECT_EQ(table[1].FileNumbers, "00002");
}

TEST(NaiveAddWordToList, StopsCountingInOneFileAt99999) {
  Table table(TextSource::Folder);
  table.SetPath("a.txt");
  for (int i = 0; i < 100000; ++i) table.AddWordToList("a b");
  EXPECT_EQ(table[1].Count, 100000);
  EXPECT_EQ(table[1].FileCounts, "99999");
  table.SetPath("b.txt");
  table.AddWordToList("a b");
  EXPECT_EQ(table[1].FileCounts, "9999900001");
}

TEST(NaiveAddWordToList, RecordsNothingMoreFromThe10000thFileOn) {
  Table table(TextSource::Folder);
  for (int i = 1; i <= 10001; ++i) {
    table.SetPath(std::to_string(i));
    table.AddWordToList("a b");
    table.AddWordToList("a b");
  }
  EXPECT_EQ(table[1].Count, 20002);
  EXPECT_EQ(table[1].FileCount, 10000);
  EXPECT_EQ(table[1].FileNumbers.size(), 50000u);
  EXPECT_EQ(table[1].FileNumbers.substr(49990), "0999910000");
  EXPECT_EQ(table[1].FileCounts.substr(49990), "0000200001") << "the list is full before the second one";
}

TEST(NaiveTable, KeepsItsSizeWhenEmptied) {
  Table table;
  for (int i = 0; i < 600; ++i) table.AddWordToList(std::to_string(i));
  EXPECT_GT(table.MaxSearchDepth, 0);
  table.Empty();
  EXPECT_EQ(table.PhraseCount, 0);
  EXPECT_EQ(table.UpperBound(), 1000);
  EXPECT_EQ(table.MaxSearchDepth, 0);
  EXPECT_EQ(table.CurrentFileNumber, 0);
  table.AddWordToList("new");
  EXPECT_THAT(Texts(table), testing::ElementsAre("new"));
}

TEST(NaiveFindPhrase, TellsWhereATextIsOrBelongs) {
  struct Case {
    std::vector<std::string> Phrases;
    std::string Text;
    bool Found;
    int32_t Position;
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
  };
  for (const Case& c : cases) {
    Table table = TableOf(c.Phrases);
    Lookup lookup = table.FindPhrase(c.Text);
    EXPECT_EQ(lookup.Found, c.Found) << c.Text << " in " << testing::PrintToString(c.Phrases);
    EXPECT_EQ(lookup.Position, c.Position) << c.Text << " in " << testing::PrintToString(c.Phrases);
  }
}

TEST(NaiveFindPhrase, AgreesWithALinearSearchInTablesOfEverySize) {
  for (int n = 0; n <= 70; ++n) {
    std::vector<std::string> phrases;
    for (int i = 0; i < n; ++i) phrases.push_back(std::string(1, static_cast<char>('!' + i)) + "m");
    std::shuffle(phrases.begin(), phrases.end(), std::mt19937(static_cast<unsigned>(n)));
    Table table = TableOf(phrases);
    for (int i = 0; i <= n; ++i) {
      for (const char* tail : {"a", "m", "z"}) {
        std::string text = std::string(1, static_cast<char>('!' + i)) + tail;
        int32_t at = 1;
        while (at <= n && table[at].Text > text) ++at;
        bool found = at <= n && table[at].Text == text;
        Lookup lookup = table.FindPhrase(text);
        ASSERT_EQ(lookup.Found, found) << n << text;
        ASSERT_EQ(lookup.Position, found ? at : -at) << n << text;
      }
    }
  }
}

TEST(NaiveFindPhrase, KeepsTheLargestNumberOfHalvingSteps) {
  Table table;
  for (int i = 0; i < 1000; ++i) table.AddWordToList(std::to_string(1000 + i));
  EXPECT_EQ(table.MaxSearchDepth, 0) << "every text was greater than the ones before";
  table.FindPhrase("1500");
  EXPECT_EQ(table.MaxSearchDepth, 1) << "the middle is looked at first";
  for (int i = 0; i < 1000; ++i) table.FindPhrase(std::to_string(1000 + i));
  EXPECT_GE(table.MaxSearchDepth, 9);
  EXPECT_LE(table.MaxSearchDepth, 12);
}

}  // namespace
}  // namespace korv::reference
