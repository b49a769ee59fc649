// The Settings window's words to ignore and to count.

#include <QTimer>
#include <stdexcept>
#include <tuple>

#include "app/settings/questions.h"
#include "desktop/dialogs/frm_load_remove.h"
#include "desktop/settings_window/word_lists_panel.h"
#include "tests/desktop/window_test.h"
#include "wordlists/questions.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class Words : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  void AddFile(const std::string& name, const std::string& bytes) {
    dialogs.WillChoose(WriteFile(name, bytes));
    Click("cmdSelectWordsFile");
  }
  /// Answers the dialog that the next choice in the list of files opens.
  void WillDo(const char* option) {
    QTimer::singleShot(0, main.get(), [this, option] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->windowTitle().toStdString(), "Load or remove this file");
      EXPECT_EQ(dialog->findChild<QLabel*>(QStringLiteral("lblFile"))->text().toStdString(),
                TextOf("cboWordsFile"));
      const std::pair<const char*, const char*> captions[] = {{"optLoad", "Load this file"},
                                                              {"optRemove", "Remove this file from the list"},
                                                              {"optCancel", "Cancel"},
                                                              {"cmdClose", "Close"}};
      for (const auto& [name, caption] : captions) {
        const auto* button = dialog->findChild<QAbstractButton*>(QLatin1String(name));
        EXPECT_EQ(WithoutMnemonic(button->text()).toStdString(), caption);
      }
      if (option == nullptr) return dialog->reject();
      dialog->findChild<QRadioButton*>(QLatin1String(option))->click();
      dialog->findChild<QPushButton*>(QStringLiteral("cmdClose"))->click();
    });
  }
};

TEST_F(Words, AreLoadedFromAFileThatIsAddedToTheList) {
  AddFile("list.txt", "the of\nand");
  EXPECT_EQ(dialogs.Opened.at(0).Title, "Specify a file containing words to ignore");
  EXPECT_EQ(dialogs.Opened.at(0).Filter, "Any text file (*.*) | *.*");
  EXPECT_EQ(TextOf("cboWordsFile"), PathOf("list.txt"));
  EXPECT_EQ(TipOf("cboWordsFile"), PathOf("list.txt"));
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (1)");
  EXPECT_EQ(TextOf("lblWordsState"), "In the list: list.txt");
  EXPECT_EQ(TextOf("lblState"), "3 words-to-ignore loaded");
  EXPECT_EQ(TextOf("lblWordsToIgnoreNotice"),
            "This operation uses the words-to-ignore specifications in the 'Settings' window.");
  EXPECT_EQ(Output(), "");
  EXPECT_TRUE(Enabled("cmdCountPhrases"));
}

TEST_F(Words, OfAnEmptyFileAreNone) {
  AddFile("list.txt", "\n   \n\n");
  EXPECT_EQ(TextOf("lblState"), "0 words-to-ignore loaded");
  EXPECT_EQ(TextOf("lblWordsState"), "The list is empty: no word is ignored.");
  AddFile("one.txt", "whereas");
  EXPECT_EQ(TextOf("lblState"), "One word-to-ignore loaded");
}

TEST_F(Words, AreNotListedTwice) {
  AddFile("list.txt", "the of and");
  messages.Forget();
  AddFile("list.txt", "the of and");
  const auto shown = WindowTest::Shown();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_THAT(shown[0],
              testing::StartsWith("Already present | " + PathOf("list.txt") + "\nis already in this list. "));
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (1)");
}

TEST_F(Words, ComeFromNinetyNineFilesAtMost) {
  Settings settings = main->Work().Current();
  for (int i = 0; i < 99; ++i) settings.WordsFiles.push_back("/list" + std::to_string(i));
  main->ApplySettings(settings);
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (99)");
  AddFile("list.txt", "the of and");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(EndsWith("No more files may be added to this list.")));
  EXPECT_THAT(dialogs.Opened, IsEmpty());
}

