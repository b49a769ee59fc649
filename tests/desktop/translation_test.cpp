// Every text of the windows comes from the catalogue of the user's language: here one that puts each line
// between two brackets.

#include "base/translation.h"

#include <QDir>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <set>
#include <utility>

#include "desktop/dialogs/frm_clipboard.h"
#include "desktop/dialogs/frm_export.h"
#include "desktop/dialogs/frm_load_remove.h"
#include "desktop/main_window/source_surveyor.h"
#include "desktop/questions.h"
#include "desktop/results/contexts/contexts_of_side.h"
#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/contexts/contexts_table.h"
#include "desktop/results/contexts/text_view.h"
#include "desktop/results/pictures/picture_canvas.h"
#include "desktop/results/pictures/pictures_pane.h"
#include "desktop/results/run_tabs.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/results/table/table_bar.h"
#include "desktop/silence_rules.h"
#include "desktop/toolkit/qt_messages.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/guarded.h"
#include "report/writers/table_forms.h"
#include "tests/desktop/seen_texts.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

// Of no word that the program itself may use.
const char* const kText =
    "Alba burek cigno dora. Alba burek cigno dora. Ed alba burek cigno dora ed burek.\n"
    "Elmo fagot gatto. Elmo fagot gatto. Elmo fagot gatto. Fagot gatto ed elmo fagot.\n";

/// Words that are nobody's to translate: those of the texts, of names of files, of the program and of keys.
const QStringList kData = {
    QStringLiteral("alba"),     QStringLiteral("burek"), QStringLiteral("cigno"), QStringLiteral("dora"),
    QStringLiteral("ed"),       QStringLiteral("elmo"),  QStringLiteral("fagot"), QStringLiteral("gatto"),
    QStringLiteral("prima"),    QStringLiteral("terza"), QStringLiteral("testi"), QStringLiteral("txt"),
    QStringLiteral("Korv"),     QStringLiteral("ASCII"), QStringLiteral("UTF"),   QStringLiteral("korvrun"),
    QStringLiteral("{Folder}"), QStringLiteral("Shift"), QStringLiteral("F"),     QStringLiteral("Jan"),
};

class TranslatedWindows : public WindowTest {
 protected:
  void SetUp() override {
    UseTranslations(KORV_PSEUDO_LOCALE);
    for (const TableForm& form : TableForms()) data_.append(ToQt(form.Extension));
    static const QRegularExpression kNoLetters(QStringLiteral("[^\\p{L}]+"));
    for (const QString& path : {ToQt(PathToText(programFolder)), folder.path()})
      data_.append(path.split(kNoLetters, Qt::SkipEmptyParts));
    View = RunView::Table;
    messages.OnShow = [this](const Message& message) { told_.push_back(message); };
    ASSERT_TRUE(Start());
    LookAround("at the start");
  }
  void TearDown() override {
    EXPECT_GT(looks_, 1) << "a test looks at what it opens";
    for (const Message& message : told_) {
      for (const std::string& text : {message.Title, message.Text, message.Addition, message.YesButton,
                                      message.NoButton, message.ExtraButton})
        ExpectTranslated(text, "message");
    }
    for (const FakeMessages::InputBox& box : messages.InputBoxes) {
      ExpectTranslated(box.Title, "input box");
      ExpectTranslated(box.Prompt, "input box");
    }
    for (const std::vector<FileChoice>& choices : {dialogs.Opened, dialogs.Saved}) {
      for (const FileChoice& choice : choices) {
        ExpectTranslated(choice.Title, "chooser");
        const size_t patterns = choice.Filter.find(" (");
        ExpectTranslated(choice.Filter.substr(0, patterns), "filter of a chooser");
        EXPECT_EQ(ToQt(choice.Filter.substr(patterns)).indexOf(QChar(0x27E7)), -1) << "they are patterns";
      }
    }
    for (const std::string& title : dialogs.FolderTitles) ExpectTranslated(title, "chooser of folders");
  }

