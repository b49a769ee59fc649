// The controls of both windows: names, captions, tool tips, items, defaults, and how they are reached.

#include <QGroupBox>
#include <QMenuBar>
#include <QScrollArea>
#include <map>
#include <set>

#include "tests/desktop/window_test.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Controls : public WindowTest {
 protected:
  void SetUp() override { ASSERT_TRUE(Start()); }
  std::vector<std::string> ItemsOf(const char* name) const {
    std::vector<std::string> items;
    const auto* combo = Find<QComboBox>(name);
    for (int i = 0; i < combo->count(); ++i) items.push_back(combo->itemText(i).toStdString());
    return items;
  }
};

struct Captioned {
  const char* Name;
  const char* Caption;
};

TEST_F(Controls, OfTheMainWindowHaveTheirCaptions) {
  const Captioned captions[] = {
      {"optOnClipboard", "Clipboard"},
      {"optInFile", "Single file"},
      {"optFolder", "Folder"},
      {"chkIncludeSubfolders", "Include subfolders"},
      {"cmdFilterResults", "Filter results"},
      {"cmdClear", "Clear"},
      {"optIncludeAllWords", "All words below included"},
      {"optIncludeAllWordsInSameOrder", "in same order"},
      {"optIncludeAllWordsAsSubphrase", "as subphrase"},
      {"optAllowPhrasesAllWordsToIgnore", "Allow phrases consisting entirely of words to ignore"},
      {"optExcludePhrasesWithWordToIgnore", "Exclude phrases containing a word to ignore"},
      {"optRemoveWordsToIgnore", "Remove words to ignore from phrases"},
      {"optExcludePhrasesAllWordsToIgnore", "Exclude phrases consisting entirely of words to ignore"},
      {"cmdCountPhrases", "Count phrases"},
      {"chkSortByNumberOfFiles", "Sort by number of files instead of frequency"},
      {"chkDisplayRelativeFrequency", "Display relative frequency instead of absolute frequency"},
      {"chkFileList", "Set display format to #10"},
      {"cmdSaveState", "Save settings"},
      {"cmdClipboardViewer", "View clipboard"},
      {"cmdListFiles", "List files to be scanned"},
      {"chkSuppressWords", "Don't display words as found"},
      {"cmdFolder", "Folder"},
      {"cmdClearFolder", "Clear"},
      {"cmdFile_0", "Single file"},
      {"cmdFile_1", "Output file"},
      {"cmdClearFile_0", "Clear"},
      {"cmdClearFile_1", "Clear"},
      {"chkDisableOutputToFile", "Disable output to file"},
      {"cmdSetParameters", "Settings"},
      {"cmdClearOutput", "Clear textbox"},
      {"cmdQuit", "Quit"},
      {"cmdHelp", "Help"},
  };
  for (const auto& [name, caption] : captions) EXPECT_EQ(TextOf(name), caption) << name;
}

