// The rows of the table: what stands in them, how they are ordered, and which one is current.

#include "tests/desktop/table_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TableRows : public TableTest {
 protected:
  void ShowSea() { Show(RunOf({{"red sea", 3}, {"old ship", 5}, {"big wave", 3}, {"cold sea", 1}})); }
};

TEST_F(TableRows, AreThoseOfAllPhrasesMostFrequentFirst) {
  ShowSea();
  EXPECT_THAT(Phrases(), ElementsAre("old ship", "big wave", "red sea", "cold sea"));
  EXPECT_THAT(Column("Rank"), ElementsAre("1", "2", "3", "4"));
  EXPECT_THAT(Column("Freq"), ElementsAre("5", "3", "3", "1"));
  EXPECT_THAT(Column("Words"), ElementsAre("2", "2", "2", "2"));
}

TEST_F(TableRows, ShowNumbersInTheMannerOfTheLocale) {
  numbers = {.DecimalPoint = ",", .GroupSeparator = ".", .Grouping = "\3"};
  Show(RunOf({{"old ship", 1234}, {"red sea", 2}}));
  EXPECT_THAT(Column("Freq"), ElementsAre("1.234", "2"));
  EXPECT_THAT(Column("Per million"), ElementsAre("499.191", "809"));
  EXPECT_THAT(Column("Percent"), ElementsAre("49,9191%", "0,0809%"));
}

TEST_F(TableRows, AlignNumbersRightAndTextsLeft) {
  ShowSea();
  const auto alignment = [&](const char* heading) {
    return Model().index(0, Section(heading)).data(Qt::TextAlignmentRole).toInt();
  };
  EXPECT_EQ(alignment("Freq"), static_cast<int>(Qt::AlignRight | Qt::AlignVCenter));
  EXPECT_EQ(alignment("Phrase"), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter));
}

TEST_F(TableRows, TellHowManyThereAre) {
  ShowSea();
  EXPECT_EQ(TextOf("lblPhraseCount"), "4 phrases, 12 occurrences");
  Show(RunOf({{"old ship", 1}}));
  EXPECT_EQ(TextOf("lblPhraseCount"), "1 phrase, 1 occurrence");
}

TEST_F(TableRows, AreOrderedByAClickOnAHeading) {
  ShowSea();
  ClickHeading("Phrase");
  EXPECT_THAT(Phrases(), ElementsAre("big wave", "cold sea", "old ship", "red sea"));
  ClickHeading("Phrase");
  EXPECT_THAT(Phrases(), ElementsAre("red sea", "old ship", "cold sea", "big wave"));
}

TEST_F(TableRows, BeginWithTheGreatestNumber) {
  ShowSea();
  ClickHeading("Freq");
  EXPECT_THAT(Column("Freq"), ElementsAre("5", "3", "3", "1"));
  ClickHeading("Freq");
  EXPECT_THAT(Column("Freq"), ElementsAre("1", "3", "3", "5"));
}

TEST_F(TableRows, OfEqualValuesStandInAlphabeticalOrderWhateverTheDirection) {
  ShowSea();
  ClickHeading("Freq");
  EXPECT_THAT(Phrases(), ElementsAre("old ship", "big wave", "red sea", "cold sea"));
  ClickHeading("Freq");
  EXPECT_THAT(Phrases(), ElementsAre("cold sea", "big wave", "red sea", "old ship"));
}

TEST_F(TableRows, KeepTheirRanksInAnyOrder) {
  ShowSea();
  ClickHeading("Phrase");
  EXPECT_THAT(Column("Rank"), ElementsAre("2", "4", "1", "3"));
}

TEST_F(TableRows, ShowTheDirectionInTheHeading) {
  ShowSea();
  const QHeaderView& header = *Grid().horizontalHeader();
  EXPECT_EQ(header.sortIndicatorSection(), Section("Rank"));
  EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder);
  ClickHeading("Freq");
  EXPECT_EQ(header.sortIndicatorSection(), Section("Freq"));
  EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(TableRows, KeepTheCurrentPhraseInAnotherOrder) {
  ShowSea();
  Grid().GoTo(2);
  ASSERT_EQ(Current(), "red sea");
  ClickHeading("Phrase");
  EXPECT_EQ(Current(), "red sea");
  EXPECT_EQ(Grid().currentIndex().row(), 3);
}

TEST_F(TableRows, OfSeveralRunsAreShownOneAfterTheOther) {
  ShowSea();
  Show(RunOf({{"old man", 2}}));
  EXPECT_THAT(Phrases(), ElementsAre("old man"));
  Show(nullptr);
  EXPECT_THAT(Phrases(), IsEmpty());
  ShowSea();
  EXPECT_EQ(Phrases().size(), 4);
}

TEST_F(TableRows, KeepTheOrderForTheNextRun) {
  ShowSea();
  ClickHeading("Phrase");
  Show(RunOf({{"young man", 3}, {"old man", 2}}));
  EXPECT_THAT(Phrases(), ElementsAre("old man", "young man"));
}

TEST_F(TableRows, SayWhyThereAreNone) {
  Open();
  EXPECT_EQ(TextOf("lblEmptyTable"), "Nothing has been counted yet.");
  EXPECT_TRUE(Find<QWidget>("lblEmptyTable")->isVisible());
  ReportWorld world;
  Show(RunOf(std::move(world)));
  EXPECT_EQ(TextOf("lblEmptyTable"), "The run found no phrase that it could list.");
  EXPECT_FALSE(Find<QWidget>("cmdClearMatch")->isVisible());
  ShowSea();
  EXPECT_FALSE(Find<QWidget>("lblEmptyTable")->isVisible());
}

TEST_F(TableRows, AreAllThereAtOnceHoweverMany) {
  ReportWorld world;
  for (int i = 0; i < 30'000; ++i) world.Say("w" + std::to_string(i) + " tail");
  Show(RunOf(std::move(world)));
  EXPECT_EQ(Model().rowCount(), 30'000);
  Press(Qt::Key_Down);
  Press(Qt::Key_End);
  EXPECT_EQ(Grid().currentIndex().row(), 29'999);
  Press(Qt::Key_Home);
  EXPECT_EQ(Grid().currentIndex().row(), 0);
}

}  // namespace
}  // namespace korv