TEST_F(Words, OfAListedFileAreLoadedAgainOrRemoved) {
  AddFile("a.txt", "the of and");
  AddFile("b.txt", "of and");
  WriteFile("a.txt", "the of an");
  WillDo("optLoad");
  Choose("cboWordsFile", Find<QComboBox>("cboWordsFile")->findText(QString::fromStdString(PathOf("a.txt"))));
  EXPECT_EQ(TextOf("lblState"), "3 words-to-ignore loaded");

  WillDo("optCancel");
  Choose("cboWordsFile", 0);
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (2)");
  WillDo(nullptr);
  Choose("cboWordsFile", 0);
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (2)");

  WillDo("optRemove");
  Choose("cboWordsFile", 0);
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (1)");
}

TEST_F(Words, StayInForceWhenTheFileToLoadIsGone) {
  AddFile("a.txt", "the of");
  std::filesystem::remove(PathOf("a.txt"));
  WillDo("optLoad");
  Choose("cboWordsFile", 0);
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("File not found | File for words-to-ignore not found."));
  EXPECT_EQ(TextOf("lblWordsState"), "In the list: a.txt");
}

TEST_F(Words, AreForgottenWhenTheListIsCleared) {
  AddFile("a.txt", "the of");
  messages.Forget();
  messages.WillAnswer(questions::kClearWordFiles, Answer::No);
  Click("cmdClearWordsFile");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Clear words-to-ignore files | Do you wish to remove ALL files from this list?"));
  EXPECT_EQ(TextOf("lblState"), "2 words-to-ignore loaded");
  messages.WillAnswer(questions::kClearWordFiles, Answer::Yes);
  Click("cmdClearWordsFile");
  EXPECT_EQ(TextOf("lblState"), "");
  EXPECT_EQ(TextOf("lblWordsState"), "The list is empty: no word is ignored.");
  EXPECT_EQ(TextOf("lblWordsToIgnoreNotice"), "No words-to-ignore are specified in the 'Settings' window.");
  EXPECT_FALSE(Enabled("cboWordsFile"));
}

TEST_F(Words, OfALanguageAreLoadedOnRequest) {
  messages.WillAnswer(questions::kLoadCommonWords, Answer::No);
  Choose("cboCommonWordsLanguages", 1);
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre("Load common words file | Load common words file for German?"));
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (0)");
  messages.WillAnswer(questions::kLoadCommonWords, Answer::Yes);
  Choose("cboCommonWordsLanguages", 1);
  EXPECT_THAT(TextOf("cboWordsFile"), EndsWith("cwds_de.txt"));
  EXPECT_THAT(TextOf("lblState"), EndsWith(" words-to-ignore loaded"));
  messages.Forget();
  Choose("cboCommonWordsLanguages", 7);
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(Words, OfALanguageMayBeMissing) {
  programFolder = PathFromText(FolderPath());
  ASSERT_TRUE(Start());
  messages.WillAnswer(questions::kLoadCommonWords, Answer::Yes);
  Choose("cboCommonWordsLanguages", 2);
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("Load common words file | Load common words file for Spanish?",
                                               "Error | " + PathOf("cwds_es.txt") + " not found."));
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (0)");
}

