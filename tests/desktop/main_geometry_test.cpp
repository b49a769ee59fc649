// Where the controls of the main window and of those that it opens stand, in every state. Run once more on a
// screen of twice as many dots.

#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include "desktop/dialogs/frm_export.h"
#include "desktop/dialogs/frm_help.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/toolkit/text.h"
#include "tests/desktop/geometry.h"
#include "tests/desktop/scaled_window_test.h"

namespace korv {
namespace {

using testing::IsEmpty;

const char* const kText = "The white whale swam. The white whale swam.\n";

class MainGeometry : public ScaledWindowTest {
 protected:
  void ExpectAllIsWell(const std::string& state) {
    main->Timer1_Timer();
    EXPECT_THAT(GeometryFaultsInEverySize(*main), IsEmpty()) << state;
  }
  QWidget* TopLevel(const char* name) const {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->objectName() == QLatin1String(name)) return widget;
    }
    return nullptr;
  }
};

INSTANTIATE_TEST_SUITE_P(AtFontsOfPercent, MainGeometry, testing::Values(100, 200),
                         testing::PrintToStringParamName());

const char* const kSources[] = {"optOnClipboard", "optInFile", "optFolder"};

TEST_P(MainGeometry, IsWellBeforeAndAfterARunOfEverySource) {
  clipboard.Content = kText;
  const std::string file = WriteFile("texts/" + std::string(100, 'n') + ".txt", kText);
  for (const char* source : kSources) {
    Click(source);
    ExpectAllIsWell(std::string(source) + ", empty");
    Type("txbFile_0", file);
    Type("txbFolder", PathOf("texts"));
    Choose("cboPhraseLength_0", 0);
    ExpectAllIsWell(std::string(source) + ", chosen");
    Count();
    EXPECT_TRUE(main->Result().HasResult()) << source;
    ExpectAllIsWell(std::string(source) + ", counted");
    Type("txbFilterWords", "whale");
    Click("cmdFilterResults");
    ExpectAllIsWell(std::string(source) + ", filtered");
    Type("txbFilterWords", "");
  }
}

TEST_P(MainGeometry, IsWellDuringARunOfEverySource) {
  OpenWithEveryTurn();
  clipboard.Content = kText;
  const std::string file = WriteFile("texts/a.txt", kText);
  Type("txbFile_0", file);
  Type("txbFolder", PathOf("texts"));
  for (const char* source : kSources) {
    Click(source);
    bool looked = false;
    AtTheNextTurn([&] {
      looked = true;
      main->Run().Timer2_Timer();
      main->Run().tmrProgress_Timer();
      ExpectAllIsWell(std::string(source) + ", running");
    });
    Count();
    EXPECT_TRUE(looked) << source;
  }
}

TEST_P(MainGeometry, IsWellWithAListThatIsWrittenIntoAFile) {
  UseFile(kText);
  Type("txbFile_1", PathOf(std::string(150, 'o') + ".txt"));
  Count();
  ExpectAllIsWell("written");
}

TEST_P(MainGeometry, IsWellWithNotesOfEveryKindAndWayOut) {
  UseFile(kText);
  Count();
  // As long as the longest one that there is, which names every rule that left words out.
  const std::string text =
      "1,234,567 of 12,345,678 words left out: 123,456 shorter than 10 letters, 123,456 longer than 80 "
      "letters, 123,456 without a letter, 123,456 with a letter four times in a row, 123,456 words to "
      "ignore, "
      "123,456 with other than 7-bit characters.";
  auto* panel = Find<ResultNotesPanel>("notes");
  for (const QSize& size : {QSize(1000, 700), QSize(1366, 768), QSize(1920, 1080)}) {
    main->resize(size.expandedTo({main->minimumSizeHint().width(), size.height() * GetParam() / 100}));
    for (int kind = 0; kind <= static_cast<int>(NoteKind::Why); ++kind) {
      const auto way = static_cast<NoteAction>(kind % (static_cast<int>(NoteAction::Lengths) + 1));
      panel->ShowNotes({{NoteKind::Source, "Phrases of text.txt", {}},
                        {static_cast<NoteKind>(kind), text, {way, NoteAction::OpenFolder}},
                        {NoteKind::Empty, "One line.", {way}}});
      EXPECT_THAT(GeometryFaults(*main), IsEmpty()) << NameOf(static_cast<NoteKind>(kind));
    }
  }
}

