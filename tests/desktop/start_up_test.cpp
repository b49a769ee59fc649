// Start-up, the housekeeping timer, help, and quitting.

#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <set>

#include "app/run/questions.h"
#include "app/settings/questions.h"
#include "desktop/dialogs/frm_popup.h"
#include "desktop/questions.h"
#include "desktop/silence_rules.h"
#include "sources/questions.h"
#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class StartUp : public WindowTest {
 protected:
  /// Like Start(), but what was shown is kept.
  bool StartShowing(Answer commonWords) {
    messages.WillAnswer(questions::kFirstCommonWords, commonWords);
    MakeWindow();
    return main->Form_Load();
  }
};

TEST_F(StartUp, SelectsTheDefaults) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Checked("optInFile"));
  EXPECT_EQ(TextOf("cboPhraseLength_0"), "4");
  EXPECT_EQ(TextOf("cboPhraseLength_1"), "6");
  EXPECT_EQ(TextOf("cboMinimumFrequency"), "2");
  EXPECT_TRUE(Checked("optExcludePhrasesAllWordsToIgnore"));
  EXPECT_EQ(ItemOf("cboWordOrder"), 0);
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
  EXPECT_TRUE(Checked("optIncludeAllWords"));
  for (const char* name : {"chkSortByNumberOfFiles", "chkDisplayRelativeFrequency", "chkDisableOutputToFile",
                           "chkIncludeSubfolders"}) {
    EXPECT_FALSE(Checked(name)) << name;
  }
}

TEST_F(StartUp, EndsOnTheCountButtonWithoutFilterWords) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(main->focusWidget()->objectName().toStdString(), "cmdCountPhrases");
  EXPECT_EQ(TextOf("txbFilterWords"), "");
  EXPECT_FALSE(Enabled("cmdClear"));
}

TEST_F(StartUp, ChecksAndHidesTheChoiceToShowWordsAsFound) {
  ASSERT_TRUE(Start());
  EXPECT_TRUE(Checked("chkSuppressWords"));
  EXPECT_FALSE(Shown("chkSuppressWords"));
}

TEST_F(StartUp, HidesWhatDoesNotApply) {
  ASSERT_TRUE(Start());
  for (const char* name : {"cmdListFiles", "lblTimeElapsed", "chkFileList", "txbStateFile",
                           "txbFileFilepathSpecifications_0", "txbFolder", "cmdClipboardViewer"}) {
    EXPECT_FALSE(Shown(name)) << name;
  }
}

TEST_F(StartUp, SelectsLongWordsOfFortyBeforeAnyStateIsRestored) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(TextOf("cboShortWordSize"), "3");
  EXPECT_EQ(TextOf("cboLongWordSize"), "40");
}

TEST_F(StartUp, OffersTheCommonWordsOfEnglishAndLoadsThem) {
  ASSERT_TRUE(StartShowing(Answer::Yes));
  EXPECT_NE(RuleFor(SilenceRules(), messages.Only().Question), nullptr);
  EXPECT_THAT(Shown(), ElementsAre("Words to ignore | No file of words to ignore has been specified.\n\n"
                                   "Do you wish to ignore the most common words of English?"));
  EXPECT_EQ(ItemOf("cboCommonWordsLanguages"), 0);
  EXPECT_THAT(TextOf("cboWordsFile"), testing::EndsWith("cwds_en.txt"));
  EXPECT_THAT(TextOf("lblState"), testing::EndsWith(" words-to-ignore loaded"));
  EXPECT_EQ(TextOf("lblWordsToIgnoreNotice"),
            "This operation uses the words-to-ignore specifications in the 'Settings' window.");
}

TEST_F(StartUp, SelectsNoLanguageWhenTheCommonWordsAreNotWanted) {
  ASSERT_TRUE(StartShowing(Answer::No));
  EXPECT_EQ(TextOf("cboCommonWordsLanguages"), "[No language selected]");
  EXPECT_EQ(TextOf("lblWordsToIgnoreNotice"), "No words-to-ignore are specified in the 'Settings' window.");
}