TEST_F(Words, TypedByTheUserAreChecked) {
  const std::pair<const char*, const char*> cases[] = {
      {"one, two", "Words-to-ignore must be separated by a space, not by a comma."},
      {"a@b",
       "The character '@' occurs in some extra word-to-ignore\nbut is not currently set as a character "
       "allowed in a word."},
      {"^the", "Perhaps some Word-to-ignore is a regular expression\nwithout angle brackets."},
  };
  for (const auto& [typed, text] : cases) {
    Type("txbWordsToIgnoreOrCount_0", typed);
    const auto shown = WindowTest::Shown();
    ASSERT_EQ(shown.size(), 1U) << typed;
    EXPECT_THAT(shown[0], HasSubstr(text)) << typed;
  }
  Type("txbWordsToIgnoreOrCount_0", "ibid ~ing <^a,@b$>");
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(Words, TypedByTheUserAreIgnoredWithoutAnyFile) {
  UseFile("white whale swam on. white whale swam on.");
  Choose("cboPhraseLength_0", 0);
  Choose("cboPhraseLength_1", 0);
  Type("txbWordsToIgnoreOrCount_0", "white");
  EXPECT_EQ(TextOf("lblWordsToIgnoreNotice"),
            "This operation uses the words-to-ignore specifications in the 'Settings' window.");
  Click("optExcludePhrasesWithWordToIgnore");
  Count();
  EXPECT_THAT(Output(), HasSubstr("whale swam"));
  EXPECT_THAT(Output(), Not(HasSubstr("white whale")));
}

TEST_F(Words, ToCountAreEditedInTheSameFrame) {
  Type("txbWordsToIgnoreOrCount_0", "ibid");
  Click("optCountOnlyWordsAndPhrases");
  AddFile("only.txt", "whale\nold man");
  EXPECT_EQ(dialogs.Opened.back().Title, "Specify a file containing count-only words/phrases");
  EXPECT_EQ(TextOf("lblState"), "2 count-only words loaded");
  Type("txbWordsToIgnoreOrCount_1", "sea,ship");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(HasSubstr(
                  "Count-only words and phrases must be separated by comma+space, not just by comma.")));
  Click("optWordsToIgnore");
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_0"), "ibid");
}

TEST_F(Words, AreSpokenOfAsThoseOfTheListThatIsShown) {
  main->Params().show();
  struct Texts {
    const char* Option;
    const char* Box;
    const char* Files;
    const char* Label;
    const char* Hint;
    const char* State;
    const char* Sample;
    bool Languages;
  };
  const Texts lists[] = {
      {"optCountOnlyWordsAndPhrases", "txbWordsToIgnoreOrCount_1", "Count-only words files (0)",
       "Extra count-only words\nand phrases:",
       "To specify (or add) a file containing count-only words, click on the button labelled "
       "'Count-only words files'.",
       "The list is empty: every phrase is counted.", "white whale, harpoon~, <s[aeiou]+l>", false},
      {"optWordsToIgnore", "txbWordsToIgnoreOrCount_0", "Words-to-ignore files (0)", "Extra words to ignore:",
       "To specify (or add) a file containing words to ignore, click on the button labelled "
       "'Words-to-ignore files'.",
       "The list is empty: no word is ignored.", "ibid, vide, viz, sans, Ising", true},
  };
  for (const Texts& list : lists) {
    Click(list.Option);
    EXPECT_EQ(TextOf("cmdSelectWordsFile"), list.Files);
    EXPECT_EQ(WithoutMnemonic(Find<QLabel>("lblWordsToIgnoreOrCount")->text()).toStdString(), list.Label);
    EXPECT_EQ(Find<QLabel>("lblWordsToIgnoreOrCount")->buddy(), Find<QWidget>(list.Box));
    EXPECT_EQ(Find<QComboBox>("cboWordsFile")->placeholderText().toStdString(), list.Hint);
    EXPECT_EQ(TipOf("cboWordsFile"), list.Hint);
    EXPECT_EQ(TextOf("lblWordsState"), list.State);
    EXPECT_EQ(Find<QPlainTextEdit>(list.Box)->placeholderText().toStdString(), list.Sample);
    EXPECT_TRUE(Shown(list.Box));
    EXPECT_EQ(Shown("cboCommonWordsLanguages"), list.Languages);
    const std::string many = list.Languages ? "words-to-ignore" : "count-only words";
    EXPECT_EQ(Find<QWidget>("cboWordsFile")->accessibleName().toStdString(), many + " files");
    EXPECT_EQ(TipOf("cmdSelectWordsFile"), "Add a file to the list of " + many + " files and load it");
    EXPECT_EQ(TipOf("cmdClearWordsFile"), "Clear the list of " + many + " files");
    EXPECT_EQ(TipOf("cmdClearWordsToIgnoreOrCount"), list.Languages
                                                         ? "Clear the extra words to ignore"
                                                         : "Clear the extra count-only words and phrases");
  }
}