TEST_P(MainGeometry, GivesANoteTheLinesThatItHasAndNoMore) {
  UseFile(kText);
  Count();
  main->resize(main->minimumSizeHint().expandedTo({1180, 860}));
  auto* panel = Find<ResultNotesPanel>("notes");
  const std::string three(3 * static_cast<size_t>(panel->width()) / 7, 'n');
  panel->ShowNotes({{NoteKind::Source, "Phrases of text.txt"},
                    {NoteKind::Filter, "One line.", {NoteAction::ShowAll}},
                    {NoteKind::WordsLeftOut, "Some " + three + " and " + three, {NoteAction::WordRules}},
                    {NoteKind::LongPhrases, "One line."}});
  QApplication::processEvents();
  for (const char* name : {"lblNote_Source", "lblNote_Filter", "lblNote_LongPhrases"}) {
    const auto* label = Find<QLabel>(name);
    EXPECT_LT(label->height(), 2 * label->fontMetrics().height()) << name;
  }
  const auto* longOne = Find<QLabel>("lblNote_WordsLeftOut");
  EXPECT_GE(longOne->height(), longOne->heightForWidth(longOne->width()));
}

TEST_P(MainGeometry, ShowsTwoRecentSourcesWhole) {
  UseFile(kText);
  Count();
  Type("txbFile_0", WriteFile("other.txt", kText));
  Count();
  for (const char* source : kSources) {
    Click(source);
    QApplication::processEvents();
    const auto* recent = Find<QListWidget>("lstRecent");
    ASSERT_EQ(recent->count(), 2) << source;
    EXPECT_TRUE(recent->viewport()->rect().contains(recent->visualItemRect(recent->item(1)))) << source;
  }
}

TEST_P(MainGeometry, KeepsEveryGroupInItsPlaceWhenTheSourceChanges) {
  const char* groups[] = {"fraSource", "fraPhrases", "fraWordsToIgnore"};
  std::map<std::string, QRect> places;
  for (const char* source : kSources) {
    Click(source);
    main->Timer1_Timer();
    QApplication::processEvents();
    for (const char* name : groups) {
      const QRect place = Find<QWidget>(name)->geometry();
      const auto [known, first] = places.emplace(name, place);
      EXPECT_EQ(known->second, place) << name << " with " << source;
    }
  }
}

TEST_P(MainGeometry, IsWellWithSeveralSources) {
  QStringList paths;
  for (int k = 0; k < 30; ++k)
    paths << ToQt(WriteFile(std::to_string(k) + std::string(60, 'n') + ".txt", kText));
  main->OpenPaths(paths);
  ASSERT_TRUE(Shown("lblTogether"));
  for (int i = 0; i < 4; ++i) QApplication::processEvents();
  ExpectAllIsWell("several sources");
}

TEST_P(MainGeometry, IsWellWhileItCompares) {
  const std::string b = WriteFile(std::string(100, 'n') + ".txt", kText);
  UseFile(kText);
  main->Work().CompareWith(ChangedBy::User, ComparedWith{b});
  for (const char* source : kSources) {
    Click(source);
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
    ExpectAllIsWell(std::string(source) + ", compares");
  }
  Click("optInFile");
  Choose("cboCompareBy", 2);
  Count();
  ASSERT_TRUE(main->Result().HasResult());
  for (const RunView view : {RunView::Report, RunView::Pictures}) {
    main->Panels().Frame->ShowView(view);
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
    ExpectAllIsWell("compared");
  }
  if (GetParam() != 100) return;
  const QSize least = main->minimumSizeHint();
  EXPECT_LE(least.width(), 1000);
  EXPECT_LE(least.height(), 700);
}

