// The Settings window: defaults, its buttons, confirming changes, and settings files.

#include <QAction>
#include <functional>
#include <sstream>

#include "app/run/questions.h"
#include "app/settings/questions.h"
#include "app/texts/rules_sample.h"
#include "desktop/dialogs/frm_popup.h"
#include "desktop/questions.h"
#include "desktop/silence_rules.h"
#include "desktop/toolkit/silenced_questions.h"
#include "tests/app/changed_settings.h"
#include "tests/desktop/window_test.h"
#include "wordlists/questions.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::vector<const char*> kBoxes = {"chkAllowWordsWithHyphens",
                                         "chkAllowWordsWithApostrophes",
                                         "chkAllowWordsWithUnderscores",
                                         "chkAllowWordsWithColons",
                                         "chkAllowWordsWithBackslashes",
                                         "chkAllowWordsWithForwardslashes",
                                         "chkAllowWordsWithParentheses",
                                         "chkAllowWordsWithAmpersands",
                                         "chkAllowWordsWithPeriods",
                                         "chkAllowWordsWithCommas",
                                         "chkAllowWordsWithAtSigns",
                                         "chkAllowWordsWithNumerals",
                                         "chkCaseSignificant",
                                         "chkIgnoreRepetitions",
                                         "chkExtractTextFromDocx",
                                         "chkReadOtherDocuments",
                                         "chkIgnoreNoLetter",
                                         "chkIgnoreShortWords",
                                         "chkWarnOnOverwrite",
                                         "chkSaveStateOnQuit",
                                         "chkTerminatePhraseAtEndOfLine",
                                         "chkTerminatePhraseAtPeriod",
                                         "chkTerminatePhraseAtDoubleQuote",
                                         "chkTerminatePhraseAtTab",
                                         "chkTerminatePhraseAtComma",
                                         "chkOnly7bitASCII",
                                         "chkPatternMatchingInWordsToIgnoreFile"};

const std::set<std::string> kCheckedByDefault = {
    "chkAllowWordsWithHyphens", "chkIgnoreRepetitions",       "chkIgnoreNoLetter",
    "chkIgnoreShortWords",      "chkTerminatePhraseAtPeriod", "chkTerminatePhraseAtDoubleQuote",
    "chkTerminatePhraseAtTab"};

class SettingsWindow : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  void ExpectDefaults() const {
    for (const char* box : kBoxes) EXPECT_EQ(Checked(box), kCheckedByDefault.contains(box)) << box;
    EXPECT_EQ(TextOf("cboShortWordSize"), "3");
    EXPECT_TRUE(Checked("optInFile"));
  }
  void CountSomething() {
    UseFile("The white whale swam. The white whale swam.");
    Count();
    ASSERT_TRUE(main->Result().HasResult());
    messages.Forget();
  }
  std::string PopUpText() const {
    const auto* popUp = main->findChild<frmPopUp*>();
    return popUp->isVisible() ? popUp->lblMessage->text().toStdString() : "";
  }
};

TEST_F(SettingsWindow, StartsWithItsDefaults) {
  ExpectDefaults();
}

TEST_F(SettingsWindow, EveryControlShowsItsSettingAndSetsIt) {
  const auto selected = [this](const ChoiceValue& value) {
    for (size_t k = 0; k < value.Choices.size(); ++k)
      if (Find<QRadioButton>(value.Choices[k].Control)->isChecked()) return static_cast<int>(k);
    return kNoChoice;
  };
  const Settings changed = AllChanged();
  main->Work().Change(ChangedBy::Program, changed);
  for (const SettingRow& row : Schema()) {
    EXPECT_TRUE(SameValue(row, main->Work().Current(), changed)) << row.Name;
    if (!HasControl(row)) continue;
    if (const auto* check = std::get_if<CheckValue>(&row.Value)) {
      EXPECT_EQ(Checked(row.Control), check->Get(changed)) << row.Name;
    } else if (const auto* number = std::get_if<NumberValue>(&row.Value)) {
      EXPECT_EQ(ItemOf(row.Control), number->IndexOf(number->Get(changed))) << row.Name;
    } else if (const auto* choice = std::get_if<ChoiceValue>(&row.Value)) {
      EXPECT_EQ(row.Control ? ItemOf(row.Control) : selected(*choice), choice->Get(changed)) << row.Name;
    } else if (const auto* text = std::get_if<TextValue>(&row.Value)) {
      EXPECT_EQ(TextOf(row.Control), text->Get(changed)) << row.Name;
    }
  }
  main->Work().Change(ChangedBy::Program, Settings{});
  for (const SettingRow& row : Schema()) {
    const auto* check = std::get_if<CheckValue>(&row.Value);
    if (check == nullptr || !HasControl(row)) continue;
    const bool before = check->Get(main->Work().Current());
    Find<QCheckBox>(row.Control)->toggle();
    EXPECT_EQ(check->Get(main->Work().Current()), !before) << row.Name;
  }
}