TEST_F(Words, AreNamedWithTheirFileAndHowManyWereTyped) {
  Type("txbWordsToIgnoreOrCount_0", "ibid vide");
  EXPECT_EQ(TextOf("lblWordsState"), "In the list: 2 extra words");
  AddFile("list.txt", "the of");
  EXPECT_EQ(TextOf("lblWordsState"), "In the list: list.txt and 2 extra words");
  Click("cmdClearWordsToIgnoreOrCount");
  EXPECT_EQ(TextOf("lblWordsState"), "In the list: list.txt");
}

TEST_F(Words, OfOneListAreCheckedWhenItsBoxIsLeft) {
  Type("txbWordsToIgnoreOrCount_0", "a#b");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("'#' occurs in some extra word-to-ignore")));
  Type("txbWordsToIgnoreOrCount_1", "c%d");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("'%' occurs in some extra count-only word")));
}

TEST_F(Words, ToCountRestrictTheCount) {
  UseFile("the white whale swam. the white whale swam. the old man wept. the old man wept.");
  Choose("cboPhraseLength_0", 1);
  Choose("cboPhraseLength_1", 1);
  Click("optCountOnlyWordsAndPhrases");
  Type("txbWordsToIgnoreOrCount_1", "wept");
  Count();
  EXPECT_THAT(Output(), HasSubstr("old man wept"));
  EXPECT_THAT(Output(), Not(HasSubstr("whale")));
}

TEST_F(Words, ToIgnoreAreLoadedAndForgottenWhileThoseToCountAreShown) {
  const auto saveTo = [this](const char* name) {
    dialogs.WillChoose(PathOf(name));
    Click("cmdSaveLoadState_1");
  };
  saveTo("without.korv");
  AddFile("ignored.txt", "the of and");
  saveTo("with.korv");
  Click("optCountOnlyWordsAndPhrases");
  AddFile("only.txt", "whale\nold man");
  const std::tuple<const char*, Answer, const char*> loads[] = {
      {"with.korv", Answer::No, "The list is empty: no word is ignored."},
      {"with.korv", Answer::Yes, "In the list: ignored.txt"},
      {"without.korv", Answer::Yes, "The list is empty: no word is ignored."},
  };
  const auto expectStates = [this](const std::string& toIgnore, const std::string& file) {
    EXPECT_EQ(TextOf("lblWordsState"), "In the list: only.txt") << file;
    EXPECT_EQ(TextOf("cboWordsFile"), PathOf("only.txt")) << file;
    Click("optWordsToIgnore");
    EXPECT_EQ(TextOf("lblWordsState"), toIgnore) << file;
    Click("optCountOnlyWordsAndPhrases");
  };
  for (const auto& [file, answer, state] : loads) {
    messages.WillAnswer(questions::kLoadWordFile, answer);
    dialogs.WillChoose(PathOf(file));
    Click("cmdSaveLoadState_0");
    expectStates(state, file);
  }
  // A language is one of words to ignore, too.
  messages.WillAnswer(questions::kLoadCommonWords, Answer::Yes);
  Find<QComboBox>("cboCommonWordsLanguages")->setCurrentIndex(1);
  main->Params().Lists->cboCommonWordsLanguages_Click();
  Click("optWordsToIgnore");
  EXPECT_THAT(TextOf("cboWordsFile"), EndsWith("cwds_de.txt"));
  const std::string german = TextOf("lblWordsState");
  EXPECT_THAT(german, EndsWith("cwds_de.txt"));
  Click("optCountOnlyWordsAndPhrases");
  expectStates(german, "German");
}

// ---- While they are read