TEST_F(StartUp, EndsAtOnceWithoutTheProgramsTexts) {
  programText = PathOf("missing.dat");
  MakeWindow();
  EXPECT_FALSE(main->Form_Load());
  ASSERT_EQ(messages.Shown.size(), 1U);
  EXPECT_EQ(messages.Shown[0].Text, "Cannot open file containing program text.");
  EXPECT_EQ(messages.Shown[0].Icon, Icon::Critical);
}

TEST_F(StartUp, SetsAFolderFormatBackWhenTheSourceIsNoFolder) {
  ASSERT_TRUE(Start());
  Click("optFolder");
  Choose("cboDisplayFormat", 11);
  Click("cmdSaveState");
  // The same file with the clipboard as source.
  std::string state = ReadFile(StatePath());
  const std::string source = "-1\r\n2\r\n";  // No word list, then the folder.
  const size_t at = state.find("\r\n0\r\n" + source);
  ASSERT_NE(at, state.npos);
  state.replace(at + 5, source.size(), "-1\r\n0\r\n");
  WriteFile("config/korv.usr", state);
  messages.Forget();
  ASSERT_TRUE(StartShowing(Answer::No));
  EXPECT_TRUE(Checked("optOnClipboard"));
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
  EXPECT_THAT(Shown(), ElementsAre(StartsWith("Words to ignore | "))) << "and says nothing of it";
}

TEST_F(StartUp, KeepsTheFilterWordsOfTheStateFile) {
  ASSERT_TRUE(Start());
  Type("txbFilterWords", "white whale");
  Click("cmdSaveState");
  ASSERT_TRUE(Start());
  EXPECT_EQ(TextOf("txbFilterWords"), "white whale");
  EXPECT_TRUE(Enabled("cmdClear"));
}

TEST_F(StartUp, TellsOfADamagedStateFileAndGoesOn) {
  WriteFile("config/korv.usr", "\"folder\"\r\nnonsense");
  messages.WillAnswer(questions::kSetDefaults, Answer::No);
  ASSERT_TRUE(StartShowing(Answer::No));
  EXPECT_THAT(Shown(),
              testing::Contains(HasSubstr("Load settings | Error when attempting to load settings: ")));
}

TEST_F(StartUp, RemembersTheWindowsGeometry) {
  ASSERT_TRUE(Start());
  main->resize(1111, 777);
  Click("cmdQuit");
  ASSERT_TRUE(Start());
  EXPECT_EQ(main->size(), QSize(1111, 777));
}

TEST_F(StartUp, RemembersTheGeometryOfTheSettingsWindowOnceItWasShown) {
  ASSERT_TRUE(Start());
  Click("cmdQuit");
  EXPECT_FALSE(store->contains(QStringLiteral("geometry/settings")));
  ASSERT_TRUE(Start());
  const QRect screen = main->screen()->availableGeometry();
  EXPECT_LE(std::abs(main->Params().geometry().center().x() - screen.center().x()), 1);
  Click("cmdSetParameters");
  const QSize size = main->Params().size() + QSize(22, 11);
  main->Params().resize(size);
  Click("cmdQuit");
  ASSERT_TRUE(Start());
  Click("cmdQuit");
  ASSERT_TRUE(Start());
  EXPECT_EQ(main->Params().size(), size);
}

// ---- The housekeeping timer

TEST_F(StartUp, EnablesEachClearButtonOnlyWhenItsBoxHoldsText) {
  ASSERT_TRUE(Start());
  const std::pair<const char*, const char*> pairs[] = {
      {"txbFile_0", "cmdClearFile_0"},
      {"txbFile_1", "cmdClearFile_1"},
      {"txbFolder", "cmdClearFolder"},
      {"txbWordsToIgnoreOrCount_0", "cmdClearWordsToIgnoreOrCount"}};
  for (const auto& [box, button] : pairs) {
    EXPECT_FALSE(Enabled(button)) << button;
    Type(box, "text");
    main->Timer1_Timer();
    EXPECT_TRUE(Enabled(button)) << button;
    Click(button);
    main->Timer1_Timer();
    EXPECT_EQ(TextOf(box), "") << box;
    EXPECT_FALSE(Enabled(button)) << button;
  }
  for (const bool filled : {false, true, false}) {
    Find<QPlainTextEdit>("txbOutput")->setPlainText(filled ? QStringLiteral("text") : QString());
    Find<QComboBox>("cboWordsFile")->clear();
    if (filled) Find<QComboBox>("cboWordsFile")->addItem(QStringLiteral("/list.txt"));
    main->Timer1_Timer();
    for (const char* name : {"cmdClearOutput", "cboWordsFile", "cmdClearWordsFile"}) {
      EXPECT_EQ(Enabled(name), filled) << name;
    }
  }
}