TEST_F(SettingsWindow, ChecksAndClearsEveryCheckbox) {
  Click("cmdSetOrClearCheckboxes_0");
  for (const char* box : kBoxes) EXPECT_TRUE(Checked(box)) << box;
  Click("cmdSetOrClearCheckboxes_1");
  for (const char* box : kBoxes) EXPECT_FALSE(Checked(box)) << box;
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(SettingsWindow, RestoresItsDefaults) {
  Click("cmdSetOrClearCheckboxes_0");
  Click("optFolder");
  Choose("cboShortWordSize", 7);
  Click("cmdRestoreDefaults");
  ExpectDefaults();
  EXPECT_EQ(TextOf("cboLongWordSize"), "50");
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(SettingsWindow, SavesTheDefaultOfLongWordsAfterRestoringIt) {
  Click("cmdRestoreDefaults");
  Click("cmdSaveState");
  // Six texts, the short size, then the long one.
  EXPECT_THAT(ReadFile(StatePath()),
              testing::StartsWith("\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n1\r\n3\r\n"));
}

TEST_F(SettingsWindow, ReinitializesTheProgram) {
  Click("cmdSetOrClearCheckboxes_0");
  Click("optFolder");
  Choose("cboDisplayFormat", 12);
  Choose("cboWordOrder", 1);
  Choose("cboLongWordSize", 0);
  Find<QCheckBox>("chkSortByNumberOfFiles")->setChecked(true);
  const char* const boxes[] = {"txbFileFilepathSpecifications_0", "txbFileFilepathSpecifications_1",
                               "txbWordsToIgnoreOrCount_0", "txbFilterWords", "txbStateFile"};
  for (const char* box : boxes) Type(box, "typed");
  const char* const labels[] = {"lblNumberOfWords",    "lblNumOccurrences", "lblTotalNumOccurrences",
                                "lblNumWordsExcluded", "lblFilesize",       "lblXMLsize"};
  for (const char* label : labels) Find<QLabel>(label)->setText(QStringLiteral("told"));
  Click("cmdInitialize");
  ExpectDefaults();
  EXPECT_EQ(PopUpText(), "Program reinitialized");
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 0);
  EXPECT_EQ(ItemOf("cboWordOrder"), 0);
  EXPECT_EQ(TextOf("cboLongWordSize"), "50");
  for (const char* box : boxes) EXPECT_EQ(TextOf(box), "") << box;
  for (const char* label : labels) EXPECT_EQ(TextOf(label), " ") << label;
  EXPECT_FALSE(Checked("chkSortByNumberOfFiles"));
  EXPECT_FALSE(Enabled("cmdClear"));
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(testing::StartsWith("Reinitialize | ")));
  const std::string saved = ReadFile(StatePath());
  Click("cmdSaveState");
  EXPECT_EQ(ReadFile(StatePath()), saved);
  EXPECT_THAT(saved, testing::Not(IsEmpty()));
}

TEST_F(SettingsWindow, TellsThatItReinitializedAlthoughTheStateCannotBeSaved) {
  Type("txbFile_0", "a \"quoted\" name.txt");
  Click("cmdInitialize");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(testing::StartsWith("Reinitialize | "),
                          testing::StartsWith("Save state | Error when attempting to save state: ")));
  EXPECT_EQ(PopUpText(), "Program reinitialized");
}

TEST_F(SettingsWindow, AsksAboutTheWordFilesWhenItReinitializes) {
  dialogs.WillChoose(WriteFile("list.txt", "the of and"));
  Click("cmdSelectWordsFile");
  messages.WillAnswer(questions::kClearWordFiles, Answer::No);
  Click("cmdInitialize");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(testing::StartsWith("Reinitialize | "),
                          "Words-to-ignore files | Do you wish to clear all words-to-ignore files?"));
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (1)");
  messages.WillAnswer(questions::kClearWordFiles, Answer::Yes);
  Click("cmdInitialize");
  EXPECT_EQ(TextOf("cmdSelectWordsFile"), "Words-to-ignore files (0)");
}

TEST_F(SettingsWindow, AsksBeforeItReinitializes) {
  Click("cmdSetOrClearCheckboxes_0");
  messages.WillAnswer(questions::kReinitialize, Answer::No);
  Click("cmdInitialize");
  const Message question = messages.Only();
  EXPECT_EQ(question.Title, "Reinitialize");
  EXPECT_EQ(question.Text,
            "This sets every option to its default, clears the extra words to ignore, the file patterns and\n"
            "the filter words, and saves all that.  Do you wish to go on?");
  EXPECT_EQ(question.Buttons, Buttons::YesNo);
  EXPECT_EQ(question.DefaultAnswer, Answer::Yes);
  const SilenceRule* rule = RuleFor(SilenceRules(), question.Question);
  ASSERT_NE(rule, nullptr);
  EXPECT_EQ(rule->Answer, Answer::Yes) << "it was told to reinitialize";
  for (const char* box : kBoxes) EXPECT_TRUE(Checked(box)) << box;
  EXPECT_EQ(PopUpText(), "");
  EXPECT_FALSE(std::filesystem::exists(StatePath()));
}