const char* const kText = "The white whale swam. The white whale swam.";

const char* const kRestWhileReading[] = {
    "cmdCountPhrases", "cmdClearOutput", "cmdClipboardViewer",  "cmdHelp",       "cmdSetParameters",
    "cmdSaveState",    "cmdListFiles",   "fraIgnoreTheseWords", "fraAllowWords", "fraIgnoreWords",
    "fraStateFile",    "fraOptions",     "cmdFile_0",           "cmdInitialize", "cmdRestoreDefaults"};

TEST_F(Words, KeepTheWindowBusyWhileTheyAreRead) {
  OpenWithEveryTurn();
  UseFile(kText);
  Choose("cboPhraseLength_0", 0);
  Count();
  const std::string report = Output();
  const std::string phrases = TextOf("lblNumberOfWords");
  const std::string instances = TextOf("lblNumOccurrences");
  EXPECT_THAT(TextOf("lblNumberOfWords"), HasSubstr("Number of phrases"));
  bool looked = false;
  AtTheNextTurn([&] {
    looked = true;
    const std::string during = report + "Now reading words to ignore . . . ";
    EXPECT_EQ(Output(), during);
    EXPECT_EQ(TextOf("cmdCountPhrases"), "Processing . . . ");
    EXPECT_EQ(TextOf("lblNumberOfWords"), phrases);
    EXPECT_EQ(TextOf("lblNumOccurrences"), instances);
    main->Timer1_Timer();
    for (const char* name : kRestWhileReading) EXPECT_FALSE(Enabled(name)) << name;
    // Nothing is listed, whatever is chosen.
    Choose("cboDisplayFormat", 8);
    Choose("cboWordOrder", 1);
    Check("chkDisplayRelativeFrequency");
    Type("txbFilterWords", "whale");
    Click("cmdFilterResults");
    Type("txbFile_1", PathOf("out.txt"));
    Check("chkDisableOutputToFile");
    Check("chkDisableOutputToFile", false);
    EXPECT_EQ(Output(), during);
  });
  AddFile("list.txt", "the of\nand");
  EXPECT_TRUE(looked);
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  EXPECT_EQ(Output(), report);
  EXPECT_EQ(TextOf("cmdCountPhrases"), "Count phrases");
  for (const char* name : kRestWhileReading) EXPECT_TRUE(Enabled(name)) << name;
}

TEST_F(Words, FreeTheWindowWhenReadingThemFailsUnforeseen) {
  OpenWithEveryTurn();
  UseFile(kText);
  Choose("cboPhraseLength_0", 0);
  Count();
  AtTheNextTurn([] { throw std::runtime_error("a torn page"); });
  AddFile("list.txt", "the of\nand");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(HasSubstr("At cmdSelectWordsFile_Click error # 5.\nDescription: a torn page")));
  EXPECT_EQ(TextOf("cmdCountPhrases"), "Count phrases");
  for (const char* name : kRestWhileReading) EXPECT_TRUE(Enabled(name)) << name;
  Choose("cboDisplayFormat", 8);
  EXPECT_THAT(Output(), HasSubstr("\nthe white whale swam\n"));
}

TEST_F(Words, NoticeFollowsTheChosenMode) {
  Click("optAllowPhrasesAllWordsToIgnore");
  EXPECT_EQ(TextOf("lblWordsToIgnoreNotice"), "");
  Click("optRemoveWordsToIgnore");
  EXPECT_EQ(TextOf("lblWordsToIgnoreNotice"), "No words-to-ignore are specified in the 'Settings' window.");
}

TEST_F(Words, OfMacintoshFilesAreRemarkedOnOnce) {
  AddFile("first.txt", "the\rof\rand\r");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("This is a Mac-style text file | ")));
  AddFile("second.txt", "but\rnor\ryet\r");
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  EXPECT_EQ(TextOf("lblState"), "3 words-to-ignore loaded");
}

}  // namespace
}  // namespace korv