TEST_F(Controls, OfTheSettingsWindowHaveTheirCaptions) {
  const Captioned captions[] = {
      {"chkTerminatePhraseAtDoubleQuote", "end double quote \xE2\x80\x9D \""},
      {"chkTerminatePhraseAtComma", "comma ,"},
      {"chkTerminatePhraseAtTab", "tab"},
      {"chkTerminatePhraseAtPeriod", "period ."},
      {"chkTerminatePhraseAtEndOfLine", "end of line"},
      {"chkAllowWordsWithAmpersands", "ampersand &"},
      {"chkAllowWordsWithParentheses", "parentheses ( )"},
      {"chkAllowWordsWithCommas", "comma ,"},
      {"chkAllowWordsWithAtSigns", "at-sign @"},
      {"chkAllowWordsWithHyphens", "hyphen -"},
      {"chkAllowWordsWithPeriods", "period ."},
      {"chkAllowWordsWithForwardslashes", "forward slash /"},
      {"chkAllowWordsWithBackslashes", "backslash \\"},
      {"chkAllowWordsWithColons", "colon :"},
      {"chkAllowWordsWithUnderscores", "underscore _"},
      {"chkAllowWordsWithNumerals", "numerals 123"},
      {"chkAllowWordsWithApostrophes", "apostrophe '"},
      {"chkCaseSignificant", "Upper/lower case significant"},
      {"chkOnly7bitASCII", "Allow only 7-bit ASCII characters"},
      {"chkIgnoreShortWords", "with fewer than"},
      {"chkIgnoreRepetitions", "containing 4 repetitions of a letter"},
      {"chkIgnoreNoLetter", "which lack a letter"},
      {"cmdSelectWordsFile", "Words-to-ignore files (0)"},
      {"cmdClearWordsFile", "Clear"},
      {"cmdClearWordsToIgnoreOrCount", "Clear"},
      {"chkPatternMatchingInWordsToIgnoreFile", "Enable pattern matching"},
      {"chkExtractTextFromDocx", "Extract text from docx files"},
      {"chkReadOtherDocuments", "Read other documents too"},
      {"chkSaveStateOnQuit", "Save settings when quitting"},
      {"chkWarnOnOverwrite", "Warn on overwrite of output file"},
      {"cmdRestoreDefaults", "Restore defaults"},
      {"cmdInitialize", "Reinitialize"},
      {"cmdUndo", "Undo"},
      {"cmdAskEverythingAgain", "Ask everything again"},
      {"cmdSaveLoadState_0", "Load settings from file"},
      {"cmdSaveLoadState_1", "Save settings to file"},
      {"cmdSetOrClearCheckboxes_0", "Check all checkboxes"},
      {"cmdSetOrClearCheckboxes_1", "Clear all checkboxes"},
      {"cmdClose", "Hide settings"},
      {"cmdQuit", "Quit"},
      {"cmdSaveState", "Save settings"},
  };
  for (const auto& [name, caption] : captions) {
    EXPECT_EQ(WithoutMnemonic(InParams<QAbstractButton>(name)->text()).toStdString(), caption) << name;
  }
  EXPECT_EQ(main->Params().windowTitle().toStdString(), "Korv settings");
}

TEST_F(Controls, StandAmongTheirTitlesAndLabels) {
  std::multiset<std::string> texts;
  const std::array<QWidget*, 2> windows = {main.get(), &main->Params()};
  for (const QWidget* window : windows) {
    for (const QGroupBox* group : window->findChildren<QGroupBox*>())
      texts.insert(group->title().toStdString());
    for (const QLabel* label : window->findChildren<QLabel*>()) {
      texts.insert(WithoutMnemonic(label->text()).toStdString());
    }
  }
  const std::pair<const char*, size_t> expected[] = {{"Select source of text to be scanned:", 1},
                                                     {"Phrase length", 1},
                                                     {"Minimum frequency", 1},
                                                     {"Order:", 1},
                                                     {"Format:", 1},
                                                     {"Case is not significant.", 1},
                                                     {"A phrase must not go beyond:", 1},
                                                     {"Words to ignore and to count", 1},
                                                     {"What these rules make of a sample:", 1},
                                                     {"Text:", 1},
                                                     {"Words:", 1},
                                                     {"Options", 1},
                                                     {"Settings file and questions", 1},
                                                     {"Allow 'words' with:", 1},
                                                     {"Also:", 1},
                                                     {"Ignore words:", 1},
                                                     {"with more than", 1},
                                                     {"characters", 2},
                                                     {"Ignore common words in:", 1},
                                                     {"Extra words to ignore:", 1},
                                                     {"for words-to-ignore file", 1}};
  for (const auto& [text, count] : expected) EXPECT_EQ(texts.count(text), count) << text;
}

TEST_F(Controls, GiveExamplesOfPatterns) {
  EXPECT_EQ(Find<QLineEdit>("txbFileFilepathSpecifications_0")->placeholderText().toStdString(),
            "E.g., *.txt, *.docx, a*.htm*, b*.xml");
  EXPECT_EQ(Find<QLineEdit>("txbFileFilepathSpecifications_1")->placeholderText().toStdString(),
            "E.g., copy, bak");
}

TEST_F(Controls, ExplainThemselvesInToolTips) {
  const Captioned tips[] = {
      {"cboPhraseLength_0", "Minimum number of words in phrase"},
      {"cboPhraseLength_1", "Maximum number of words in phrase"},
      {"cboMinimumFrequency", "Minimum number of occurrences"},
      {"chkDisplayRelativeFrequency",
       "'Relative frequency' is explained in 'Report Formats' in the online user manual."},
      {"chkSuppressWords", "Check this box for faster processing."},
      {"cmdSetParameters",
       "Define what counts as a word, specify words to ignore and words/phrases to count"},
      {"txbFile_0", "To specify an input file click on the button labelled 'Single file'."},
      {"txbFile_1", "To specify an output file click on the button labelled 'Output file'."},
      {"txbFolder", "To specify a folder click on the button labelled 'Folder'."},
      {"cmdFile_0", "Click on the 'Single file' button to specify an input file."},
      {"cmdFolder", "Click on the 'Folder' button to specify a folder with input files."},
      {"chkExtractTextFromDocx",
       "If checked then text extracted from .docx files will be written to files in an 'extracted_text' "
       "subfolder."},
      {"txbWordsToIgnoreOrCount_0",
       "Extra words to ignore (not phrases) may be added here.  Spaces (not commas) should be used to "
       "separate them.  Case is not significant."},
  };
  for (const auto& [name, tip] : tips) EXPECT_EQ(TipOf(name), tip) << name;
}