TEST_F(SettingsWindow, AsksEverythingAgainWhereSomethingWasSilenced) {
  main->Params().show();
  EXPECT_FALSE(Enabled("cmdAskEverythingAgain"));
  Silence(*store, questions::kKeepFilter, Answer::Yes);
  main->Timer1_Timer();
  EXPECT_TRUE(Enabled("cmdAskEverythingAgain"));
  Click("cmdAskEverythingAgain");
  EXPECT_FALSE(AnySilenced(*store));
  EXPECT_FALSE(Enabled("cmdAskEverythingAgain"));
  EXPECT_EQ(TextOf("lblState"), "Every question will be asked again.");
  EXPECT_EQ(TipOf("cmdAskEverythingAgain"),
            "Asks again every question for which 'Do not ask again' was ticked.");
}

// ---- Taking back

TEST_F(SettingsWindow, TakesBackWhatItChangedAtOnce) {
  main->Params().show();
  const auto oddly = [this] {
    for (size_t i = 0; i < kBoxes.size(); ++i) Find<QCheckBox>(kBoxes[i])->setChecked(i % 3 == 0);
    Choose("cboShortWordSize", 7);
    Choose("cboLongWordSize", 6);
    Click("optFolder");
  };
  const std::pair<const char*, const char*> buttons[] = {
      {"cmdSetOrClearCheckboxes_0", "All checkboxes checked."},
      {"cmdSetOrClearCheckboxes_1", "All checkboxes cleared."},
      {"cmdRestoreDefaults", "Defaults restored."}};
  EXPECT_FALSE(Shown("cmdUndo"));
  EXPECT_EQ(TipOf("cmdUndo"), "Sets every control back to what it was before.");
  for (const auto& [button, told] : buttons) {
    oddly();
    Click(button);
    EXPECT_EQ(TextOf("lblState"), told);
    EXPECT_TRUE(Shown("cmdUndo")) << button;
    Type("txbFile_0", button);
    Click("cmdUndo");
    for (size_t i = 0; i < kBoxes.size(); ++i) EXPECT_EQ(Checked(kBoxes[i]), i % 3 == 0) << kBoxes[i];
    EXPECT_EQ(ItemOf("cboShortWordSize"), 7);
    EXPECT_EQ(ItemOf("cboLongWordSize"), 6);
    EXPECT_TRUE(Checked("optFolder"));
    EXPECT_EQ(TextOf("txbFile_0"), button) << "typed since then";
    EXPECT_FALSE(Shown("cmdUndo")) << button;
    EXPECT_EQ(TextOf("lblState"), "Everything is as it was before.");
  }
}

TEST_F(SettingsWindow, TakesBackNothingOnceSomethingElseHasChanged) {
  main->Params().show();
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_1");
  const std::pair<const char*, std::function<void()>> changes[] = {
      {"a checkbox", [this] { Click("chkWarnOnOverwrite"); }},
      {"a size", [this] { Choose("cboLongWordSize", 0); }},
      {"the source", [this] { Click("optOnClipboard"); }},
      {"loaded settings",
       [this] {
         dialogs.WillChoose(PathOf("mine.korv"));
         Click("cmdSaveLoadState_0");
       }},
      {"reinitializing", [this] { Click("cmdInitialize"); }},
  };
  for (const auto& [name, change] : changes) {
    Click("cmdSetOrClearCheckboxes_1");
    Click("cmdSetOrClearCheckboxes_0");
    EXPECT_TRUE(Shown("cmdUndo")) << name;
    change();
    EXPECT_FALSE(Shown("cmdUndo")) << name;
  }
  Click("cmdRestoreDefaults");
  Click("cmdRestoreDefaults");
  EXPECT_FALSE(Shown("cmdUndo")) << "nothing was changed";
}

// ---- What the rules do

TEST_F(SettingsWindow, ShowsLiveWhatTheRulesMakeOfASample) {
  main->Params().show();
  EXPECT_EQ(TextOf("txbSample"), RulesSample());
  EXPECT_EQ(TipOf("txbSample"),
            "Type any text to see which words would be counted. \xC2\xB6 stands for the end of a line, "
            "\xE2\x87\xA5 for a tab.");
  EXPECT_EQ(TipOf("fraSample"), "| stands between two words, || where no phrase goes on.");
  for (const char* box : kBoxes) {
    Click(box);
    EXPECT_EQ(TextOf("lblSampleWords"), WordsOfSample(RulesSample(), main->Work().Current().Words)) << box;
  }
  Click("cmdRestoreDefaults");
  Find<QLineEdit>("txbSample")->setText(QStringLiteral("don't stop-loss 3D"));
  EXPECT_EQ(TextOf("lblSampleWords"), "don | stop-loss");
  Check("chkAllowWordsWithApostrophes");
  EXPECT_EQ(TextOf("lblSampleWords"), "don't | stop-loss");
  Choose("cboShortWordSize", 4);
  EXPECT_EQ(TextOf("lblSampleWords"), "stop-loss");
  Choose("cboShortWordSize", 18);
  EXPECT_EQ(TextOf("lblSampleWords"), "No word of this text would be counted.");
}

