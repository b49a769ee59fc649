#include "tests/reference/naive_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace korv::reference {
namespace {

using Counted = std::pair<std::string, int>;

/// A table with the entries in the given order, whatever their order by text.
Table TableOf(const std::vector<Counted>& entries) {
  Table table;
  for (const Counted& counted : entries) {
    Table one;
    for (int i = 0; i < counted.second; ++i) one.AddWordToList(counted.first);
    table[++table.PhraseCount] = one[1];
  }
  return table;
}

std::vector<std::string> Texts(const Table& table) {
  std::vector<std::string> texts;
  for (int32_t i = 1; i <= table.PhraseCount; ++i) texts.push_back(table[i].Text);
  return texts;
}

std::vector<std::string> Listed(const Table& table) {
  std::vector<std::string> texts;
  for (int32_t i = 1; i <= table.PhraseCount; ++i) {
    if (table[i].Listed) texts.push_back(table[i].Text);
  }
  return texts;
}

std::vector<int32_t> Chain(const Table& table) {
  std::vector<int32_t> chain;
  for (int32_t i = table.ChainHead; i != 0; i = table[i].ChainNext) chain.push_back(i);
  return chain;
}

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NaiveSortPhrases, OrdersByKeyAndEqualKeysByText) {
  // "côte" and "Cote" have the key of "cote".
  std::vector<Counted> entries{{"cote a", 1}, {"b", 1}, {"côte a", 1}, {"Cote a", 1}, {"d", 1}, {"côté", 1}};
  std::mt19937 random(1);
  for (int i = 0; i < 50; ++i) {
    std::shuffle(entries.begin(), entries.end(), random);
    Table table = TableOf(entries);
    SortPhrases(table, 1, table.PhraseCount, 1, Direction::Descending);
    EXPECT_THAT(Texts(table), ElementsAre("d", "côte a", "cote a", "Cote a", "côté", "b"));
    SortPhrases(table, 1, table.PhraseCount, 1, Direction::Ascending);
    EXPECT_THAT(Texts(table), ElementsAre("b", "côté", "Cote a", "cote a", "côte a", "d"));
  }
}

TEST(NaiveSortPhrases, ComparesFromTheGivenCharacterOn) {
  Table table = TableOf({{"aéb", 1}, {"bëc", 1}, {"cña", 1}});
  SortPhrases(table, 1, 3, 3);
  EXPECT_THAT(Texts(table), ElementsAre("bëc", "aéb", "cña"));
}

TEST(NaiveSortPhrases, MovesWholeEntriesAndOnlyThoseOfItsRange) {
  Table table = TableOf({{"a", 1}, {"b", 2}, {"c", 3}, {"d", 4}});
  SortPhrases(table, 2, 3, 1);
  EXPECT_THAT(Texts(table), ElementsAre("a", "c", "b", "d"));
  EXPECT_EQ(table[2].Count, 3);
  EXPECT_EQ(table[3].Count, 2);
}

TEST(NaiveExclusion, DropsWhatALongerPhraseOfTheSameCountContains) {
  struct Case {
    std::vector<Counted> Entries;
    std::vector<std::string> Listed;
  };
  const Case cases[] = {
      {{{"of the year", 5}, {"of the", 5}}, {"of the year"}},
      {{{"of the year", 5}, {"of the", 6}}, {"of the year", "of the"}},
      // Any run of characters will do, not only whole words.
      {{{"the sat mat", 2}, {"he sat", 2}}, {"the sat mat"}},
      {{{"a b c d", 2}, {"a b c", 2}, {"a b", 2}, {"b c", 2}}, {"a b c d"}},
      {{{"The cat sat", 2}, {"the cat", 2}}, {"The cat sat", "the cat"}},
      {{{"ab cd", 2}, {"cd ab", 2}}, {"ab cd", "cd ab"}},
  };
  for (const Case& c : cases) {
    Table table = TableOf(c.Entries);
    ExcludeRedundantSubphrases(table);
    EXPECT_THAT(Listed(table), testing::ElementsAreArray(c.Listed));
    // The order of the entries makes no difference.
    std::vector<Counted> reversed(c.Entries.rbegin(), c.Entries.rend());
    table = TableOf(reversed);
    ExcludeRedundantSubphrases(table);
    EXPECT_THAT(Listed(table), testing::UnorderedElementsAreArray(c.Listed));
  }
}

TEST(NaiveExclusion, DoesNotLookAtUnlistedEntries) {
  Table table = TableOf({{"of the year", 1}, {"of the", 1}});
  table[1].Listed = false;
  ExcludeRedundantSubphrases(table);
  EXPECT_THAT(Listed(table), ElementsAre("of the"));
}

TEST(NaiveExclusion, LeavesAnEmptyTableAlone) {
  Table table;
  ExcludeRedundantSubphrases(table);
  EXPECT_EQ(table.PhraseCount, 0);
}

TEST(NaiveChain, GoesByCountThenByIndex) {
  Table table = TableOf({{"a", 5}, {"b", 9}, {"c", 5}});
  SetUpFrequencyChain(table);
  EXPECT_THAT(Chain(table), ElementsAre(2, 1, 3));
  EXPECT_EQ(table[2].ChainPosition, 1);
  EXPECT_EQ(table[1].ChainPosition, 2);
  EXPECT_EQ(table[3].ChainPosition, 3);
  EXPECT_EQ(table[3].ChainNext, 0);
}

TEST(NaiveChain, LeavesOutUnlistedEntries) {
  Table table = TableOf({{"a", 5}, {"b", 9}, {"c", 5}});
  table[2].Listed = false;
  SetUpFrequencyChain(table);
  EXPECT_THAT(Chain(table), ElementsAre(1, 3));
  EXPECT_EQ(table[2].ChainPosition, 0);
  EXPECT_EQ(table[2].ChainNext, 0);
}

TEST(NaiveChain, OfOneEntryIsThatEntry) {
  Table table = TableOf({{"a", 1}});
  SetUpFrequencyChain(table);
  EXPECT_THAT(Chain(table), ElementsAre(1));
  EXPECT_EQ(table[1].ChainPosition, 1);
}

TEST(NaiveChain, IsEmptyWhenNothingIsListed) {
  Table table = TableOf({{"a", 1}});
  SetUpFrequencyChain(table);
  table[1].Listed = false;
  SetUpFrequencyChain(table);
  EXPECT_THAT(Chain(table), IsEmpty());
  EXPECT_EQ(table.ChainHead, 0);
  EXPECT_EQ(table[1].ChainPosition, 0);
}

TEST(NaiveChain, GoesByFilesThenCountThenIndexWhenAsked) {
  Table table = TableOf({{"a", 5}, {"b", 9}, {"c", 5}, {"d", 6}});
  table[1].FileCount = table[3].FileCount = table[4].FileCount = 2;
  SetUpFrequencyChain(table, ChainBy::Files);
  EXPECT_THAT(Chain(table), ElementsAre(4, 1, 3, 2));
}

}  // namespace
}  // namespace korv::reference
