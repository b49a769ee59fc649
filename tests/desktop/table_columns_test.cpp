// The columns of the table: which there are, what they say of themselves, and what is kept of them.

#include "desktop/results/table/table_columns.h"

#include "report/columns/registry.h"
#include "tests/desktop/table_test.h"

namespace korv {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

/// Two files of a folder.
std::shared_ptr<const CountedRun> Folder() {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.Options.KeepPlaces = true;
  world.BeginFile("a.txt");
  world.Say("old ship", 3);
  world.BeginFile("b.txt");
  world.Say("old ship", 2);
  world.Say("red sea", 2);
  world.Facts.Words.Taken = 14;
  return RunOf(std::move(world));
}

class TableColumnsTest : public TableTest {};

TEST_F(TableColumnsTest, AreTheUsualOnesAtFirst) {
  Show(Folder());
  EXPECT_THAT(Headings(), ElementsAre("Rank", "Phrase", "Freq", "Per million", "Words", "Files", "Dispersion",
                                      "Alone", "First"));
}

TEST_F(TableColumnsTest, OfOneFileSayNothingOfFiles) {
  Show(RunOf({{"old ship", 3}}));
  EXPECT_THAT(Headings(), Not(Contains("Files")));
  Show(Folder());
  EXPECT_THAT(Headings(), Contains("Files"));
}

TEST_F(TableColumnsTest, ShowWhatIsComputedBesideTheWindow) {
  Show(Folder());
  EXPECT_THAT(Column("Files"), ElementsAre("2", "1"));
  EXPECT_THAT(Column("Alone"), ElementsAre("5", "2"));
}

TEST_F(TableColumnsTest, AreChosenFromAMenu) {
  Show(Folder());
  ChooseFrom("cmdColumns", "mnuColumn_characters");
  EXPECT_THAT(Headings(), Contains("Characters"));
  EXPECT_THAT(Column("Characters"), ElementsAre("8", "7"));
  ChooseFrom("cmdColumns", "mnuColumn_words");
  EXPECT_THAT(Headings(), Not(Contains("Words")));
}

TEST_F(TableColumnsTest, SayWhereAPhraseStandsFirst) {
  Show(Folder());
  EXPECT_THAT(Column("First"), ElementsAre("a.txt", "b.txt"));
  ClickHeading("First");
  EXPECT_THAT(Phrases(), ElementsAre("old ship", "red sea"));
  ClickHeading("First");
  EXPECT_THAT(Phrases(), ElementsAre("red sea", "old ship"));
}

TEST_F(TableColumnsTest, GoByThePartsThatAreChosen) {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.Options.KeepPlaces = true;
  world.BeginFile("a.txt");
  world.Say("old ship", 60);
  world.BeginFile("b.txt");
  world.Say("red sea", 60);
  world.Facts.Words.Taken = 240;
  const auto run = RunOf(std::move(world));
  Show(run);
  EXPECT_EQ(store.value("table/parts"), QVariant());
  ChooseFrom("cmdColumns", "mnuColumn_range");
  EXPECT_THAT(Column("Range"), ElementsAre("1", "1"));
  ChooseFrom("cmdColumns", "mnuParts_10");
  EXPECT_THAT(Column("Range"), ElementsAre("5", "5"));
  const QString tip = Model().headerData(Section("Range"), Qt::Horizontal, Qt::ToolTipRole).toString();
  EXPECT_THAT(tip.toStdString(), HasSubstr("Parts of this run: 10 equal ones of the whole."));
  messages.WillType("4");
  ChooseFrom("cmdColumns", "mnuParts_other");
  EXPECT_THAT(Column("Range"), ElementsAre("2", "2"));
  // They hold after a restart.
  Open();
  Show(run);
  EXPECT_THAT(Column("Range"), ElementsAre("2", "2"));
  ChooseFrom("cmdColumns", "mnuParts_5_of_each_file");
  EXPECT_THAT(Column("Range"), ElementsAre("5", "5"));
  EXPECT_THAT(Model().headerData(Section("Range"), Qt::Horizontal, Qt::ToolTipRole).toString().toStdString(),
              HasSubstr("Parts of this run: 5 equal ones of each file."));
  messages.WillType("3");
  ChooseFrom("cmdColumns", "mnuParts_other_of_each_file");
  EXPECT_THAT(Column("Range"), ElementsAre("3", "3"));
  Open();
  Show(run);
  EXPECT_THAT(Column("Range"), ElementsAre("3", "3"));
  ChooseFrom("cmdColumns", "mnuParts_files");
  EXPECT_THAT(Column("Range"), ElementsAre("1", "1"));
}

TEST_F(TableColumnsTest, NameFilesInTipsAsTheyAre) {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.Options.KeepPlaces = true;
  world.BeginFile("<b>a&b.txt");
  world.Say("old ship", 5);
  world.Facts.Words.Taken = 10;
  Show(RunOf(std::move(world)));
  const QString tip = Model().index(0, Section("First")).data(Qt::ToolTipRole).toString();
  EXPECT_THAT(tip.toStdString(), HasSubstr("&lt;b&gt;a&amp;b.txt"));
  EXPECT_TRUE(Qt::mightBeRichText(tip));
}

TEST_F(TableColumnsTest, SayWhichPartsAreChosen) {
  Show(Folder());
  struct Case {
    const char* Type;  ///< Null where the entry asks nothing.
    const char* Entry;
    const char* Caption;  ///< Once it is chosen.
  };
  const Case cases[] = {
      {nullptr, "mnuParts_10", "10 equal parts of the whole"},
      {"7", "mnuParts_other", "&Other number of equal parts (7)\u2026"},
      {nullptr, "mnuParts_10_of_each_file", "10 equal parts of each file"},
      {"7", "mnuParts_other_of_each_file", "Other number of equal parts of &each file (7)\u2026"},
      {nullptr, "mnuParts_files", "&Files"},
  };
  QMenu* const menu = Find<QToolButton>("cmdColumns")->menu();
  for (const Case& c : cases) {
    if (c.Type != nullptr) messages.WillType(c.Type);
    ChooseFrom("cmdColumns", c.Entry);
    emit menu->aboutToShow();
    for (const auto* entry : menu->findChildren<QAction*>(QRegularExpression("^mnuParts_")))
      EXPECT_EQ(entry->isChecked(), entry->objectName() == c.Entry) << entry->objectName().toStdString();
    EXPECT_EQ(menu->findChild<QAction*>(c.Entry)->text().toStdString(), c.Caption);
  }
  ASSERT_EQ(messages.InputBoxes.size(), 2);
  EXPECT_EQ(messages.InputBoxes[1].Prompt, "Number of equal parts of each file (2 to 100):");
  EXPECT_EQ(messages.InputBoxes[1].Initial, "10");
}

TEST_F(TableColumnsTest, AskForANumberOfParts) {
  Show(Folder());
  messages.WillType("101");
  ChooseFrom("cmdColumns", "mnuParts_other");
  ASSERT_EQ(messages.InputBoxes.size(), 1);
  EXPECT_EQ(messages.InputBoxes[0].Prompt, "Number of equal parts of the whole text (2 to 100):");
  EXPECT_EQ(messages.InputBoxes[0].Title, "Parts of the text");
  EXPECT_EQ(messages.InputBoxes[0].Initial, "10");
  EXPECT_EQ(messages.Only().Text, "The number of parts is one from 2 to 100.");
  EXPECT_EQ(messages.Only().Title, "Parts of the text");
  messages.WillType("many");
  ChooseFrom("cmdColumns", "mnuParts_other");
  EXPECT_EQ(messages.Shown.size(), 2);
  // The third box is cancelled.
  ChooseFrom("cmdColumns", "mnuParts_other");
  EXPECT_EQ(messages.Shown.size(), 2);
  EXPECT_FALSE(store.contains("table/parts"));
  QMenu* const menu = Find<QToolButton>("cmdColumns")->menu();
  emit menu->aboutToShow();
  EXPECT_TRUE(menu->findChild<QAction*>("mnuParts_files")->isChecked());
}

TEST_F(TableColumnsTest, OrderTheRowsAnewWhenThePartsAreOthers) {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.Options.KeepPlaces = true;
  world.BeginFile("a.txt");
  world.Say("old ship", 100);
  world.Say("red sea", 10);
  world.BeginFile("b.txt");
  world.Say("red sea", 10);
  world.Facts.Words.Taken = 240;
  Show(RunOf(std::move(world)));
  ChooseFrom("cmdColumns", "mnuColumn_range");
  ClickHeading("Range");
  EXPECT_THAT(Phrases(), ElementsAre("red sea", "old ship"));
  Type("txbLeast_dispersion", "0.5");
  EXPECT_THAT(Phrases(), ElementsAre("red sea"));
  ChooseFrom("cmdColumns", "mnuParts_10");
  EXPECT_THAT(Phrases(), ElementsAre("old ship"));
  Type("txbLeast_dispersion", "");
  EXPECT_THAT(Phrases(), ElementsAre("old ship", "red sea"));
}

TEST_F(TableColumnsTest, AlwaysHaveThePhrase) {
  Show(Folder());
  ChooseFrom("cmdColumns", "mnuColumn_phrase");
  EXPECT_THAT(Headings(), Contains("Phrase"));
}

TEST_F(TableColumnsTest, AreAllInTheMenuButThoseOfTheReport) {
  Show(Folder());
  QMenu* const menu = Find<QToolButton>("cmdColumns")->menu();
  emit menu->aboutToShow();
  for (const korv::Column* column : AllColumns()) {
    const QString name = QStringLiteral("mnuColumn_") + QString::fromStdString(std::string(column->Id));
    const bool partOfFirst = column->Id == "first_file" || column->Id == "first_line";
    const bool ofReports = column->Value == nullptr || column->Id.starts_with("report_") ||
                           column->Id == "file_frequency" || column->Id == "relative_frequency";
    const bool ofComparisons = column->Needs.Sides || column->Needs.SideFiles || column->Needs.SideParts;
    EXPECT_EQ(menu->findChild<QAction*>(name) == nullptr, ofReports || partOfFirst || ofComparisons)
        << column->Id;
  }
  EXPECT_NE(menu->findChild<QAction*>("mnuColumn_first"), nullptr);
}

TEST_F(TableColumnsTest, AreKeptWithTheirOrderAndWidths) {
  Show(Folder());
  ChooseFrom("cmdColumns", "mnuColumn_characters");
  QHeaderView& header = *Grid().horizontalHeader();
  header.moveSection(header.visualIndex(Section("Freq")), 0);
  header.resizeSection(Section("Phrase"), 333);
  const std::vector<std::string> before = Headings();
  ASSERT_EQ(before.front(), "Freq");
  Open();
  Show(Folder());
  EXPECT_EQ(Headings(), before);
  EXPECT_EQ(Grid().horizontalHeader()->sectionSize(Section("Phrase")), 333);
}

TEST_F(TableColumnsTest, LeaveTheirRoomToThePhraseUntilItHasAWidth) {
  Show(Folder());
  QHeaderView& header = *Grid().horizontalHeader();
  const auto whole = [&] { return header.length() == header.width(); };
  panel->resize(1600, 700);
  UntilIdle();
  EXPECT_TRUE(whole());
  ChooseFrom("cmdColumns", "mnuColumn_characters");
  EXPECT_TRUE(whole());
  // Where there is none to leave, the phrase stays wide enough.
  panel->resize(400, 700);
  UntilIdle();
  const int usual = header.sectionSize(Section("Phrase"));
  EXPECT_GE(usual, header.fontMetrics().horizontalAdvance(QString(24, u'n')));
  EXPECT_GT(header.length(), header.width());
  EXPECT_TRUE(store.allKeys().filter("table/widths").isEmpty());
  header.resizeSection(Section("Phrase"), usual - 10);
  panel->resize(1600, 700);
  UntilIdle();
  EXPECT_EQ(header.sectionSize(Section("Phrase")), usual - 10);
  ChooseFrom("cmdColumns", "mnuUsualColumns");
  EXPECT_TRUE(whole());
}

TEST_F(TableColumnsTest, BecomeTheUsualOnesAgain) {
  Show(Folder());
  const std::vector<std::string> usual = Headings();
  ChooseFrom("cmdColumns", "mnuColumn_characters");
  Grid().horizontalHeader()->moveSection(0, 3);
  ChooseFrom("cmdColumns", "mnuUsualColumns");
  EXPECT_EQ(Headings(), usual);
  Open();
  Show(Folder());
  EXPECT_EQ(Headings(), usual);
}

TEST_F(TableColumnsTest, SayWhatTheyMeanAndOfWhat) {
  Show(Folder());
  for (int section = 0; section < Model().columnCount(); ++section) {
    const std::string tip =
        Model().headerData(section, Qt::Horizontal, Qt::ToolTipRole).toString().toStdString();
    const std::string heading =
        Model().headerData(section, Qt::Horizontal).toString().toHtmlEscaped().toStdString();
    EXPECT_THAT(tip, HasSubstr("<b>" + heading + "</b>"));
  }
  EXPECT_THAT(
      Model().headerData(Section("Per million"), Qt::Horizontal, Qt::ToolTipRole).toString().toStdString(),
      HasSubstr("N = 14 running words, n = 14 words taken."));
}

TEST_F(TableColumnsTest, OrderTheRowsFromTheMenuToo) {
  Show(Folder());
  ChooseFrom("cmdColumns", "mnuOrderBy_phrase");
  EXPECT_THAT(Phrases(), ElementsAre("old ship", "red sea"));
  ChooseFrom("cmdColumns", "mnuReverseOrder");
  EXPECT_THAT(Phrases(), ElementsAre("red sea", "old ship"));
}

TEST_F(TableColumnsTest, OfHeavyPhrasesAreFoundBesideTheWindow) {
  ReportWorld world;
  world.Facts.Options.SourceKind = TextSource::Folder;
  world.Facts.Options.KeepPlaces = true;
  world.BeginFile("a.txt");
  world.Say("old ship", 5000);
  world.BeginFile("b.txt");
  world.Say("old ship", 5000);
  Show(RunOf(std::move(world)));
  static_cast<void>(Column("Files"));
  UntilIdle();
  EXPECT_THAT(Column("Files"), ElementsAre("2"));
}

TEST_F(TableColumnsTest, ExplainTheColumnAlone) {
  Show(Folder());
  EXPECT_TRUE(Find<QLabel>("lblAlone")->isVisible());
  EXPECT_EQ(TextOf("lblAlone"), "Alone: not within a longer phrase.");
  EXPECT_EQ(Find<QLabel>("lblAlone")->toolTip().toStdString(),
            "Alone: the occurrences of a phrase that do not stand within an occurrence of a longer phrase.");
  ChooseFrom("cmdColumns", "mnuColumn_net_frequency");
  EXPECT_FALSE(Find<QLabel>("lblAlone")->isVisible());
}

}  // namespace
}  // namespace korv