TEST_F(SettingsWindow, ExplainsEveryWordRuleByAnExample) {
  const std::set<std::string> behaviour = {"chkExtractTextFromDocx", "chkReadOtherDocuments",
                                           "chkSaveStateOnQuit", "chkWarnOnOverwrite"};
  for (const char* box : kBoxes) {
    if (behaviour.contains(box)) continue;
    EXPECT_THAT(TipOf(box), HasSubstr("\nExample: ")) << box;
    EXPECT_THAT(TipOf(box), HasSubstr("\nchecked: ")) << box;
    EXPECT_THAT(TipOf(box), HasSubstr("\nunchecked: ")) << box;
    const std::string tip = TipOf(box);
    const size_t on = tip.find("\nchecked: ");
    const size_t off = tip.find("\nunchecked: ");
    EXPECT_NE(tip.substr(on + 10, off - on - 10), tip.substr(off + 12)) << box;
  }
  EXPECT_EQ(
      TipOf("chkAllowWordsWithHyphens"),
      "A hyphen may stand within a word.\nExample: stop-loss\nchecked: stop-loss\nunchecked: stop | loss");
  EXPECT_EQ(TipOf("cboShortWordSize"), TipOf("chkIgnoreShortWords"));
  // What the list of long words says of its examples.
  EXPECT_THAT(TipOf("cboLongWordSize"), HasSubstr("internationalization has 20 letters"));
  EXPECT_THAT(TipOf("cboLongWordSize"),
              HasSubstr("antidisestablishmentarianism has 28 and is counted from 30 on"));
  WordRules rules;
  rules.LongWordSize = 20;
  EXPECT_EQ(WordsOfSample("internationalization antidisestablishmentarianism", rules),
            "internationalization");
  rules.LongWordSize = 30;
  EXPECT_EQ(WordsOfSample("antidisestablishmentarianism", rules), "antidisestablishmentarianism");
}

TEST_F(SettingsWindow, EnablesTheShortSizeOnlyWithItsRule) {
  EXPECT_TRUE(Enabled("cboShortWordSize"));
  Check("chkIgnoreShortWords", false);
  EXPECT_FALSE(Enabled("cboShortWordSize"));
}

TEST_F(SettingsWindow, ConfirmsChangesThatInvalidateTheResult) {
  // The twelve kinds of characters and the case, which come first.
  ASSERT_STREQ(kBoxes[12], "chkCaseSignificant");
  for (size_t i = 0; i <= 12; ++i) {
    const char* box = kBoxes[i];
    CountSomething();
    const std::string report = Output();
    const bool before = Checked(box);
    messages.WillAnswer(questions::kRereadSource, Answer::No);
    Click(box);
    EXPECT_THAT(WindowTest::Shown(),
                ElementsAre("Word rules | Changing this entails reading the file anew.  Is this OK?"));
    EXPECT_EQ(Checked(box), before) << box;
    EXPECT_TRUE(main->Result().HasResult()) << box;
    EXPECT_EQ(Output(), report) << box;
    messages.WillAnswer(questions::kRereadSource, Answer::Yes);
    Click(box);
    EXPECT_EQ(Checked(box), !before) << box;
    EXPECT_FALSE(main->ResultKeepsTo(main->Work().Current().Words)) << box;
    messages.Forget();
    Click(box);
    EXPECT_THAT(WindowTest::Shown(), IsEmpty()) << "it is to be read anew anyway";
    EXPECT_TRUE(main->ResultKeepsTo(main->Work().Current().Words)) << box;
  }
}

TEST_F(SettingsWindow, NamesTheSourceThatWouldBeReadAnew) {
  CountSomething();
  messages.WillAnswer(questions::kRereadSource, Answer::No);
  Click("optFolder");
  Click("chkCaseSignificant");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("reading the files anew")));
  Click("optOnClipboard");
  Click("chkCaseSignificant");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("reading the clipboard anew")));
}

TEST_F(SettingsWindow, AsksNothingWhenTheProgramChangesABox) {
  Click("cmdSetOrClearCheckboxes_0");
  dialogs.WillChoose(PathOf("all.korv"));
  Click("cmdSaveLoadState_1");
  Click("cmdRestoreDefaults");
  CountSomething();
  Click("cmdSetOrClearCheckboxes_0");
  Click("cmdRestoreDefaults");
  dialogs.WillChoose(PathOf("all.korv"));
  Click("cmdSaveLoadState_0");
  EXPECT_TRUE(Checked("chkCaseSignificant"));
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  EXPECT_TRUE(main->Result().HasResult());
}

TEST_F(SettingsWindow, ChecksTheTypedWordsAfterACharacterIsNoLongerAllowed) {
  Type("txbWordsToIgnoreOrCount_0", "well-known");
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
  Check("chkAllowWordsWithHyphens", false);
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(HasSubstr("Character not allowed | The character '-' occurs")));
}