TEST_F(Controls, OfferTheItemsOfTheirLists) {
  std::vector<std::string> lengths;
  for (int words = 2; words <= 25; ++words) lengths.push_back(std::to_string(words));
  EXPECT_EQ(ItemsOf("cboPhraseLength_0"), lengths);
  EXPECT_EQ(ItemsOf("cboPhraseLength_1"), lengths);
  std::vector<std::string> frequencies;
  for (int least = 1; least <= 20; ++least) frequencies.push_back(std::to_string(least));
  EXPECT_EQ(ItemsOf("cboMinimumFrequency"), frequencies);
  std::vector<std::string> sizes;
  for (int size = 2; size <= 20; ++size) sizes.push_back(std::to_string(size));
  EXPECT_EQ(ItemsOf("cboShortWordSize"), sizes);
  EXPECT_THAT(ItemsOf("cboLongWordSize"), ElementsAre("20", "30", "40", "50", "60", "70", "80"));
  EXPECT_THAT(ItemsOf("cboWordOrder"), ElementsAre("By frequency", "Alphabetically"));
  EXPECT_THAT(
      ItemsOf("cboDisplayFormat"),
      ElementsAre("#0: Rank, frequency, phrase", "#1: Phrase, rank, frequency", "#2: Rank, frequency",
                  "#3: Rank, phrase", "#4: Frequency, rank", "#5: Frequency, phrase", "#6: Phrase, rank",
                  "#7: Phrase, frequency", "#8: Phrase", "#9: Phrases in one line, separated by commas",
                  "#10: Phrase, number of files, frequency", "#11: Phrase, files that contain it",
                  "#12: Phrase, share of each file"));
  EXPECT_THAT(ItemsOf("cboCommonWordsLanguages"),
              ElementsAre("English", "German", "Spanish", "Portuguese", "Italian", "French",
                          "All six languages", "[No language selected]"));
  EXPECT_THAT(ItemsOf("cboWordsFile"), IsEmpty());
  EXPECT_EQ(Find<QComboBox>("cboWordsFile")->placeholderText().toStdString(),
            "To specify (or add) a file containing words to ignore, click on the button labelled "
            "'Words-to-ignore files'.");
  EXPECT_EQ(Find<QPlainTextEdit>("txbWordsToIgnoreOrCount_0")->placeholderText().toStdString(),
            "ibid, vide, viz, sans, Ising");
}

TEST_F(Controls, ShowWordsAndResultsInAFixedFont) {
  for (const char* name : {"txbOutput", "txbWordsToIgnoreOrCount_0", "txbFilterWords"}) {
    EXPECT_EQ(Find<QWidget>(name)->font().families().value(0).toStdString(), "Courier New") << name;
  }
}

TEST_F(Controls, AreAllNamedForThoseWhoHearThem) {
  const std::array<QWidget*, 2> windows = {main.get(), &main->Params()};
  for (QWidget* window : windows) {
    for (QWidget* control : window->findChildren<QWidget*>()) {
      if (control->focusPolicy() == Qt::NoFocus || control->objectName().startsWith(QLatin1String("qt_"))) {
        continue;
      }
      const auto* button = qobject_cast<QAbstractButton*>(control);
      const bool named =
          !control->accessibleName().isEmpty() || (button != nullptr && !button->text().isEmpty());
      // The parts of a control are spoken of by the control itself.
      const bool part = qobject_cast<QComboBox*>(control->parentWidget()) != nullptr ||
                        control->inherits("QComboBoxListView") || control->inherits("QMenuBar") ||
                        control->inherits("QMenu") || control->inherits("QLabel") ||
                        control->inherits("QComboBoxPrivateContainer");
      EXPECT_TRUE(named || part) << control->metaObject()->className() << " "
                                 << control->objectName().toStdString();
    }
  }
}