  void ExpectTranslated(const std::string& text, const char* what) const {
    const QStringList words = UntranslatedWords(ToQt(text), data_);
    EXPECT_TRUE(words.isEmpty()) << what << ": " << text << "\n  " << words.join(u' ').toStdString();
  }
  /// Looks at every text of every window when nothing goes on any more.
  void LookAround(const std::string& when) {
    UntilShown();
    main->Timer1_Timer();
    LookAtAll(when);
  }
  void LookAtAll(const std::string& when) {
    ++looks_;
    // Most texts are there all the time; each is told once.
    static std::set<std::string> told;
    for (const std::string& text : UntranslatedTexts(data_))
      if (told.insert(text).second) ADD_FAILURE() << when << ": " << text;
  }
  void UntilShown() const {
    UntilIdle();
    const ResultFrame& frame = *main->Panels().Frame;
    while (!frame.Table->Idle() || !frame.Contexts->Idle() || !frame.Pictures->Idle())
      QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    QApplication::processEvents();
  }
  ResultFrame& Frame() const { return *main->Panels().Frame; }
  void LookAtPictures() {
    Frame().ShowView(RunView::Pictures);
    for (int picture = 0; picture < Find<QComboBox>("cboPicture")->count(); ++picture) {
      Choose("cboPicture", picture);
      LookAround("picture " + std::to_string(picture));
#ifdef KORV_SVG
      const std::string path = PathOf("picture" + std::to_string(picture) + ".svg");
      dialogs.WillChoose(path);
      Click("cmdSavePicture");
      const QString svg = QString::fromStdString(ReadFile(path));
      static const QRegularExpression kTexts(QStringLiteral("<(text|title|desc)[^>]*>\\s*([^<]*)</"));
      int texts = 0;
      for (QRegularExpressionMatchIterator found = kTexts.globalMatch(svg); found.hasNext(); ++texts)
        ExpectTranslated(FromQt(found.next().captured(2)), "text of a picture");
      EXPECT_GT(texts, 2) << path;
#endif
    }
  }
  void CountFile() {
    Type("txbFile_0", WriteFile("terza.txt", kText));
    Count();
    UntilShown();
  }
  void CountFolder() {
    WriteFile("testi/prima.txt", kText);
    WriteFile("testi/terza.txt", kText);
    Click("optFolder");
    Type("txbFolder", PathOf("testi"));
    // A folder wants a file that takes what the window has no room for.
    Type("txbFile_1", PathOf("elmo.txt"));
    Count();
    UntilShown();
    ASSERT_GT(Frame().Table->tblPhrases->model()->rowCount(), 1);
  }
  /// A command of the menus, by its English caption.
  QAction& Command(const char* english) const {
    for (QAction* menu : main->menuBar()->actions())
      for (QAction* action : menu->menu()->actions())
        if (action->text() == QString(Tr(english))) return *action;
    ADD_FAILURE() << english;
    return *main->menuBar()->actions().front();
  }
  void Do(const char* english) const {
    ASSERT_TRUE(Command(english).isEnabled()) << english;
    Command(english).trigger();
    UntilShown();
  }

 private:
  QStringList data_ = kData;
  std::vector<Message> told_;
  int looks_ = 0;
};

TEST_F(TranslatedWindows, HaveACatalogueOfWhatTheySay) {
  EXPECT_EQ(TranslationLanguage(), "qps");
  EXPECT_EQ(TextOf("cmdQuit"), "⟦Quit⟧");
  EXPECT_EQ(UntranslatedWords(QStringLiteral("a ⟦b⟧ Korv"), kData), QStringList(QStringLiteral("a")));
  LookAround("once more");
}