TEST_F(SettingsWindow, ChecksTheTypedWordsOfBothListsWheneverItChangesTheRules) {
  const auto typed = [this](const char* box, const char* words) {
    Find<QPlainTextEdit>(box)->setPlainText(QLatin1String(words));
  };
  typed("txbWordsToIgnoreOrCount_0", "a#b");
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_1");
  typed("txbWordsToIgnoreOrCount_1", "c%d");
  for (const char* button : {"cmdSetOrClearCheckboxes_0", "cmdSetOrClearCheckboxes_1", "cmdRestoreDefaults",
                             "cmdSaveLoadState_0"}) {
    dialogs.WillChoose(PathOf("mine.korv"));
    Click(button);
    EXPECT_THAT(
        WindowTest::Shown(),
        ElementsAre(HasSubstr("not allowed | The character '#' occurs in some extra word-to-ignore"),
                    HasSubstr("not allowed | The character '%' occurs in some extra count-only word")))
        << button;
  }
}

// ---- Files

TEST_F(SettingsWindow, SavesTheStateAndTellsSo) {
  Click("cmdSaveState");
  EXPECT_EQ(PopUpText(), "Settings saved");
  EXPECT_EQ(main->findChild<frmPopUp*>()->windowTitle().toStdString(), "Save state");
  const std::string saved = ReadFile(StatePath());
  std::filesystem::remove(StatePath());
  main->findChild<frmPopUp*>()->hide();
  ClickInParams("cmdSaveState");
  EXPECT_EQ(PopUpText(), "Settings saved");
  EXPECT_EQ(ReadFile(StatePath()), saved);
  EXPECT_THAT(saved, testing::Not(IsEmpty()));
}

TEST_F(SettingsWindow, TellsWhenTheStateCannotBeSaved) {
  Type("txbFile_0", "a \"quoted\" name.txt");
  Click("cmdSaveState");
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(testing::StartsWith("Save state | Error when attempting to save state: ")));
  EXPECT_FALSE(std::filesystem::exists(StatePath()));
}

TEST_F(SettingsWindow, RestoresEveryControlAfterARestart) {
  Type("txbFolder", "/some folder");
  Type("txbWordsToIgnoreOrCount_0", "ibid vide");
  Type("txbFile_0", "/in.txt");
  Type("txbFile_1", "/out.txt");
  Click("optFolder");
  Type("txbFileFilepathSpecifications_0", "*.txt, *.html");
  Type("txbFileFilepathSpecifications_1", "bak");
  Choose("cboShortWordSize", 5);
  Choose("cboLongWordSize", 6);
  for (const char* box : kBoxes) Find<QCheckBox>(box)->setChecked(!kCheckedByDefault.contains(box));
  Check("chkDisableOutputToFile");
  Check("chkIncludeSubfolders");
  Choose("cboDisplayFormat", 12);
  Check("chkSortByNumberOfFiles");
  Check("chkDisplayRelativeFrequency");
  dialogs.WillChoose(WriteFile("list.txt", "the\nof"));
  Click("cmdSelectWordsFile");
  Choose("cboPhraseLength_0", 1);
  Choose("cboPhraseLength_1", 23);
  Choose("cboMinimumFrequency", 19);
  messages.WillAnswer(questions::kLoadCommonWords, Answer::No);
  Choose("cboCommonWordsLanguages", 5);
  Type("txbFilterWords", "white whale");
  Click("optIncludeAllWordsAsSubphrase");
  Click("optRemoveWordsToIgnore");
  Click("cmdSaveState");
  const std::string saved = ReadFile(StatePath());

  messages.WillAnswer(questions::kLoadWordFile, Answer::Yes);
  ASSERT_TRUE(Start());
  EXPECT_EQ(TextOf("txbFolder"), "/some folder");
  EXPECT_EQ(TextOf("txbWordsToIgnoreOrCount_0"), "ibid vide");
  EXPECT_EQ(TextOf("txbFile_0"), "/in.txt");
  EXPECT_EQ(TextOf("txbFile_1"), "/out.txt");
  EXPECT_EQ(TextOf("txbFileFilepathSpecifications_0"), "*.txt, *.html");
  EXPECT_EQ(TextOf("txbFileFilepathSpecifications_1"), "bak");
  EXPECT_EQ(ItemOf("cboShortWordSize"), 5);
  EXPECT_EQ(ItemOf("cboLongWordSize"), 6);
  for (const char* box : kBoxes) EXPECT_EQ(Checked(box), !kCheckedByDefault.contains(box)) << box;
  EXPECT_TRUE(Checked("chkDisableOutputToFile"));
  EXPECT_TRUE(Checked("chkIncludeSubfolders"));
  EXPECT_TRUE(Checked("optFolder"));
  EXPECT_EQ(ItemOf("cboDisplayFormat"), 12);
  EXPECT_TRUE(Checked("chkSortByNumberOfFiles"));
  EXPECT_TRUE(Checked("chkDisplayRelativeFrequency"));
  EXPECT_EQ(TextOf("cboWordsFile"), PathOf("list.txt"));
  EXPECT_EQ(TextOf("lblState"), "2 words-to-ignore loaded");
  EXPECT_EQ(ItemOf("cboPhraseLength_0"), 1);
  EXPECT_EQ(ItemOf("cboPhraseLength_1"), 23);
  EXPECT_EQ(ItemOf("cboMinimumFrequency"), 19);
  EXPECT_EQ(ItemOf("cboCommonWordsLanguages"), 5);
  EXPECT_EQ(TextOf("txbFilterWords"), "white whale");
  EXPECT_TRUE(Checked("optIncludeAllWordsAsSubphrase"));
  EXPECT_TRUE(Checked("optRemoveWordsToIgnore"));

  Click("cmdSaveState");
  EXPECT_EQ(ReadFile(StatePath()), saved);
}