TEST_F(StartUp, ShowsPathsInToolTips) {
  ASSERT_TRUE(Start());
  for (const char* box : {"txbFile_0", "txbFile_1", "txbFolder"}) {
    const std::string before = TipOf(box);
    Type(box, "/somewhere/a text.txt");
    main->Timer1_Timer();
    EXPECT_EQ(TipOf(box), "/somewhere/a text.txt") << box;
    Type(box, "");
    main->Timer1_Timer();
    EXPECT_EQ(TipOf(box), before) << box;
  }
}

TEST_F(StartUp, DoesItsHousekeepingWhenTheTimerTicks) {
  ASSERT_TRUE(Start());
  Type("txbFile_1", "/somewhere/a text.txt");
  main->Timer1->setInterval(0);
  EXPECT_TRUE(QTest::qWaitFor([this] { return TipOf("txbFile_1") == "/somewhere/a text.txt"; }));
}

TEST_F(StartUp, SuggestsAWiderWindowWhenLinesAreWiderThanTheBox) {
  ASSERT_TRUE(Start());
  main->Timer1_Timer();
  EXPECT_EQ(TipOf("txbOutput"), "");
  Find<QPlainTextEdit>("txbOutput")->setPlainText(QString(2000, u'w'));
  QApplication::processEvents();
  main->Timer1_Timer();
  EXPECT_EQ(TipOf("txbOutput"), "You may need to increase the width.");
}

TEST_F(StartUp, TicksEverySecond) {
  ASSERT_TRUE(Start());
  EXPECT_EQ(main->Timer1->interval(), 1000);
  EXPECT_TRUE(main->Timer1->isActive());
  EXPECT_EQ(main->Panels().Run->Timer2->interval(), 1000);
  EXPECT_FALSE(main->Panels().Run->Timer2->isActive());
}

// ---- Help, menus, quitting

QWidget* TopLevel(const char* name) {
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->objectName() == QLatin1String(name)) return widget;
  }
  return nullptr;
}

TEST_F(StartUp, SavesTheStateWhenQuittingOnlyIfThatIsWanted) {
  ASSERT_TRUE(Start());
  Click("cmdQuit");
  EXPECT_FALSE(main->isVisible());
  EXPECT_FALSE(std::filesystem::exists(StatePath()));
  ASSERT_TRUE(Start());
  Check("chkSaveStateOnQuit");
  main->close();
  EXPECT_FALSE(main->isVisible());
  EXPECT_TRUE(std::filesystem::exists(StatePath()));
}

TEST_F(StartUp, TellsOfAStateThatCannotBeSavedAndQuitsAllTheSame) {
  ASSERT_TRUE(Start());
  Check("chkSaveStateOnQuit");
  Type("txbFile_0", "a \"quoted\" name.txt");
  Click("cmdQuit");
  EXPECT_THAT(Shown(), ElementsAre(StartsWith("Save state | Error when attempting to save state: ")));
  EXPECT_FALSE(main->isVisible());
}

TEST_F(StartUp, AsksBeforeTheSettingsWindowQuits) {
  ASSERT_TRUE(Start());
  messages.WillAnswer(questions::kReallyQuit, Answer::No);
  ClickInParams("cmdQuit");
  EXPECT_TRUE(main->isVisible());
  EXPECT_THAT(Shown(), ElementsAre("Quit | Really quit?"));
  messages.WillAnswer(questions::kReallyQuit, Answer::Yes);
  ClickInParams("cmdQuit");
  EXPECT_FALSE(main->isVisible());
}

