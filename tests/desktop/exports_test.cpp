// Finished runs are exported as tables.

#include <QDialog>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolButton>

#include "desktop/dialogs/frm_export.h"
#include "desktop/questions.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/results/table/table_bar.h"
#include "desktop/toolkit/text.h"
#include "report/columns/registry.h"
#include "report/key_phrases.h"
#include "tests/desktop/geometry.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const char* const kText =
    "The white whale swam. The old man wept aloud.\n"
    "The white whale swam. The old man wept aloud. The old man wept aloud.\n";
const char* const kShownHeading =
    "rank,phrase,frequency,per_million,words,dispersion,net_frequency,first_file,first_line\r\n";

class Exports : public WindowTest {
 protected:
  void SetUp() override {
    View = RunView::Table;
    ASSERT_TRUE(Start());
  }

  QAction& Command() const {
    for (QAction* menu : main->menuBar()->actions())
      for (QAction* action : menu->menu()->actions())
        if (WithoutMnemonic(action->text()) == QLatin1String("Export...")) return *action;
    ADD_FAILURE();
    return *main->menuBar()->actions().front();
  }
  PhraseTablePanel& Table() const { return *main->Panels().Frame->Table; }
  frmExport& Dialog() const { return *main->findChild<frmExport*>(); }
  void UntilShown() const {
    UntilIdle();
    while (!Table().Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  }
  void CountText(const std::string& text = kText) {
    Type("txbFile_0", WriteFile("whale.txt", text));
    Count();
    UntilShown();
  }
  /// Opens the window that asks.
  void Ask() {
    ASSERT_TRUE(Command().isEnabled());
    Command().trigger();
    ASSERT_TRUE(Dialog().isVisible());
  }
  std::string ExportTo(const std::string& name) {
    if (!Dialog().isVisible()) Ask();
    const std::string path = PathOf(name);
    Type("txbExportFile", path);
    Click("cmdExport");
    UntilIdle();
    return path;
  }
  std::vector<std::string> Items() const {
    std::vector<std::string> items;
    const auto* list = Find<QComboBox>("cboExportForm");
    for (int k = 0; k < list->count(); ++k) items.push_back(list->itemText(k).toStdString());
    return items;
  }
  void HideColumn(const std::string& id) const {
    QMenu* const menu = Table().Bar->cmdColumns->menu();
    emit menu->aboutToShow();
    auto* const action = menu->findChild<QAction*>(ToQt("mnuColumn_" + id));
    ASSERT_NE(action, nullptr) << id;
    action->trigger();
    UntilShown();
  }
  std::string Caption(const char* name) const {
    return FromQt(WithoutMnemonic(Find<QAbstractButton>(name)->text()));
  }
  std::string Status() const { return TextOf("lblStatusText"); }
};

TEST_F(Exports, AreToBeHadOnceThereIsARun) {
  EXPECT_FALSE(Command().isEnabled());
  EXPECT_EQ(Command().shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
  UseLongText();
  bool looked = false;
  DuringTheRun([&] {
    looked = true;
    EXPECT_FALSE(Command().isEnabled());
  });
  Count();
  EXPECT_TRUE(looked);
  EXPECT_TRUE(Command().isEnabled());
}

TEST_F(Exports, AskWhatAndWhere) {
  CountText();
  Ask();
  EXPECT_EQ(Dialog().windowTitle(), QStringLiteral("Export"));
  EXPECT_TRUE(Dialog().isModal());
  EXPECT_THAT(TextOf("txbExportFile"), EndsWith("whale.txt.csv"));
  EXPECT_TRUE(std::filesystem::path(TextOf("txbExportFile")).is_absolute()) << "nobody wonders where it went";
  EXPECT_TRUE(files->FolderExists(PathFromText(TextOf("txbExportFile")).parent_path()));
  EXPECT_EQ(Caption("cmdExportFile"), "Browse...");
  std::vector<std::string> forms = {"Comma-separated values (*.csv)",
                                    "CSV for spreadsheets (*.csv)",
                                    "Tab-separated values (*.tsv)",
                                    "JSON (*.json)",
                                    "JSON lines (*.ndjson)",
                                    "Excel workbook (*.xlsx)",
                                    "Web page (*.html)",
                                    "Markdown (*.md)",
                                    "SQLite database (*.sqlite)"};
  for (const char* name : {"xlsx", "sqlite"})
    if (TableFormOf(name).Make == nullptr)
      std::erase_if(forms, [&](const std::string& form) { return form.ends_with(std::string(name) + ")"); });
  EXPECT_EQ(Items(), forms);
  EXPECT_EQ(ItemOf("cboExportForm"), 0);
  EXPECT_TRUE(Checked("optExportShown"));
  EXPECT_FALSE(Checked("optExportAll"));
  EXPECT_EQ(Caption("optExportShown"), "Rows and columns as the table shows them");
  EXPECT_EQ(Caption("optExportAll"), "Everything: all phrases, all columns");
  EXPECT_TRUE(Find<QPushButton>("cmdExport")->isDefault());
  EXPECT_TRUE(Checked("chkExportDescribed"));
  EXPECT_EQ(Caption("chkExportDescribed"), "With a description beside it");
  EXPECT_EQ(TipOf("chkExportDescribed"),
            "A file named datapackage.json says what the columns mean, how the table came about, and what it "
            "is of.");
  EXPECT_EQ(Caption("cmdExport"), "Export");
  EXPECT_EQ(Caption("cmdExportCancel"), "Cancel");
  EXPECT_EQ(Dialog().focusWidget(), Dialog().txbExportFile);
  for (const char* name : {"txbExportFile", "cboExportForm"})
    EXPECT_FALSE(Find<QWidget>(name)->accessibleName().isEmpty()) << name;
  EXPECT_THAT(GeometryFaultsInEverySize(Dialog()), IsEmpty());
}

TEST_F(Exports, SayHowMuchTheyAre) {
  CountText();
  Ask();
  EXPECT_EQ(TextOf("lblExportRows"), "2 phrases, 9 columns");
  Check("optExportAll");
  EXPECT_EQ(TextOf("lblExportRows"), "2 phrases, " + std::to_string(TableColumns().size()) + " columns");
  Click("cmdExportCancel");
  EXPECT_FALSE(Dialog().isVisible());
  Type("txbMatch", "whale");
  UntilShown();
  Ask();
  EXPECT_EQ(TextOf("lblExportRows"), "2 phrases, " + std::to_string(TableColumns().size()) + " columns")
      << "what was chosen stays chosen";
  Check("optExportShown");
  EXPECT_EQ(TextOf("lblExportRows"), "1 of 2 phrases, 9 columns");
}

TEST_F(Exports, CarryBothSidesOfAComparison) {
  std::string whales;
  std::string men;
  for (int k = 0; k < 12; ++k) {
    whales += "The white whale swam.\n";
    men += "The old man wept aloud.\n";
  }
  CountCompared(whales, men);
  UntilShown();
  Find<QComboBox>("cboBasis")->setCurrentIndex(static_cast<int>(ComparisonBasis::Files));
  Find<QComboBox>("cboTest")->setCurrentIndex(static_cast<int>(KeyTest::None));
  UntilShown();
  Ask();
  EXPECT_EQ(TextOf("lblExportRows"), "1 of 2 phrases, 11 columns");
  EXPECT_THAT(
      ReadFile(ExportTo("shown.csv")),
      StartsWith("phrase,frequency_a,frequency_b,per_million_a,per_million_b,log_ratio,g2,bic,files_a,"
                 "files_b,dispersion_a\r\nthe white whale swam,12,0,250000,0,1,"));
  const std::string described = ReadFile(PathOf("datapackage.json"));
  EXPECT_THAT(described, testing::ContainsRegex("\"compared_by\": *\"files\""));
  EXPECT_THAT(described, testing::HasSubstr("\"MinFrequency\":3")) << "as it was counted";
  EXPECT_THAT(described, HasSubstr("a.txt"));
  EXPECT_THAT(described, HasSubstr("b.txt"));
  Ask();
  Check("optExportAll");
  EXPECT_EQ(TextOf("lblExportRows"),
            "2 phrases, " + std::to_string(TableColumns(TableOf::TwoSides).size()) + " columns");
  EXPECT_THAT(ReadFile(ExportTo("all.csv")), HasSubstr(",frequency_a,frequency_b,"));
}

TEST_F(Exports, WaitForATableThatIsBeingFiltered) {
  CountText();
  Ask();
  Find<QLineEdit>("txbMatch")->setText(QStringLiteral("whale"));
  ASSERT_FALSE(Table().Idle());
  Dialog().tmrExport_Timer();
  EXPECT_EQ(Dialog().lblExportRows->text(), QStringLiteral("The table is being filtered . . ."));
  EXPECT_FALSE(Dialog().cmdExport->isEnabled());
  Dialog().optExportAll->setChecked(true);
  EXPECT_TRUE(Dialog().cmdExport->isEnabled()) << "everything is there";
  Dialog().optExportShown->setChecked(true);
  UntilShown();
  while (!Dialog().cmdExport->isEnabled()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  EXPECT_EQ(TextOf("lblExportRows"), "1 of 2 phrases, 9 columns") << "by itself, after a moment";
}

TEST_F(Exports, HaveRowsAndColumnsAsTheTableShowsThem) {
  CountText();
  const std::string first = PathOf("whale.txt");
  EXPECT_EQ(ReadFile(ExportTo("all.csv")),
            kShownHeading + std::string("1,the old man wept aloud,3,") + "130434.783,5,,3," + first +
                ",1\r\n" + "2,the white whale swam,2,86956.5217,4,,2," + first + ",1\r\n");
  const auto bytes = std::filesystem::file_size(PathFromText(PathOf("all.csv")));
  EXPECT_EQ(Status(), "2 phrases were written to " + PathOf("all.csv") + " (" + std::to_string(bytes) +
                          " bytes), with a description beside it.");
  EXPECT_FALSE(Dialog().isVisible());
  // Another order, fewer rows, other columns in another order.
  QHeaderView& header = *Table().tblPhrases->horizontalHeader();
  const auto section = [&](const char* heading) {
    for (int k = 0; k < header.count(); ++k)
      if (header.model()->headerData(k, Qt::Horizontal).toString() == QLatin1String(heading)) return k;
    return -1;
  };
  header.setSortIndicator(section("Phrase"), Qt::DescendingOrder);
  UntilShown();
  for (const char* id : {"per_million", "words", "dispersion", "net_frequency", "first"}) HideColumn(id);
  header.moveSection(header.visualIndex(section("Freq")), 0);
  EXPECT_EQ(ReadFile(ExportTo("order.csv")),
            "frequency,rank,phrase\r\n2,2,the white whale swam\r\n3,1,the old man wept aloud\r\n");
  Type("txbMatch", "old");
  UntilShown();
  EXPECT_EQ(ReadFile(ExportTo("filter.csv")), "frequency,rank,phrase\r\n3,1,the old man wept aloud\r\n");
  EXPECT_THAT(Status(), StartsWith("1 phrase was written to "));
  Type("txbMatch", "shark");
  UntilShown();
  EXPECT_EQ(ReadFile(ExportTo("nothing.csv")), "frequency,rank,phrase\r\n");
  EXPECT_THAT(Status(), StartsWith("A report without a phrase was written to "));
}

TEST_F(Exports, HaveNoPhraseThatWasLeftOut) {
  CountText();
  Table().LeaveOut({PhraseIndex{2}});
  UntilShown();
  EXPECT_THAT(ReadFile(ExportTo("left.ndjson")), testing::Not(HasSubstr("whale swam")));
  Ask();
  Check("optExportAll");
  EXPECT_THAT(ReadFile(ExportTo("all.ndjson")), HasSubstr("whale swam"));
}

TEST_F(Exports, HaveAllPhrasesAndAllColumnsWhereThatIsWished) {
  CountText();
  Type("txbMatch", "whale");
  Type("txbFilterWords", "whale");
  UntilShown();
  Ask();
  Check("optExportAll");
  const std::string table = ReadFile(ExportTo("all.tsv"));
  std::string heading;
  for (const Column* column : TableColumns())
    heading += (heading.empty() ? "" : "\t") + std::string(column->Id);
  EXPECT_THAT(table, StartsWith(heading + "\n1\tthe old man wept aloud\t"));
  EXPECT_THAT(table, HasSubstr("\n2\tthe white whale swam\t"));
  EXPECT_EQ(std::ranges::count(table, '\n'), 3);
}

TEST_F(Exports, TellWhatTheyAreOf) {
  CountText();
  const std::string json = ReadFile(ExportTo("all.json"));
  EXPECT_THAT(json, StartsWith("{\"korv\":{\"version\":\""));
  EXPECT_THAT(json, HasSubstr("\"command\":null}"));
  EXPECT_THAT(json, HasSubstr("\"files\":1,\"words\":23,"));
  EXPECT_THAT(json, HasSubstr("\"MinWords\":4,\"MaxWords\":6,"));
}

TEST_F(Exports, HaveADescriptionUnlessNoneIsWished) {
  CountText();
  ExportTo("a.csv");
  const std::string description = ReadFile(PathOf("datapackage.json"));
  EXPECT_THAT(description, HasSubstr("\"path\":\"a.csv\""));
  EXPECT_THAT(description, HasSubstr("\"MinWords\":4,"));
  ExportTo("b.csv");
  EXPECT_THAT(ReadFile(PathOf("b.datapackage.json")), HasSubstr("\"path\":\"b.csv\""))
      << "the other one describes the other table";
  EXPECT_EQ(ReadFile(PathOf("datapackage.json")), description);
  Ask();
  Check("chkExportDescribed", false);
  ExportTo("c.csv");
  EXPECT_FALSE(files->FileExists(PathFromText(PathOf("c.datapackage.json"))));
  EXPECT_THAT(Status(), EndsWith(" bytes)."));
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(Exports, AreWrittenInEveryForm) {
  CountText();
  struct Case {
    const char* Name;
    int Form;
    const char* Begin;
  };
  const Case cases[] = {
      {"t.csv", 0, "rank,phrase"},     {"t.tsv", 2, "rank\tphrase"},     {"t.json", 3, "{\"korv\":"},
      {"t.ndjson", 4, "{\"rank\":1,"}, {"t.jsonl", 4, "{\"rank\":1,"},   {"t.XLSX", 5, "PK"},
      {"t.html", 6, "<!DOCTYPE"},      {"t.md", 7, "| Rank | Phrase |"}, {"t.sqlite", 8, "SQLite format 3"}};
  for (const Case& c : cases) {
    if (TableFormOfFile(c.Name)->Make == nullptr) continue;
    EXPECT_THAT(ReadFile(ExportTo(c.Name)), StartsWith(c.Begin)) << c.Name;
    if (Items().size() == 9) {
      EXPECT_EQ(ItemOf("cboExportForm"), c.Form) << c.Name;
    }
  }
  Ask();
  Choose("cboExportForm", 1);
  EXPECT_THAT(ReadFile(ExportTo("spreadsheet.csv")), StartsWith("\uFEFFrank,phrase"));
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(Exports, FollowFormAndExtension) {
  CountText();
  Ask();
  Type("txbExportFile", "/x/list.csv");
  struct Case {
    int Form;
    const char* Path;
  };
  const Case cases[] = {{2, "/x/list.tsv"}, {1, "/x/list.csv"}, {4, "/x/list.ndjson"}, {0, "/x/list.csv"}};
  for (const Case& c : cases) {
    Choose("cboExportForm", c.Form);
    EXPECT_EQ(TextOf("txbExportFile"), c.Path);
    EXPECT_EQ(ItemOf("cboExportForm"), c.Form);
  }
  Choose("cboExportForm", 1);
  Type("txbExportFile", "/x/other.csv");
  EXPECT_EQ(ItemOf("cboExportForm"), 1) << "both forms have the extension";
  Type("txbExportFile", "/x/other.tsv");
  EXPECT_EQ(ItemOf("cboExportForm"), 2);
  Type("txbExportFile", "/x/other.v2");
  EXPECT_EQ(ItemOf("cboExportForm"), 2) << "no form has the extension";
  Choose("cboExportForm", 3);
  EXPECT_EQ(TextOf("txbExportFile"), "/x/other.v2.json");
  Type("txbExportFile", "");
  EXPECT_FALSE(Enabled("cmdExport"));
  Choose("cboExportForm", 0);
  EXPECT_EQ(TextOf("txbExportFile"), "");
  Type("txbExportFile", "  ");
  EXPECT_FALSE(Enabled("cmdExport"));
}

TEST_F(Exports, AreLookedForInADialog) {
  CountText();
  Ask();
  Choose("cboExportForm", 2);
  const std::string offered = TextOf("txbExportFile");
  Click("cmdExportFile");
  ASSERT_EQ(dialogs.Saved.size(), 1U);
  const FileChoice& asked = dialogs.Saved.front();
  EXPECT_EQ(asked.Title, "Export");
  EXPECT_EQ(asked.Filter, "Tab-separated values (*.tsv) | *.tsv");
  EXPECT_EQ(asked.InitialPath, offered);
  EXPECT_EQ(asked.Extension, "tsv");
  EXPECT_FALSE(asked.AsksBeforeReplacing) << "the window asks, whichever way a name came";
  EXPECT_EQ(TextOf("txbExportFile"), offered) << "cancelled";
  dialogs.WillChoose(PathOf("mine.json"));
  Click("cmdExportFile");
  EXPECT_EQ(TextOf("txbExportFile"), PathOf("mine.json"));
  EXPECT_EQ(ItemOf("cboExportForm"), 3);
}

TEST_F(Exports, RememberFolderAndForm) {
  CountText();
  ExportTo("mine.tsv");
  Ask();
  EXPECT_EQ(TextOf("txbExportFile"), PathOf("whale.txt.tsv"));
  EXPECT_EQ(ItemOf("cboExportForm"), 2);
}

TEST_F(Exports, AskBeforeTheyReplaceAFile) {
  CountText();
  const std::string path = WriteFile("old.csv", "old");
  ExportTo("old.csv");
  const Message asked = messages.Only();
  EXPECT_EQ(asked.Title, "Export");
  EXPECT_EQ(asked.Text, "The file exists. Do you wish to replace it?");
  EXPECT_EQ(asked.Addition, path);
  EXPECT_EQ(asked.Icon, Icon::Question);
  EXPECT_EQ(asked.Buttons, Buttons::YesNo);
  EXPECT_EQ(asked.DefaultAnswer, Answer::No);
  EXPECT_EQ(asked.YesButton, "Replace");
  EXPECT_EQ(ReadFile(path), "old");
  EXPECT_TRUE(Dialog().isVisible()) << "another name can be given";
  messages.WillAnswer(questions::kReplaceExport, Answer::Yes);
  ExportTo("old.csv");
  EXPECT_THAT(ReadFile(path), StartsWith("rank,"));
  EXPECT_FALSE(Dialog().isVisible());
}

TEST_F(Exports, AreRefusedWhereTheyCannotBe) {
  CountText();
  std::filesystem::create_directory(PathFromText(PathOf("folder.csv")));
  struct Case {
    const char* Name;
    const char* Text;
  };
  for (const Case& c : {Case{"none/a.csv", "Folder does not exist."},
                        Case{"folder.csv", "This is a folder. Please name a file."}}) {
    messages.Forget();
    const std::string path = ExportTo(c.Name);
    EXPECT_EQ(messages.Only().Text, c.Text);
    EXPECT_EQ(messages.Only().Title, "Export");
    EXPECT_EQ(messages.Only().Icon, Icon::Exclamation);
    EXPECT_EQ(PathFromText(messages.Only().Addition), PathFromText(path));
    EXPECT_TRUE(Dialog().isVisible());
  }
  messages.Forget();
  messages.WillAnswer(questions::kReplaceExport, Answer::Yes);
  ExportTo("whale.txt");
  ASSERT_EQ(messages.Shown.size(), 2U);
  EXPECT_EQ(messages.Shown.back().Text,
            "This file is one of those that were counted. Please choose another one.");
  EXPECT_EQ(messages.Shown.back().Title, "Export");
  EXPECT_EQ(ReadFile(PathOf("whale.txt")), kText);
  EXPECT_EQ(Status(), "");
}

TEST_F(Exports, ThatFailAreToldAndLeaveTheFileAsItWas) {
  FakeFiles& disk = OpenOnFakeFiles();
  disk.Add("/in/whale.txt", kText);
  disk.Add("/out/old.csv", "old");
  Type("txbFile_0", "/in/whale.txt");
  Count();
  UntilShown();
  messages.WillAnswer(questions::kReplaceExport, Answer::Yes);
  disk.Refuse("/out/old.csv", FileFault::PermissionDenied);
  Ask();
  Type("txbExportFile", "/out/old.csv");
  Click("cmdExport");
  UntilIdle();
  ASSERT_EQ(messages.Shown.size(), 2U);
  EXPECT_EQ(messages.Shown.back().Title, "Permission denied");
  EXPECT_EQ(disk.Content("/out/old.csv"), "old");
  EXPECT_EQ(Status(), "");
  if (TableFormOf("xlsx").Make == nullptr) return;
  // No library can write into the fake folder for what is temporary.
  messages.Forget();
  Ask();
  Type("txbExportFile", "/out/new.xlsx");
  Click("cmdExport");
  UntilIdle();
  EXPECT_THAT(messages.Only().Text, StartsWith("At ListWords error # "));
  EXPECT_EQ(disk.Content("/out/new.xlsx"), std::nullopt);
}

TEST_F(Exports, AreStoppedWithoutAQuestionAndLeaveAFileAsItWas) {
  OpenWithEveryTurn();
  CountText();
  const std::string path = WriteFile("old.csv", "old");
  messages.WillAnswer(questions::kReplaceExport, Answer::Yes);
  Ask();
  Type("txbExportFile", path);
  bool asked = false;
  AtTheNextTurn([&] {
    asked = true;
    EXPECT_EQ(TextOf("cmdCountPhrases"), "stop");
    EXPECT_THAT(Status(), StartsWith("Exporting . . ."));
    EXPECT_FALSE(Command().isEnabled());
    Click("cmdCountPhrases");
  });
  Click("cmdExport");
  UntilIdle();
  EXPECT_TRUE(asked);
  EXPECT_EQ(Status(), "Stopped. The output file is as it was.");
  EXPECT_EQ(ReadFile(path), "old");
  EXPECT_EQ(messages.Shown.size(), 1U) << "only the question whether to replace it";
}

TEST_F(Exports, TellHowFarTheyAre) {
  OpenWithEveryTurn();
  std::string text;
  for (int k = 0; k < 200; ++k) {
    const std::string word = {static_cast<char>('a' + k % 20), static_cast<char>('a' + k / 20), 'x', 'y'};
    text += "count on " + word + " every day. count on " + word + " every day.\n";
  }
  CountText(text);
  Ask();
  Type("txbExportFile", PathOf("far.csv"));
  std::string seen;
  AtEveryTurn([&] {
    main->Run().tmrProgress_Timer();
    if (Dialog().isVisible()) return;
    const std::string status =
        main->findChild<QLabel*>(QStringLiteral("lblStatusText"))->text().toStdString();
    if (status.find(" of ") != status.npos) seen = status;
  });
  Click("cmdExport");
  UntilIdle();
  EXPECT_THAT(seen, StartsWith("Exporting . . . "));
  EXPECT_THAT(seen, EndsWith(" of 200 phrases"));
  EXPECT_THAT(Status(), StartsWith("200 phrases were written to "));
}

TEST_F(Exports, AreOfferedWhereTooManyRowsAreToBeCopied) {
  CountText();
  ASSERT_TRUE(Table().ExportWanted);
  Table().ExportWanted();
  EXPECT_TRUE(Dialog().isVisible());
}

TEST_F(Exports, OfARunThatWasKeptAreTheSame) {
  CountText();
  const std::string before = ReadFile(ExportTo("before.csv"));
  dialogs.WillChoose(PathOf("mine.korvrun"));
  for (const char* name : {"Keep run...", "Open kept run..."}) {
    for (QAction* action : main->menuBar()->actions().front()->menu()->actions())
      if (WithoutMnemonic(action->text()) == QLatin1String(name)) action->trigger();
    UntilShown();
    dialogs.WillChoose(PathOf("mine.korvrun"));
  }
  EXPECT_EQ(ReadFile(ExportTo("after.csv")), before);
}

}  // namespace
}  // namespace korv