/// A control and the lines of the state file that hold its value.
struct Saved {
  const char* Name;
  std::vector<size_t> Lines;
};

const std::vector<Saved> kSavedControls = {{"txbFolder", {1}},
                                           {"txbWordsToIgnoreOrCount_0", {2}},
                                           {"txbFile_0", {3}},
                                           {"txbFileFilepathSpecifications_0", {4}},
                                           {"txbFile_1", {5}},
                                           {"txbFileFilepathSpecifications_1", {6}},
                                           {"cboShortWordSize", {7}},
                                           {"cboLongWordSize", {8}},
                                           {"chkIgnoreShortWords", {9}},
                                           {"chkIgnoreRepetitions", {10}},
                                           {"chkExtractTextFromDocx", {11}},
                                           {"chkIgnoreNoLetter", {12}},
                                           {"chkCaseSignificant", {13}},
                                           {"chkAllowWordsWithHyphens", {14}},
                                           {"chkAllowWordsWithApostrophes", {15}},
                                           {"chkAllowWordsWithUnderscores", {16}},
                                           {"chkAllowWordsWithColons", {17}},
                                           {"chkAllowWordsWithBackslashes", {18}},
                                           {"chkAllowWordsWithForwardslashes", {19}},
                                           {"chkAllowWordsWithParentheses", {20}},
                                           {"chkAllowWordsWithPeriods", {21}},
                                           {"chkAllowWordsWithCommas", {22}},
                                           {"chkAllowWordsWithAtSigns", {23}},
                                           {"chkAllowWordsWithNumerals", {24}},
                                           {"chkAllowWordsWithAmpersands", {25}},
                                           {"chkWarnOnOverwrite", {26}},
                                           {"chkSaveStateOnQuit", {27}},
                                           {"chkDisableOutputToFile", {28}},
                                           {"chkIncludeSubfolders", {29}},
                                           {"cboWordOrder", {30}},
                                           {"cboDisplayFormat", {31}},
                                           {"chkOnly7bitASCII", {32}},
                                           {"chkTerminatePhraseAtEndOfLine", {36}},
                                           {"chkTerminatePhraseAtPeriod", {37}},
                                           {"chkTerminatePhraseAtDoubleQuote", {38}},
                                           {"chkTerminatePhraseAtTab", {39, 44}},
                                           {"chkTerminatePhraseAtComma", {40}},
                                           {"cboPhraseLength_0", {41}},
                                           {"cboPhraseLength_1", {42}},
                                           {"cboMinimumFrequency", {43}},
                                           {"chkPatternMatchingInWordsToIgnoreFile", {45}},
                                           {"chkDisplayRelativeFrequency", {46}},
                                           {"cboCommonWordsLanguages", {48}},
                                           {"txbFilterWords", {49}}};