TEST_F(StartUp, OpensTheSettingsWindowAndOnlyHidesIt) {
  ASSERT_TRUE(Start());
  Click("cmdSetParameters");
  EXPECT_TRUE(main->Params().isVisible());
  EXPECT_FALSE(main->Params().isModal());
  EXPECT_EQ(main->Params().windowModality(), Qt::NonModal);
  Check("chkOnly7bitASCII");
  ClickInParams("cmdClose");
  EXPECT_FALSE(main->Params().isVisible());
  Click("cmdSetParameters");
  EXPECT_TRUE(main->Params().isVisible());
  main->Params().close();
  EXPECT_FALSE(main->Params().isVisible());
  EXPECT_TRUE(Checked("chkOnly7bitASCII"));
}

TEST_F(StartUp, RepeatsItsCommandsInMenusWithKeys) {
  ASSERT_TRUE(Start());
  std::map<std::string, std::string> keys;
  for (const QAction* action : main->findChildren<QAction*>()) {
    if (!action->shortcut().isEmpty()) {
      keys[WithoutMnemonic(action->text()).toStdString()] =
          action->shortcut().toString(QKeySequence::PortableText).toStdString();
    }
  }
  EXPECT_EQ(keys["Open file..."], "Ctrl+O");
  EXPECT_EQ(keys["Save settings"], "Ctrl+S");
  EXPECT_EQ(keys["Filter words"], "Ctrl+F");
  EXPECT_EQ(keys["Help"], "F1");
  EXPECT_EQ(keys["Stop"], "Esc");
  EXPECT_EQ(keys["Count phrases"], "Ctrl+Return");
  EXPECT_EQ(keys["Normal text size"], "Ctrl+0");
  EXPECT_EQ(keys["Go to the source"], "Ctrl+L");
  EXPECT_EQ(keys["Save list as..."], "Ctrl+Shift+S");
  EXPECT_EQ(keys["Left column"], "Ctrl+B");
  EXPECT_EQ(keys["Table"], "Alt+1");
  EXPECT_EQ(keys["Report"], "Alt+2");
  EXPECT_EQ(keys["Next occurrence"], "F3");
}

TEST_F(StartUp, CountsAgainWithFunctionKeyFive) {
  ASSERT_TRUE(Start());
  UseFile("the old man said, the old man said.\n");
  EXPECT_FALSE(main->Result().HasResult());
  main->activateWindow();
  QTest::keyClick(main.get(), Qt::Key_F5);
  UntilIdle();
  EXPECT_TRUE(main->Result().HasResult());
}

