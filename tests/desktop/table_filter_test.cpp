// The filter above the table.

#include "tests/desktop/table_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TableFilter : public TableTest {
 protected:
  void SetUp() override {
    Show(RunOf({{"the white whale", 5}, {"whale oil", 3}, {"white sail", 2}, {"côté droit", 1}}));
  }
};

struct ModeCase {
  const char* Mode;
  const char* Text;
  std::vector<std::string> Passing;
};

TEST_F(TableFilter, HasAModeForEveryWayOfLooking) {
  const ModeCase cases[] = {
      {"Contains", "hale", {"the white whale", "whale oil"}},
      {"Whole words", "white whale", {"the white whale"}},
      {"Starts with", "whi", {"white sail"}},
      {"Ends with", "ale", {"the white whale"}},
      {"Wildcards", "wh?te *", {"white sail"}},
      {"Regular expression", "^w.*l$", {"whale oil", "white sail"}},
      {"Words in any order", "whale the", {"the white whale"}},
  };
  ClickHeading("Phrase");
  for (const ModeCase& c : cases) {
    Choose("cboMatchMode", c.Mode);
    Type("txbMatch", c.Text);
    EXPECT_THAT(Phrases(), testing::UnorderedElementsAreArray(c.Passing)) << c.Mode;
  }
}

TEST_F(TableFilter, TellsHowManyPass) {
  Type("txbMatch", "oil");
  EXPECT_EQ(TextOf("lblPhraseCount"), "1 of 4 phrases, 3 occurrences");
}

TEST_F(TableFilter, MayListThoseThatDoNotMatch) {
  Type("txbMatch", "whale");
  Click("chkMatchNot");
  EXPECT_THAT(Phrases(), testing::ElementsAre("white sail", "côté droit"));
}

TEST_F(TableFilter, MayPassOverAccents) {
  Type("txbMatch", "cote");
  EXPECT_THAT(Phrases(), IsEmpty());
  Click("chkMatchAccents");
  EXPECT_THAT(Phrases(), ElementsAre("côté droit"));
}

TEST_F(TableFilter, KeepsTheRanksOfTheWholeList) {
  Type("txbMatch", "oil");
  EXPECT_THAT(Column("Rank"), ElementsAre("2"));
}

TEST_F(TableFilter, HoldsInAnotherOrderAndForTheNextRun) {
  Type("txbMatch", "white");
  ClickHeading("Phrase");
  EXPECT_THAT(Phrases(), ElementsAre("the white whale", "white sail"));
  Show(RunOf({{"snow white", 2}, {"red rose", 1}}));
  EXPECT_THAT(Phrases(), ElementsAre("snow white"));
}

TEST_F(TableFilter, FollowsWhatIsTypedOnAndTakenBack) {
  for (const char* text : {"w", "wh", "wha", "whale o", "whale"}) Type("txbMatch", text);
  EXPECT_EQ(TextOf("lblPhraseCount"), "2 of 4 phrases, 8 occurrences");
  Type("txbMatch", "");
  EXPECT_EQ(TextOf("lblPhraseCount"), "4 phrases, 11 occurrences");
}

TEST_F(TableFilter, OfABadExpressionSaysWhyAndKeepsTheList) {
  Type("txbMatch", "oil");
  Choose("cboMatchMode", "Regular expression");
  Type("txbMatch", "oil(");
  EXPECT_THAT(Phrases(), ElementsAre("whale oil"));
  auto* box = Find<QLineEdit>("txbMatch");
  EXPECT_THAT(TextOf("lblMatchFault"), Not(IsEmpty()));
  EXPECT_TRUE(Find<QLabel>("lblMatchFault")->isVisible());
  EXPECT_EQ(box->toolTip().toStdString(), TextOf("lblMatchFault"));
  EXPECT_EQ(box->accessibleDescription().toStdString(), TextOf("lblMatchFault"));
  EXPECT_NE(box->palette().color(QPalette::Base), panel->palette().color(QPalette::Base));
  Type("txbMatch", "oil");
  EXPECT_FALSE(Find<QLabel>("lblMatchFault")->isVisible());
  EXPECT_EQ(box->toolTip().toStdString(), "");
  EXPECT_EQ(box->palette().color(QPalette::Base), panel->palette().color(QPalette::Base));
}