TEST_F(SettingsWindow, SavesAndLoadsEachControlInItsOwnLine) {
  const auto value = [this](const char* name) {
    auto* control = Find<QWidget>(name);
    if (const auto* combo = qobject_cast<QComboBox*>(control)) return std::to_string(combo->currentIndex());
    if (const auto* box = qobject_cast<QCheckBox*>(control)) return std::to_string(box->isChecked());
    return "\"" + TextOf(name) + "\"";
  };
  const auto change = [this](const char* name) {
    auto* control = Find<QWidget>(name);
    if (auto* combo = qobject_cast<QComboBox*>(control)) {
      combo->setCurrentIndex((combo->currentIndex() + 1) % combo->count());
    } else if (auto* box = qobject_cast<QCheckBox*>(control)) {
      box->toggle();
    } else {
      Type(name, "typed");
    }
  };
  FakeFiles& disk = OpenOnFakeFiles();
  const auto state = [&] {
    main->SaveStateTo("/saved.korv");
    return disk.Content("/saved.korv").value_or("");
  };
  const auto load = [&](const std::string& bytes) {
    disk.Add("/one.korv", bytes);
    dialogs.WillChoose("/one.korv");
    Click("cmdSaveLoadState_0");
  };
  std::string before = state();
  for (const auto& [name, lines] : kSavedControls) {
    change(name);
    const std::string changed = value(name);
    std::string expected = before;
    for (const size_t line : lines) {
      size_t at = 0;
      for (size_t passed = 1; passed < line; ++passed) at = expected.find("\r\n", at) + 2;
      expected.replace(at, expected.find("\r\n", at) - at, changed);
    }
    EXPECT_NE(expected, before) << name;
    EXPECT_EQ(state(), expected) << name;
    load(before);
    EXPECT_EQ(state(), before) << name;
    load(expected);
    EXPECT_EQ(value(name), changed) << name;
    EXPECT_EQ(state(), expected) << name;
    before = expected;
  }
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

TEST_F(SettingsWindow, SavesAndLoadsEachOptionButtonInItsOwnLine) {
  struct Option {
    const char* Name;
    size_t Line;
    const char* Selected;
    const char* Instead;
  };
  const Option options[] = {
      {"optOnClipboard", 35, "0", "optInFile"},
      {"optInFile", 35, "1", "optFolder"},
      {"optFolder", 35, "2", "optInFile"},
      {"optIncludeAllWordsInSameOrder", 50, "1", "optIncludeAllWords"},
      {"optIncludeAllWordsAsSubphrase", 50, "2", "optIncludeAllWords"},
      {"optIncludeAllWords", 50, "0", "optIncludeAllWordsAsSubphrase"},
      {"optAllowPhrasesAllWordsToIgnore", 51, "-1", "optRemoveWordsToIgnore"},
      {"optExcludePhrasesAllWordsToIgnore", 52, "-1", "optRemoveWordsToIgnore"},
      {"optRemoveWordsToIgnore", 53, "-1", "optExcludePhrasesWithWordToIgnore"},
      {"optExcludePhrasesWithWordToIgnore", 54, "-1", "optRemoveWordsToIgnore"},
  };
  FakeFiles& disk = OpenOnFakeFiles();
  for (const auto& [name, line, selected, instead] : options) {
    Click(name);
    main->SaveStateTo("/one.korv");
    std::istringstream state(disk.Content("/one.korv").value_or(""));
    std::string value;
    for (size_t i = 0; i < line; ++i) std::getline(state, value);
    EXPECT_EQ(value, std::string(selected) + "\r") << name;
    Click(instead);
    EXPECT_FALSE(Checked(name)) << name;
    dialogs.WillChoose("/one.korv");
    Click("cmdSaveLoadState_0");
    EXPECT_TRUE(Checked(name)) << name;
    EXPECT_FALSE(Checked(instead)) << name;
  }
}

TEST_F(SettingsWindow, SavesAndLoadsSettingsUnderAName) {
  Choose("cboMinimumFrequency", 6);
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_1");
  EXPECT_EQ(dialogs.Saved.at(0).Title, "Specify file to save settings to");
  EXPECT_EQ(dialogs.Saved.at(0).Filter, "Korv settings files (*.korv) | *.korv");
  EXPECT_EQ(dialogs.Saved.at(0).Extension, "korv");
  EXPECT_TRUE(dialogs.Saved.at(0).AsksBeforeReplacing);
  EXPECT_EQ(TextOf("lblState"), "Settings saved to " + PathOf("mine.korv"));
  const std::string saved = ReadFile(PathOf("mine.korv"));

  Choose("cboMinimumFrequency", 2);
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_0");
  EXPECT_EQ(dialogs.Opened.at(0).Title, "Specify file to load settings from.");
  EXPECT_EQ(TextOf("lblState"), "Settings loaded from " + PathOf("mine.korv"));
  EXPECT_EQ(ItemOf("cboMinimumFrequency"), 6);
  Click("cmdSaveState");
  EXPECT_EQ(ReadFile(StatePath()), saved);
}

QAction* CommandOf(const frmMain& main, const char* caption) {
  for (QAction* action : main.findChildren<QAction*>()) {
    if (WithoutMnemonic(action->text()) == QLatin1String(caption)) return action;
  }
  ADD_FAILURE() << caption;
  return nullptr;
}

TEST_F(SettingsWindow, TellsOverTheMainWindowWhatCommandsOfItsMenuSavedAndLoaded) {
  const std::pair<const char*, const char*> commands[] = {
      {"Save settings to file...", "Settings saved to"},
      {"Load settings from file...", "Settings loaded from"}};
  for (const auto& [caption, told] : commands) {
    dialogs.WillChoose(PathOf("mine.korv"));
    CommandOf(*main, caption)->trigger();
    EXPECT_EQ(PopUpText(), std::string(told) + "\n" + PathOf("mine.korv"));
    EXPECT_EQ(TextOf("lblState"), std::string(told) + " " + PathOf("mine.korv"));
    main->findChild<frmPopUp*>()->hide();
  }
  dialogs.WillChoose(PathOf("no/mine.korv"));
  CommandOf(*main, commands[0].first)->trigger();
  EXPECT_EQ(PopUpText(), "") << "the message box has told";
  Click("cmdSaveLoadState_0");
  EXPECT_EQ(PopUpText(), "") << "the window itself tells";
}

TEST_F(SettingsWindow, TellsOfEachInvalidPatternOfAFileOnce) {
  Find<QLineEdit>("txbFileFilepathSpecifications_0")->setText(QStringLiteral("a;b"));
  Find<QLineEdit>("txbFileFilepathSpecifications_1")->setText(QStringLiteral("c*d"));
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_1");
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_0");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("a;b"), HasSubstr("c*d")));
}

TEST_F(SettingsWindow, ShowsWhereSettingsCouldNotBeSaved) {
  dialogs.WillChoose(PathOf("nowhere/mine.korv"));
  Click("cmdSaveLoadState_1");
  EXPECT_EQ(TextOf("lblState"), "Error saving to " + PathOf("nowhere/mine.korv"));
  EXPECT_THAT(WindowTest::Shown(),
              ElementsAre(testing::StartsWith("Save settngs | Error when attempting to save state: ")));
}

TEST_F(SettingsWindow, AsksForTheListOfLoadedSettings) {
  dialogs.WillChoose(WriteFile("list.txt", "the of and"));
  Click("cmdSelectWordsFile");
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_1");
  messages.Forget();
  messages.WillAnswer(questions::kLoadWordFile, Answer::No);
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_0");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("Load file? | Do you wish to load the words-to-ignore file\n" +
                                               PathOf("list.txt") + " ?"));
  EXPECT_EQ(TextOf("lblWordsState"), "The list is empty: no word is ignored.");
}