TEST_F(TranslatedWindows, TellOfASourceBeforeItIsCounted) {
  main->Panels().Surveyor->tmrSurvey->setInterval(1);
  for (const char* source : {"optInFile", "optFolder", "optOnClipboard"}) {
    Click(source);
    LookAround(source);
  }
  WriteFile("testi/prima.txt", kText);
  WriteFile("testi/terza.txt", "");
  Click("optFolder");
  Type("txbFolder", PathOf("testi"));
  Click("cmdListFiles");
  LookAround("a folder");
  Type("txbFile_0", WriteFile("terza.txt", kText));
  Click("optInFile");
  QTest::qWait(50);
  while (!main->Panels().Surveyor->Idle()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
  LookAround("a file");
  for (const char* button : {"cmdFile_0", "cmdFolder", "cmdFile_1"}) Click(button);
  Type("txbFile_0", PathOf("dora.txt"));
  Count();
  LookAround("no such file");
}

TEST_F(TranslatedWindows, TellOfARunOfAFile) {
  CountFile();
  LookAround("the table");
  Frame().ShowView(RunView::Report);
  LookAround("the report");
  Frame().ShowView(RunView::Pictures);
  LookAround("the pictures");
  Click("cmdReportOptions");
  LookAround("without the options");
}

TEST_F(TranslatedWindows, TellOfAComparison) {
  Do("Co&mpare with...");
  LookAround("what to compare with");
  Count();
  for (const char* button : {"cmdComparedFile", "cmdComparedFolder"}) Click(button);
  Type("txbFile_0", WriteFile("terza.txt", kText));
  Type("txbCompared", PathOf("dora.txt"));
  Count();
  Type("txbCompared", PathOf("terza.txt"));
  Count();
  UntilShown();
  ASSERT_TRUE(main->Result().HasResult());
  LookAround("a file on both sides");
  Frame().ShowView(RunView::Report);
  LookAround("the report");
  emit Find<QToolButton>("cmdRecentPairs")->menu()->aboutToShow();
}

TEST_F(TranslatedWindows, TellOfTwoRunsThatAreCompared) {
  CountFile();
  Type("txbFile_0", WriteFile("prima.txt", kText));
  Count();
  WriteFile("terza.txt", std::string(kText) + kText);
  messages.WillAnswer(questions::kCompareChanged, Answer::No);
  main->Result().CompareRuns(1, 0);
  UntilShown();
  ASSERT_FALSE(files->Remove(PathFromText(PathOf("terza.txt"))));
  main->Result().CompareRuns(1, 0);
  UntilShown();
  Click("optOnClipboard");
  clipboard.Content = kText;
  Count();
  Count();
  main->Result().CompareRuns(2, 3);
  LookAround("runs that cannot be compared");
}

TEST_F(TranslatedWindows, TellOfARunOfAFolder) {
  ASSERT_NO_FATAL_FAILURE(CountFolder());
  LookAround("the table");
  Frame().Table->tblPhrases->GoTo(0);
  Click("cmdRowDetails");
  Click("cmdLimits");
  LookAround("details and limits");
  Type("txbLeast_frequency", "alba");
  LookAround("no number");
  Type("txbLeast_frequency", "2");
  LookAround("a limit");
  Type("txbMatch", "nobody said that");
  LookAround("filtered, nothing left");
  Find<QLineEdit>("txbMatch")->setText(QStringLiteral("("));
  Choose("cboMatchMode", 5);
  UntilShown();
  LookAround("a wrong expression");
}

TEST_F(TranslatedWindows, TellOfEveryFormatAndOrderOfTheReport) {
  ASSERT_NO_FATAL_FAILURE(CountFolder());
  Frame().ShowView(RunView::Report);
  Check("chkDisableOutputToFile");
  std::set<std::string> reports;
  for (const char* list : {"cboDisplayFormat", "cboWordOrder"}) {
    for (int item = 0; item < Find<QComboBox>(list)->count(); ++item) {
      Choose(list, item);
      LookAround(std::string(list) + " " + std::to_string(item));
      reports.insert(Output());
    }
  }
  EXPECT_GT(reports.size(), 12) << "each lists in another way";
  for (const char* box : {"chkDisplayRelativeFrequency", "chkSortByNumberOfFiles", "chkSuppressWords"}) {
    if (Enabled(box)) Check(box);
    LookAround(box);
  }
  Type("txbFilterWords", "burek");
  for (const char* mode :
       {"optIncludeAllWords", "optIncludeAllWordsInSameOrder", "optIncludeAllWordsAsSubphrase"}) {
    Click(mode);
    Click("cmdFilterResults");
    LookAround(mode);
  }
  Check("chkDisableOutputToFile", false);
  Type("txbFile_1", PathOf("prima.csv"));
  Count();
  LookAround("written to a file");
}

TEST_F(TranslatedWindows, TellOfOtherRunsAndRules) {
  CountFile();
  Choose("cboPhraseLength_0", 3);
  Choose("cboMinimumFrequency", 4);
  LookAround("other rules");
  Count();
  LookAround("nothing found");
  Click("optFolder");
  LookAround("another source");
  Click("optInFile");
  Do("Count single &words");
  LookAround("single words");
  Choose("cboPhraseLength_0", 0);
  Choose("cboMinimumFrequency", 0);
  Click("optExcludePhrasesWithWordToIgnore");
  Type("txbWordsToIgnoreOrCount_0", "burek");
  Type("txbWordsToIgnoreOrCount_1", "fagot");
  LookAround("words to ignore and to count");
  Count();
  LookAround("counted with them");
  Frame().Tabs->setCurrentIndex(0);
  LookAround("the first run");
  Do("Take settings of the run &back");
  LookAround("its settings");
}

TEST_F(TranslatedWindows, TellOfWhatIsDoneWithARow) {
  ASSERT_NO_FATAL_FAILURE(CountFolder());
  Frame().Table->Actions.IgnoreWord("burek");
  Frame().Table->tblPhrases->GoTo(0);
  Frame().Table->Actions.CountOnlyWith(Frame().Table->CurrentPhrase());
  Frame().Table->Actions.LeaveOut({Frame().Table->CurrentPhrase()});
  LookAround("chips");
  emit Frame().Table->tblPhrases->customContextMenuRequested({20, 20});
  LookAround("the menu of a row");
  for (QWidget* const popup : {QApplication::activePopupWidget()})
    if (popup != nullptr) popup->close();
  for (const char* entry : {"mnuParts_10", "mnuParts_other", "mnuParts_files"}) {
    QMenu* const menu = Find<QToolButton>("cmdColumns")->menu();
    emit menu->aboutToShow();
    auto* const action = menu->findChild<QAction*>(QLatin1String(entry));
    ASSERT_NE(action, nullptr) << entry;
    messages.WillType("1000");
    action->trigger();
    LookAround(entry);
  }
  QMenu* const presets = Find<QToolButton>("cmdPresets")->menu();
  emit presets->aboutToShow();
  const auto all = presets->actions();
  for (qsizetype preset = 0; preset < all.size(); ++preset) {
    emit presets->aboutToShow();
    presets->actions().at(preset)->trigger();
    LookAround("a preset");
  }
}

TEST_F(TranslatedWindows, TellWhereAPhraseStands) {
  ASSERT_NO_FATAL_FAILURE(CountFolder());
  Frame().Table->tblPhrases->GoTo(0);
  Frame().Contexts->ShowPhrase(Frame().Table->CurrentPhrase());
  LookAround("contexts");
  Click("chkContextFiles");
  Click("chkContextSample");
  LookAround("a sample, file by file");
  Click("chkContextFiles");
  UntilShown();
  Frame().Contexts->OfA->ShowText();
  UntilShown();
  ASSERT_NE(Frame().Contexts->OfA->frmText, nullptr);
  LookAround("the text");
  launcher.Result.Fault = LaunchFault::NoAssociation;
  Frame().Contexts->OfA->frmText->cmdOpenSource->click();
  for (const char* typed : {"alba gatto", "12", "ed", "alba burek"}) {
    Find<QLineEdit>("txbContextPhrase")->setText(QLatin1String(typed));
    QTest::keyClick(Frame().Contexts->txbContextPhrase, Qt::Key_Return);
    UntilShown();
    if (Enabled("cmdWhy")) Click("cmdWhy");
    LookAround(std::string("why not ") + typed);
  }
}

TEST_F(TranslatedWindows, PaintTheirTexts) {
  ASSERT_NO_FATAL_FAILURE(CountFolder());
  LookAtPictures();
}

TEST_F(TranslatedWindows, PaintTextsOfAComparison) {
  Do("Co&mpare with...");
  Type("txbFile_0", WriteFile("terza.txt", std::string(kText) + kText + kText));
  Type("txbCompared", WriteFile("prima.txt", kText));
  Count();
  UntilShown();
  LookAtPictures();
  ASSERT_NE(Frame().Pictures->picCanvas->Shown(), nullptr);
  ASSERT_NE(Frame().Pictures->picCanvas->Shown()->WithPoints(), nullptr);
  QTest::keyClick(Frame().Pictures->picCanvas, Qt::Key_Home);
  LookAround("a picked point");
}

TEST_F(TranslatedWindows, TellOfSettings) {
  main->Params().show();
  for (const char* kind : {"optWordsToIgnore", "optCountOnlyWordsAndPhrases", "optWordsToIgnore"}) {
    Click(kind);
    LookAround(kind);
    dialogs.WillChoose(
        WriteFile(std::string("testi/") + (kind[3] == 'W' ? "prima" : "terza") + ".txt", "alba\nburek"));
    Click("cmdSelectWordsFile");
    LookAround(std::string(kind) + " from a file");
  }
  for (const char* button : {"cmdSetOrClearCheckboxes_0", "cmdSetOrClearCheckboxes_1", "cmdRestoreDefaults",
                             "cmdUndo", "cmdInitialize", "cmdAskEverythingAgain", "cmdClearWordsFile"}) {
    InParams<QAbstractButton>(button)->click();
    LookAround(button);
  }
  for (const char* button : {"cmdSaveLoadState_1", "cmdSaveLoadState_0"}) {
    dialogs.WillChoose(PathOf("prima.txt"));
    Click(button);
    LookAround(button);
  }
  dialogs.WillChoose(PathOf("testi/ed/dora.txt"));
  Click("cmdSaveLoadState_1");
  dialogs.WillChoose(PathOf("terza.txt"));
  Click("cmdSaveLoadState_0");
  LookAround("not loaded");
  Type("txbSample", "12 34");
  LookAround("a sample without words");
}

TEST_F(TranslatedWindows, AskInTheSameLanguage) {
  ASSERT_NO_FATAL_FAILURE(CountFolder());
  Do("&Help");
  LookAround("help");
  Do("&About Korv");
  clipboard.Content = kText;
  Do("View clip&board");
  LookAround("clipboard");
  frmLoadRemove dialog(QStringLiteral("/testi/prima.txt"), &main->Params());
  dialog.show();
  LookAround("load or remove");
  dialog.close();
  Do("&Export...");
  LookAround("export");
  const std::string path = PathOf("prima.csv");
  for (const char* what : {"optExportShown", "optExportAll"}) {
    if (!main->findChild<frmExport*>()->isVisible()) Do("&Export...");
    Click(what);
    LookAround(what);
    messages.WillAnswer(questions::kReplaceExport, Answer::Yes);
    Type("txbExportFile", path);
    Check("chkExportDescribed");
    Click("cmdExport");
    LookAround(std::string(what) + ", exported");
  }
  Do("&Export...");
  Type("txbExportFile", PathOf("testi/ed/dora.csv"));
  Click("cmdExport");
  Click("cmdExportCancel");
}

TEST_F(TranslatedWindows, TellOfWhatGoesOn) {
  OpenWithEveryTurn();
  Type("txbFile_0", WriteFile("terza.txt", kText));
  int turns = 0;
  AtEveryTurn([&] {
    ++turns;
    main->Run().Timer2_Timer();
    main->Run().tmrProgress_Timer();
    LookAtAll("while it counts");
  });
  Count();
  EXPECT_GT(std::exchange(turns, 0), 0);
  const std::string path = PathOf("prima.korvrun");
  dialogs.WillChoose(path);
  Do("&Keep run...");
  EXPECT_GT(std::exchange(turns, 0), 0);
  dialogs.WillChoose(path);
  Do("Open kept ru&n...");
  EXPECT_GT(std::exchange(turns, 0), 0);
  Do("&Export...");
  Type("txbExportFile", PathOf("prima.csv"));
  Click("cmdExport");
  EXPECT_GT(std::exchange(turns, 0), 0);
  everyTurn.OnTurn = {};
  LookAround("done");
}

TEST_F(TranslatedWindows, TellOfARunThatIsStopped) {
  OpenWithEveryTurn();
  Type("txbFile_0", WriteFile("terza.txt", kText));
  AtTheNextTurn([this] { Find<QAbstractButton>("cmdCountPhrases")->click(); });
  Count();
  LookAround("stopped");
  Frame().ShowView(RunView::Report);
  LookAround("the report of what was read");
}

TEST_F(TranslatedWindows, ShowMessagesInBoxes) {
  QtMessages boxes(*store, SilenceRules());
  int shown = 0;
  const auto lookAndClose = [&] {
    QTimer::singleShot(0, main.get(), [&] {
      auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      ++shown;
      LookAtAll("a box");
      box->reject();
    });
  };
  lookAndClose();
  boxes.Show({.Text = Tr("Really quit?"),
              .Title = Tr("Quit"),
              .Buttons = Buttons::YesNoCancel,
              .Question = questions::kReallyQuit});
  lookAndClose();
  boxes.AskText(Tr("Number of equal parts of each file (2 to 100):"), Tr("Parts of the text"), "");
  EXPECT_EQ(shown, 2);
  ShowInsufficientMemory(messages);
  ShowUnexpectedError(messages, "alba", "dora");
}

TEST_F(TranslatedWindows, TellOfKeptRuns) {
  CountFile();
  const std::string path = PathOf("prima.korvrun");
  dialogs.WillChoose(path);
  Do("&Keep run...");
  LookAround("kept");
  dialogs.WillChoose(WriteFile("terza.korvrun", "no run"));
  Do("Open kept ru&n...");
  LookAround("not opened");
}

}  // namespace
}  // namespace korv