TEST_F(StartUp, RestoresTheSizeOfTheResultsText) {
  ASSERT_TRUE(Start());
  const auto size = [this] { return Find<QPlainTextEdit>("txbOutput")->font().pointSizeF(); };
  const double before = size();
  for (const char* other : {"Larger text", "Smaller text"}) {
    for (QAction* action : main->findChildren<QAction*>()) {
      if (WithoutMnemonic(action->text()) == QLatin1String(other)) {
        action->trigger();
        action->trigger();
      }
    }
    EXPECT_NE(size(), before) << other;
    QTest::keyClick(main.get(), Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(size(), before) << other;
  }
}

TEST_F(StartUp, LetsTabLandOnTheSelectedOption) {
  ASSERT_TRUE(Start());
  const std::vector<const char*> groups[] = {
      {"optOnClipboard", "optInFile", "optFolder"},
      {"optAllowPhrasesAllWordsToIgnore", "optExcludePhrasesAllWordsToIgnore",
       "optExcludePhrasesWithWordToIgnore", "optRemoveWordsToIgnore"},
      {"optIncludeAllWords", "optIncludeAllWordsInSameOrder", "optIncludeAllWordsAsSubphrase"},
      {"optWordsToIgnore", "optCountOnlyWordsAndPhrases"}};
  const auto expectOnly = [this](const std::vector<const char*>& group, const char* selected) {
    for (const char* option : group) {
      EXPECT_EQ((Find<QRadioButton>(option)->focusPolicy() & Qt::TabFocus) != 0, option == selected)
          << option << " with " << selected;
    }
  };
  for (const auto& group : groups) {
    for (const char* selected : group) {
      Click(selected);
      expectOnly(group, selected);
      Find<QRadioButton>(selected)->setFocus(Qt::TabFocusReason);
      expectOnly(group, selected);
    }
  }
  // Settings select without a click.
  main->Work().Change(ChangedBy::Program, [](Settings& s) { s.SourceKind = TextSource::Clipboard; });
  expectOnly(groups[0], "optOnClipboard");
}

TEST_F(StartUp, LetsTabLeadThroughEveryControlOfTheColumn) {
  ASSERT_TRUE(Start());
  UseFile("the old man said, the old man said.\n");
  Find<QWidget>("optInFile")->setFocus();
  std::vector<std::string> path;
  for (int i = 0; i < 10; ++i) {
    path.push_back(main->focusWidget()->objectName().toStdString());
    QTest::keyClick(main.get(), Qt::Key_Tab);
  }
  EXPECT_THAT(path, ElementsAre("optInFile", "cmdFile_0", "txbFile_0", "cmdClearFile_0", "cboReading",
                                "lstRecent", "cboPhraseLength_0", "cboPhraseLength_1", "cboMinimumFrequency",
                                "optExcludePhrasesAllWordsToIgnore"));
}

TEST_F(StartUp, LetsQuestionsThatComeBackBeSilenced) {
  std::set<Question> asked;
  messages.OnShow = [&](const Message& message) { asked.insert(message.Question); };
  ASSERT_TRUE(StartShowing(Answer::Yes));
  Click("cmdSaveState");
  ASSERT_TRUE(StartShowing(Answer::Yes));
  std::string text;
  while (text.size() <= 200001) text += "Der B\xC3\xA4r mag H\xC3\xB6rnchen. ";
  UseFile(text);
  Type("txbFilterWords", "mag");
  messages.WillAnswer(questions::kLargeInput, Answer::No);
  Choose("cboMinimumFrequency", 0);
  Count();
  for (const Question question :
       {questions::kFirstCommonWords, questions::kLoadWordFile, questions::kLargeInput,
        questions::kTextEncoding, questions::kKeepFilter, questions::kMinimumFrequency}) {
    EXPECT_TRUE(asked.contains(question)) << question.Name();
    EXPECT_NE(RuleFor(SilenceRules(), question), nullptr) << question.Name();
  }
  Click("cmdQuit");
}

// ---- Settings that quitting would forget

class Quitting : public StartUp {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Start());
    Choose("cboPhraseLength_1", 9);
  }
  bool Saved() const { return std::filesystem::exists(StatePath()); }
};

TEST_F(Quitting, AsksWhetherChangedSettingsAreToBeKept) {
  Click("cmdQuit");
  ASSERT_EQ(messages.Shown.size(), 1U);
  const Message& asked = messages.Shown[0];
  EXPECT_EQ(asked.Text,
            "You have changed settings that would be forgotten.\n"
            "Do you wish to keep them for the next start?");
  EXPECT_EQ(asked.Title, "Quit");
  EXPECT_EQ(asked.Question, questions::kKeepSettings);
  EXPECT_EQ(asked.Buttons, Buttons::YesNo);
  EXPECT_EQ(asked.DefaultAnswer, Answer::No);
  EXPECT_EQ(asked.ExtraButton, "&Always");
  EXPECT_EQ(asked.YesButton, "&This time");
  EXPECT_EQ(asked.NoButton, "&Not now");
  const SilenceRule* rule = RuleFor(SilenceRules(), asked.Question);
  ASSERT_NE(rule, nullptr);
  EXPECT_EQ(rule->Answer, Answer::No);
  EXPECT_FALSE(main->isVisible());
  EXPECT_FALSE(Saved()) << "as if nobody had been asked";
}

TEST_F(Quitting, KeepsThemThisTime) {
  messages.WillAnswer(questions::kKeepSettings, Answer::Yes);
  main->close();
  EXPECT_TRUE(Saved());
  ASSERT_TRUE(Start());
  EXPECT_EQ(ItemOf("cboPhraseLength_1"), 9);
  EXPECT_FALSE(Checked("chkSaveStateOnQuit"));
}