TEST_F(SettingsWindow, AsksForNoListWhenTheFileEndsEarlyBehindIt) {
  dialogs.WillChoose(WriteFile("list.txt", "the of and"));
  Click("cmdSelectWordsFile");
  Click("cmdSaveState");
  const std::string state = ReadFile(StatePath());
  const size_t list = state.find("list.txt\"\r\n0\r\n");
  ASSERT_NE(list, state.npos);
  dialogs.WillChoose(WriteFile("cut.korv", state.substr(0, list + 13)));
  Click("cmdSaveLoadState_0");
  ASSERT_EQ(messages.Shown.size(), 2U);
  EXPECT_EQ(messages.Shown[0].Question, questions::kSetDefaults);
  EXPECT_EQ(messages.Shown[1].Title, "Input past end of file");
  EXPECT_EQ(TextOf("cboWordsFile"), PathOf("list.txt"));
}

TEST_F(SettingsWindow, LeavesTheLoadedFieldsAsTheUserDoes) {
  Find<QLineEdit>("txbFileFilepathSpecifications_0")->setText(QStringLiteral("*.txt,*.doc"));
  Click("optAllowPhrasesAllWordsToIgnore");
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_1");
  Type("txbFileFilepathSpecifications_0", "");
  Click("optRemoveWordsToIgnore");
  EXPECT_THAT(TextOf("lblWordsToIgnoreNotice"), testing::StartsWith("No words-to-ignore"));
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_0");
  EXPECT_EQ(TextOf("txbFileFilepathSpecifications_0"), "*.txt, *.doc");
  EXPECT_THAT(WindowTest::Shown(), ElementsAre(HasSubstr("This software does not process .doc files.")));
  EXPECT_EQ(TextOf("lblWordsToIgnoreNotice"), "");
}

TEST_F(SettingsWindow, OffersDefaultsForAFileThatEndsEarlyAndKeepsWhatWasRead) {
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    Check("chkOnly7bitASCII");
    dialogs.WillChoose(WriteFile("old.korv", "\"/early\"\r\n\"\"\r\n"));
    messages.WillAnswer(questions::kSetDefaults, answer);
    Click("cmdSaveLoadState_0");
    ASSERT_EQ(messages.Shown.size(), 2U);
    EXPECT_EQ(messages.Shown[0].Title, "Error restoring saved state");
    EXPECT_EQ(messages.Shown[0].Text, "Input past end of file.  Set default values?");
    EXPECT_EQ(messages.Shown[0].DefaultAnswer, Answer::No);
    EXPECT_EQ(messages.Shown[1].Title, "Input past end of file");
    EXPECT_EQ(messages.Shown[1].Text, "Saving the settings should fix the 'Input past end of file' error.");
    EXPECT_EQ(TextOf("txbFolder"), "/early");
    EXPECT_EQ(Checked("chkOnly7bitASCII"), answer == Answer::No);
    messages.Forget();
  }
}

TEST_F(SettingsWindow, ReinitializesAfterALoadThatFailed) {
  dialogs.WillChoose(PathOf("mine.korv"));
  Click("cmdSaveLoadState_1");
  std::string state = ReadFile(PathOf("mine.korv"));
  state.replace(state.find("\r\n1\r\n"), 5, "\r\n77\r\n");  // The size of short words.
  dialogs.WillChoose(WriteFile("bad.korv", state));
  Check("chkOnly7bitASCII");
  Click("cmdSaveLoadState_0");
  EXPECT_EQ(messages.Only().Icon, Icon::Exclamation);
  EXPECT_THAT(WindowTest::Shown(), ElementsAre("Load settings | Invalid combo box index."));
  EXPECT_EQ(TextOf("lblState"), "Error loading from " + PathOf("bad.korv"));
  EXPECT_FALSE(Checked("chkOnly7bitASCII"));
}

TEST_F(SettingsWindow, LoadsNothingWhenTheDialogIsCancelled) {
  Click("cmdSaveLoadState_0");
  Click("cmdSaveLoadState_1");
  EXPECT_EQ(TextOf("lblState"), "");
  EXPECT_THAT(WindowTest::Shown(), IsEmpty());
}

}  // namespace
}  // namespace korv