TEST_P(MainGeometry, FitsIntoASmallScreenInEveryState) {
  if (GetParam() != 100) GTEST_SKIP() << "letters twice as large want a larger screen";
#ifdef Q_OS_WIN
  // Its letters and controls are higher. On a lower screen the left column scrolls.
  const QSize small(1000, 740);
#else
  const QSize small(1000, 700);
#endif
  const auto expectRoom = [&](const char* state) {
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
    const QSize least = main->minimumSizeHint();
    EXPECT_LE(least.width(), small.width()) << state;
    EXPECT_LE(least.height(), small.height()) << state;
    main->resize(small);
    for (int i = 0; i < 4; ++i) QApplication::processEvents();
    EXPECT_FALSE(Find<QScrollArea>("scrOptions")->verticalScrollBar()->isVisible()) << state;
  };
  for (const char* source : kSources) {
    Click(source);
    main->Panels().Source->ShowFound("206 files in 12 folders, 31.0 Mb, UTF-8");
    expectRoom(source);
  }
  main->OpenPaths({ToQt(WriteFile("a.txt", kText)), ToQt(WriteFile("b.txt", kText))});
  expectRoom("several sources");
  UseFile(kText);
  Count();
  for (const RunView view : {RunView::Table, RunView::Report, RunView::Pictures}) {
    main->Panels().Frame->ShowView(view);
    expectRoom("counted");
  }
  // About as many notes as there ever are, above the view that needs the most room.
  main->Panels().Frame->ShowView(RunView::Report);
  std::vector<ResultNote> notes;
  for (const NoteKind kind :
       {NoteKind::Source, NoteKind::OtherSource, NoteKind::OtherRules, NoteKind::Written,
        NoteKind::OnlyInFile, NoteKind::WordsLeftOut, NoteKind::Skipped})
    notes.push_back({kind, "One line.", {NoteAction::CountAgain}});
  Find<ResultNotesPanel>("notes")->ShowNotes(notes);
  expectRoom("noted");
}

TEST_P(MainGeometry, LeavesNoRoomUnused) {
  for (const QSize& size : {QSize(1000, 700), QSize(1600, 1400)}) {
    main->resize(size.expandedTo(main->minimumSizeHint()));
    for (const char* source : kSources) {
      Click(source);
      main->Timer1_Timer();
      QApplication::processEvents();
      auto* column = Find<QGroupBox>("fraWordsToIgnore")->parentWidget();
      EXPECT_EQ(Find<QWidget>("fraWordsToIgnore")->geometry().bottom(), column->rect().bottom()) << source;
      // The list of recent sources has what the page of the source leaves over.
      const auto* pages = Find<QWidget>("stkSource");
      EXPECT_LE(pages->height(), pages->sizeHint().height()) << source;
      const auto* recent = Find<QWidget>("lstRecent");
      EXPECT_LT(Find<QWidget>("fraSource")->height() - recent->geometry().bottom(), 16) << source;
    }
  }
}

TEST_P(MainGeometry, IsWellInTheExport) {
  Type("txbFile_0", WriteFile("whale.txt", kText));
  Count();
  frmExport& window = *main->findChild<frmExport*>();
  main->Result().Tables().Export();
  for (int form = 0; form < window.cboExportForm->count(); ++form) {
    Choose("cboExportForm", form);
    EXPECT_THAT(GeometryFaultsInEverySize(window), IsEmpty()) << form;
  }
  Check("optExportAll");
  Type("txbExportFile", "/" + std::string(300, 'n') + ".csv");
  EXPECT_THAT(GeometryFaultsInEverySize(window), IsEmpty()) << "a long name";
}

TEST_P(MainGeometry, IsWellInTheHelpAndTheViewer) {
  Click("cmdHelp");
  Click("optOnClipboard");
  Click("cmdClipboardViewer");
  for (const char* name : {"frmHelp", "frmClipboard"}) {
    QWidget* window = TopLevel(name);
    ASSERT_NE(window, nullptr);
    EXPECT_THAT(GeometryFaultsInEverySize(*window), IsEmpty()) << name;
  }
  auto* help = dynamic_cast<frmHelp*>(TopLevel("frmHelp"));
  for (const char* searched : {"clipboard", "no such words"}) {
    help->txbSearch->setText(QLatin1String(searched));
    EXPECT_THAT(GeometryFaultsInEverySize(*help), IsEmpty()) << searched;
  }
}

}  // namespace
}  // namespace korv