TEST_F(Quitting, KeepsThemAlways) {
  messages.WillAnswer(questions::kKeepSettings, Answer::Extra);
  Click("cmdQuit");
  ASSERT_TRUE(Start());
  EXPECT_EQ(ItemOf("cboPhraseLength_1"), 9);
  EXPECT_TRUE(Checked("chkSaveStateOnQuit"));
  Choose("cboPhraseLength_1", 7);
  Click("cmdQuit");
  EXPECT_THAT(Shown(), IsEmpty()) << "they are saved without a question";
  ASSERT_TRUE(Start());
  EXPECT_EQ(ItemOf("cboPhraseLength_1"), 7);
}

TEST_F(Quitting, AsksNothingWhenNothingWouldBeMissed) {
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"nothing was changed", [] {}},
      {"saved", [this] { Choose("cboPhraseLength_1", 8), Click("cmdSaveState"); }},
      {"saved under a name",
       [this] {
         Choose("cboPhraseLength_1", 7);
         EXPECT_EQ(main->SaveStateTo(PathFromText(PathOf("mine.korv"))), "");
       }},
      {"loaded from a file", [this] { main->OpenPaths({QString::fromStdString(PathOf("mine.korv"))}); }},
      {"only another file was counted",
       [this] { UseFile("the old man said, the old man said.\n"), Count(); }},
      {"set back by hand", [this] {
         const int before = ItemOf("cboPhraseLength_0");
         Choose("cboPhraseLength_0", 0);
         Choose("cboPhraseLength_0", before);
       }}};
  for (const auto& [name, act] : cases) {
    ASSERT_TRUE(Start());
    act();
    messages.Forget();
    Click("cmdQuit");
    EXPECT_THAT(Shown(), IsEmpty()) << name;
    EXPECT_FALSE(main->isVisible()) << name;
  }
}

TEST_F(Quitting, TellsWhenTheyCannotBeKeptAndQuitsAllTheSame) {
  Type("txbFile_0", "a \"quoted\" name.txt");
  messages.Forget();
  messages.WillAnswer(questions::kKeepSettings, Answer::Yes);
  Click("cmdQuit");
  EXPECT_THAT(Shown(), ElementsAre(StartsWith("Quit | You have changed settings"),
                                   StartsWith("Save state | Error when attempting to save state: ")));
  EXPECT_FALSE(main->isVisible());
}

TEST_F(Quitting, AsksOnceWhenARunHasToEndFirst) {
  OpenWithEveryTurn();
  Choose("cboPhraseLength_1", 9);
  UseFile("the old man said, the old man said.\n");
  messages.WillAnswer(questions::kReallyQuit, Answer::Yes);
  messages.WillAnswer(questions::kKeepSettings, Answer::Yes);
  messages.Forget();
  AtTheNextTurn([this] { Click("cmdQuit"); });
  Count();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !main->isVisible(); }));
  EXPECT_THAT(Shown(), ElementsAre("Quit | Really quit?", StartsWith("Quit | You have changed settings")));
  EXPECT_TRUE(Saved());
}

TEST_F(StartUp, ShowsTheClipboardWhereTheSystemHasNoViewer) {
  ASSERT_TRUE(Start());
  clipboard.Content = "what was copied\r\nbefore";
  Click("optOnClipboard");
  Click("cmdClipboardViewer");
  auto* viewer = TopLevel("frmClipboard");
  ASSERT_NE(viewer, nullptr);
  EXPECT_EQ(viewer->findChild<QPlainTextEdit*>()->toPlainText().toStdString(), "what was copied\nbefore");
  EXPECT_TRUE(viewer->findChild<QPlainTextEdit*>()->isReadOnly());
  EXPECT_LE((viewer->frameGeometry().center() - main->frameGeometry().center()).manhattanLength(), 4);

  launcher.HasViewer = true;
  viewer->hide();
  Click("cmdClipboardViewer");
  EXPECT_EQ(launcher.ViewersAsked, 2);
  EXPECT_FALSE(viewer->isVisible());
}

}  // namespace
}  // namespace korv