TEST_F(TableFilter, ThatNothingPassesSaysSoWithAWayOut) {
  Type("txbMatch", "harpoon");
  EXPECT_EQ(TextOf("lblEmptyTable"), "No phrase passes the filter.");
  EXPECT_TRUE(Find<QWidget>("cmdClearMatch")->isVisible());
  Click("cmdClearMatch");
  EXPECT_EQ(Phrases().size(), 4);
  EXPECT_EQ(Find<QLineEdit>("txbMatch")->text(), "");
}

TEST_F(TableFilter, IsLeftForTheListByEnter) {
  panel->StartFiltering();
  auto* box = Find<QLineEdit>("txbMatch");
  QTest::keyClicks(box, "oil");
  QTest::keyClick(box, Qt::Key_Return);
  UntilIdle();
  EXPECT_THAT(Phrases(), ElementsAre("whale oil"));
  QTest::keyClick(box, Qt::Key_Escape);
  UntilIdle();
  EXPECT_EQ(Phrases().size(), 4);
}

TEST_F(TableFilter, HasLimitsThatFoldAway) {
  EXPECT_FALSE(Find<QWidget>("fraLimits")->isVisible());
  Click("cmdLimits");
  EXPECT_TRUE(Find<QWidget>("fraLimits")->isVisible());
  Type("txbLeast_frequency", "2");
  Type("txbMost_frequency", "3");
  EXPECT_THAT(Phrases(), ElementsAre("whale oil", "white sail"));
  EXPECT_EQ(Find<QAbstractButton>("cmdLimits")->text(), "Limits (1)");
  Click("cmdLimits");
  EXPECT_FALSE(Find<QWidget>("fraLimits")->isVisible());
  EXPECT_EQ(Phrases().size(), 2);
}

TEST_F(TableFilter, HasLimitsOfSeveralColumns) {
  Click("cmdLimits");
  Type("txbLeast_words", "3");
  EXPECT_THAT(Phrases(), ElementsAre("the white whale"));
  Type("txbMost_net_frequency", "4");
  EXPECT_THAT(Phrases(), IsEmpty());
  Click("cmdClearMatch");
  EXPECT_EQ(Phrases().size(), 4);
  EXPECT_EQ(Find<QLineEdit>("txbLeast_words")->text(), "");
  EXPECT_EQ(Find<QAbstractButton>("cmdLimits")->text(), "Limits");
}

TEST_F(TableFilter, OfOneFileHasNoLimitOfFiles) {
  Click("cmdLimits");
  EXPECT_FALSE(Find<QLineEdit>("txbLeast_files")->isVisible());
  EXPECT_TRUE(Find<QLineEdit>("txbLeast_frequency")->isVisible());
}

TEST_F(TableFilter, KeepsTheListWhileALimitIsNoNumber) {
  Click("cmdLimits");
  Type("txbLeast_frequency", "3");
  Type("txbLeast_frequency", "many");
  EXPECT_THAT(Phrases(), ElementsAre("the white whale", "whale oil"));
  auto* field = Find<QLineEdit>("txbLeast_frequency");
  EXPECT_EQ(field->toolTip(), "This is no number.");
  EXPECT_EQ(field->accessibleDescription(), "This is no number.");
  Type("txbLeast_frequency", "5");
  EXPECT_EQ(field->toolTip(), "");
  EXPECT_THAT(Phrases(), ElementsAre("the white whale"));
}

TEST_F(TableFilter, GivesTheCurrentPhraseBackThatItHid) {
  Grid().GoTo(1);
  ASSERT_EQ(Current(), "whale oil");
  Type("txbMatch", "sail");
  EXPECT_EQ(Current(), "");
  Type("txbMatch", "");
  EXPECT_EQ(Current(), "whale oil");
}

TEST_F(TableFilter, LeavesOutWhatTheUserDoesNotWant) {
  panel->LeaveOut({PhraseIndex{3}, PhraseIndex{1}});
  UntilIdle();
  const std::string first = shown->Table.Text(PhraseIndex{1});
  EXPECT_THAT(Phrases(), Not(testing::Contains(first)));
  EXPECT_EQ(TextOf("lblPhraseCount").substr(0, 6), "2 of 4");
  panel->LeaveOut({});
  UntilIdle();
  EXPECT_EQ(Phrases().size(), 4);
}

TEST_F(TableFilter, ShowsWhatWasTypedLast) {
  auto* box = Find<QLineEdit>("txbMatch");
  for (const char* text : {"white", "sail", "droit"}) {
    box->setText(QLatin1String(text));
    panel->Bar->Match->Entered();
  }
  UntilIdle();
  EXPECT_THAT(Phrases(), ElementsAre("côté droit"));
}

}  // namespace
}  // namespace korv
