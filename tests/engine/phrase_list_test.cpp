#include "engine/analysis/phrase_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/analysis/phrase_query.h"
#include "engine/counting/count_phrases.h"

namespace korv {
namespace {

/// A list of as many phrases of two words, "w0 x", "w1 x" ... in alphabetical order; each occurs once.
const PhraseTable& LargeTable() {
  static const PhraseTable table = [] {
    PhraseTable filled;
    for (int i = 0; i < 300'000; ++i) filled.AddWordToList("w" + std::to_string(i) + " x");
    NoYielder yielder;
    SortPhrases(filled, yielder);
    ListByFrequency(filled, 1);
    return filled;
  }();
  return table;
}

uint64_t All(std::span<const PhraseIndex>, uint64_t candidates) {
  return candidates;
}

struct Sweep {
  std::vector<uint32_t> Searched;
  std::vector<uint32_t> Rows;
};

Sweep FirstAnswers(const RowTest& test) {
  NoYielder yielder;
  Sweep told;
  const SharedOrder order = OrderByPhrase(LargeTable(), SortDirection::Ascending, yielder);
  const auto list =
      FilterRows(LargeTable(), order, test, yielder, [&](const PhraseList& rows, uint32_t searched) {
        told.Searched.push_back(searched);
        told.Rows.push_back(rows.Rows());
      });
  told.Rows.push_back(list->Rows());
  return told;
}

TEST(PhraseList, ToldTheFirstRowsBeforeAllAreLookedAt) {
  const Sweep told = FirstAnswers(All);
  EXPECT_EQ(told.Searched, (std::vector<uint32_t>{65'536, 262'144}));
  EXPECT_EQ(told.Rows, (std::vector<uint32_t>{65'536, 262'144, 300'000}));
}

TEST(PhraseList, LooksOnlyAtRowsOfTheListWithin) {
  NoYielder yielder;
  const SharedOrder order = OrderByPhrase(LargeTable(), SortDirection::Ascending, yielder);
  const auto few = FilterRows(
      LargeTable(), order,
      [](std::span<const PhraseIndex>, uint64_t candidates) { return candidates & 0x10; }, yielder);
  std::atomic<uint64_t> others{0};
  const auto within = FilterRows(
      LargeTable(), order,
      [&](std::span<const PhraseIndex>, uint64_t candidates) {
        others |= candidates & ~uint64_t{0x10};
        return candidates;
      },
      yielder, {}, &*few);
  EXPECT_EQ(others.load(), 0u);
  EXPECT_EQ(within->Rows(), few->Rows());
}

TEST(PhraseList, NothingWhenStopped) {
  NoYielder yielder;
  const SharedOrder order = OrderByPhrase(LargeTable(), SortDirection::Ascending, yielder);
  const auto list = FilterRows(LargeTable(), order, All, yielder);
  yielder.RequestStop();
  EXPECT_FALSE(FilterRows(LargeTable(), order, All, yielder));
  EXPECT_FALSE(InOrder(LargeTable(), *list, order, yielder));
  EXPECT_EQ(OrderByPhrase(LargeTable(), SortDirection::Ascending, yielder), nullptr);
  EXPECT_EQ(OrderByCount(LargeTable(), SortDirection::Descending, yielder), nullptr);
  const std::vector<double> keys(size_t{LargeTable().EntryCount()} + 1, 1.0);
  EXPECT_EQ(OrderByKeys(LargeTable(), keys, SortDirection::Ascending, yielder), nullptr);
  EXPECT_EQ(Reversed(*order, yielder), nullptr);
  EXPECT_TRUE(RanksByCount(LargeTable(), yielder).empty());
}

TEST(PhraseList, EmptyTablesHaveNoRows) {
  NoYielder yielder;
  const PhraseTable table;
  const SharedOrder order = OrderByCount(table, SortDirection::Descending, yielder);
  EXPECT_EQ(FilterRows(table, order, All, yielder)->Rows(), 0u);
  EXPECT_EQ(AllRows(table, Reversed(*order, yielder)).Rows(), 0u);
  EXPECT_EQ(PhraseList().Rows(), 0u);
  EXPECT_EQ(PhraseList().RowOf(PhraseIndex{1}), std::nullopt);
}

std::string FaultOf(const std::string& expression) {
  NoYielder yielder;
  const auto matcher =
      PhraseMatcher::Compile({.Text = expression, .Mode = MatchMode::Expression}, LargeTable(), yielder);
  return matcher ? "" : matcher.Error();
}

TEST(PhraseQuery, SaysWhatIsWrongWithAnExpressionAndWhere) {
  EXPECT_EQ(FaultOf("w[0-9]+"), "");
  EXPECT_EQ(FaultOf("é(ab"), "missing closing parenthesis, at character 5");
  EXPECT_EQ(FaultOf("-*a"), "quantifier does not follow a repeatable item, at character 1");
  EXPECT_EQ(FaultOf(std::string(70'000, 'a')), "it is longer than 65536 bytes");
}

TEST(PhraseQuery, AnExpressionThatWouldRunForEverMatchesNothing) {
  PhraseTable table;
  table.AddWordToList(std::string(60, 'a') + " b");
  NoYielder yielder;
  const auto matcher =
      PhraseMatcher::Compile({.Text = "^(a+)+c?$", .Mode = MatchMode::Expression}, table, yielder);
  EXPECT_FALSE(matcher->Passes(PhraseIndex{1}));
}

TEST(PhraseQuery, TypographicSignsAreThoseOfTheRun) {
  PhraseTable table;
  table.AddWordToList("it's a well-known cat");
  NoYielder yielder;
  const auto passes = [&](const char* text) {
    return PhraseMatcher::Compile({.Text = text}, table, yielder)->Passes(PhraseIndex{1});
  };
  EXPECT_TRUE(passes("it’s"));
  EXPECT_TRUE(passes("well‐known"));
  EXPECT_FALSE(passes("its"));
}

}  // namespace
}  // namespace korv