/// The letters that Alt leads to, of the buttons and captions that can be seen together.
std::map<QChar, std::vector<std::string>> Mnemonics(const QWidget* window) {
  std::map<QChar, std::vector<std::string>> letters;
  const auto add = [&](QString text, const std::string& name) {
    text.replace(QLatin1String("&&"), QString());
    const qsizetype mark = text.indexOf(u'&');
    if (mark >= 0 && mark + 1 < text.size()) letters[text[mark + 1].toLower()].push_back(name);
  };
  for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
    if (button->isVisibleTo(window)) add(button->text(), button->objectName().toStdString());
  }
  for (const QLabel* label : window->findChildren<QLabel*>()) {
    if (label->buddy() != nullptr && label->isVisibleTo(window))
      add(label->text(), label->text().toStdString());
  }
  if (const auto* bar = window->findChild<QMenuBar*>()) {
    for (const QAction* action : bar->actions()) add(action->text(), action->text().toStdString());
  }
  return letters;
}

TEST_F(Controls, HaveMnemonicsThatLeadToOneOfThemOnly) {
  main->Params().show();
  for (const char* source : {"optOnClipboard", "optInFile", "optFolder"}) {
    Click(source);
    const std::array<const QWidget*, 2> windows = {main.get(), &main->Params()};
    for (const QWidget* window : windows) {
      for (const auto& [letter, names] : Mnemonics(window)) {
        EXPECT_EQ(names.size(), 1U) << QString(letter).toStdString() << ": " << testing::PrintToString(names);
      }
    }
  }
}

TEST_F(Controls, OfTheMainWindowHaveAMnemonicOnEveryButton) {
  for (const QPushButton* button : main->findChildren<QPushButton*>()) {
    EXPECT_TRUE(button->text().contains(u'&')) << button->objectName().toStdString();
  }
}

TEST_F(Controls, AreReachedByTabInTheOrderInWhichTheyAreRead) {
  std::vector<std::string> order;
  Find<QWidget>("optInFile")->setFocus();
  QWidget* control = Find<QWidget>("optInFile");
  for (int i = 0; i < 200; ++i) {
    control = control->nextInFocusChain();
    if (control == Find<QWidget>("optInFile")) break;
    const std::string name = control->objectName().toStdString();
    if (control->focusPolicy() & Qt::TabFocus && control->isVisible() &&
        (name.starts_with("cmd") || name.starts_with("txb") || name.starts_with("cbo"))) {
      order.push_back(name);
    }
  }
  EXPECT_THAT(
      order, ElementsAre("cmdFile_0", "txbFile_0", "cmdClearFile_0", "cboReading", "cboPhraseLength_0",
                         "cboPhraseLength_1", "cboMinimumFrequency", "cmdSetParameters", "cmdChangeWordRules",
                         "cmdCountPhrases", "cmdSaveState", "cmdHelp", "cmdQuit", "cboWordOrder",
                         "cboDisplayFormat", "cmdFile_1", "txbFile_1", "cmdClearFile_1", "txbOutput",
                         "cmdClearOutput", "txbFilterWords", "cmdFilterResults", "cmdClear"));
}

TEST_F(Controls, FitIntoASmallWindowWithTheCountButtonInSight) {
  main->resize(1000, 700);
  QApplication::processEvents();
  EXPECT_LE(main->width(), 1000);
  EXPECT_LE(main->height(), 700);
  const auto* button = Find<QWidget>("cmdCountPhrases");
  EXPECT_TRUE(main->rect().contains(QRect(button->mapTo(main.get(), QPoint(0, 0)), button->size())));
}

TEST_F(Controls, KeepTheirPlacesWhenTheSourceChanges) {
  main->resize(1200, 900);
  const auto place = [this](const char* name) {
    QApplication::processEvents();
    return Find<QWidget>(name)->mapTo(main.get(), QPoint(0, 0));
  };
  const std::vector<const char*> names = {"cboPhraseLength_0", "cmdSetParameters", "cboDisplayFormat",
                                          "cmdFile_1",         "cmdCountPhrases",  "txbOutput"};
  std::vector<QPoint> before;
  for (const char* name : names) before.push_back(place(name));
  for (const char* source : {"optFolder", "optOnClipboard", "optInFile"}) {
    Click(source);
    for (size_t i = 0; i < names.size(); ++i) EXPECT_EQ(place(names[i]), before[i]) << source << names[i];
  }
}

}  // namespace
}  // namespace korv
