#pragma once

#include <array>
#include <vector>

#include "desktop/widgets/control_factory.h"

class QFrame;
class QGroupBox;
class QPlainTextEdit;
class QStackedLayout;

namespace korv {

class ElidingLabel;
class RulesSampleBox;
class SettingsUndo;

/// The Settings window's controls under their names, and where they stand. Owned by the window.
struct FrmParamsControls {
  // Phrase boundaries
  QGroupBox* fraPhraseBoundaries = nullptr;
  QCheckBox* chkTerminatePhraseAtDoubleQuote = nullptr;
  QCheckBox* chkTerminatePhraseAtComma = nullptr;
  QCheckBox* chkTerminatePhraseAtTab = nullptr;
  QCheckBox* chkTerminatePhraseAtPeriod = nullptr;
  QCheckBox* chkTerminatePhraseAtEndOfLine = nullptr;

  // What counts as a word
  QGroupBox* fraAllowWords = nullptr;
  QCheckBox* chkAllowWordsWithAmpersands = nullptr;
  QCheckBox* chkAllowWordsWithParentheses = nullptr;
  QCheckBox* chkAllowWordsWithCommas = nullptr;
  QCheckBox* chkAllowWordsWithAtSigns = nullptr;
  QCheckBox* chkAllowWordsWithHyphens = nullptr;
  QCheckBox* chkAllowWordsWithPeriods = nullptr;
  QCheckBox* chkAllowWordsWithForwardslashes = nullptr;
  QCheckBox* chkAllowWordsWithBackslashes = nullptr;
  QCheckBox* chkAllowWordsWithColons = nullptr;
  QCheckBox* chkAllowWordsWithUnderscores = nullptr;
  QCheckBox* chkAllowWordsWithNumerals = nullptr;
  QCheckBox* chkAllowWordsWithApostrophes = nullptr;
  QCheckBox* chkCaseSignificant = nullptr;
  QCheckBox* chkOnly7bitASCII = nullptr;

  // Words to ignore by form
  QGroupBox* fraIgnoreWords = nullptr;
  QCheckBox* chkIgnoreShortWords = nullptr;
  QComboBox* cboShortWordSize = nullptr;
  QComboBox* cboLongWordSize = nullptr;
  QCheckBox* chkIgnoreRepetitions = nullptr;
  QCheckBox* chkIgnoreNoLetter = nullptr;

  // Words to ignore and to count
  QGroupBox* fraIgnoreTheseWords = nullptr;
  QRadioButton* optWordsToIgnore = nullptr;             ///< The frame shows the words to ignore ...
  QRadioButton* optCountOnlyWordsAndPhrases = nullptr;  ///< ... or the count-only words and phrases.
  QLabel* lblCommonWordsLanguages = nullptr;
  QComboBox* cboCommonWordsLanguages = nullptr;
  QComboBox* cboWordsFile = nullptr;
  QPushButton* cmdSelectWordsFile = nullptr;
  QPushButton* cmdClearWordsFile = nullptr;
  QLabel* lblWordsToIgnoreOrCount = nullptr;
  std::array<QPlainTextEdit*, 2> txbWordsToIgnoreOrCount{};  ///< 0 words to ignore, 1 count-only.
  QPushButton* cmdClearWordsToIgnoreOrCount = nullptr;
  QStackedLayout* WordsBoxes = nullptr;   ///< Shows one of the two.
  ElidingLabel* lblWordsState = nullptr;  ///< What the list that is shown consists of.

  RulesSampleBox* fraSample = nullptr;  ///< What the rules above make of a text.

  // Behaviour
  QGroupBox* fraOptions = nullptr;
  QCheckBox* chkPatternMatchingInWordsToIgnoreFile = nullptr;
  QCheckBox* chkExtractTextFromDocx = nullptr;
  QCheckBox* chkSaveStateOnQuit = nullptr;
  QCheckBox* chkWarnOnOverwrite = nullptr;

  // Settings file
  QGroupBox* fraStateFile = nullptr;
  std::array<QPushButton*, 2> cmdSaveLoadState{};  ///< 0 loads, 1 saves.
  ElidingLabel* lblState = nullptr;                ///< What was done last: to settings, or a list of words.
  QLineEdit* txbStateFile = nullptr;               ///< Never shown; the path of the settings file used last.

  // Buttons
  QPushButton* cmdRestoreDefaults = nullptr;
  QPushButton* cmdInitialize = nullptr;
  SettingsUndo* cmdUndo = nullptr;  ///< Takes back the defaults, or the checkboxes all checked or cleared.
  QPushButton* cmdAskEverythingAgain = nullptr;
  std::array<QPushButton*, 2> cmdSetOrClearCheckboxes{};  ///< 0 checks all, 1 clears all.
  QPushButton* cmdSaveState = nullptr;
  QPushButton* cmdClose = nullptr;
  QPushButton* cmdQuit = nullptr;

  /// The twelve boxes that admit characters into words, in the order of the defaults.
  std::array<QCheckBox*, 12> AllowWordsBoxes() const;
  /// Every checkbox of the window, in the order in which "Check all checkboxes" takes them.
  std::vector<QCheckBox*> AllCheckboxes() const;

 protected:
  void BuildControls(QWidget* window);

 private:
  QWidget* BuildGroups(QWidget* parent);
  QWidget* BuildIgnoreTheseWords(QWidget* parent);
  QWidget* BuildAllowWords(QWidget* parent);
  QWidget* BuildIgnoreWords(QWidget* parent);
  QWidget* BuildPhraseBoundaries(QWidget* parent);
  QWidget* BuildOptions(QWidget* parent);
  QWidget* BuildStateFile(QWidget* parent);
  QLayout* BuildWordsBoxes(QWidget* frame);
  QLayout* BuildState(QWidget* parent);
  QLayout* BuildButtons(QWidget* parent);
  void SetTabOrder();
};

}  // namespace korv
