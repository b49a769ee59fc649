#include "desktop/settings_window/frm_params_controls.h"

#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/settings_window/rule_tips.h"
#include "desktop/settings_window/rules_sample_box.h"
#include "desktop/settings_window/settings_undo.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/scroll_column.h"
#include "wordlists/word_file_list.h"

namespace korv {
namespace {

QGroupBox* MakeGroup(const char* name, const char* title, QWidget* parent) {
  return Named(new QGroupBox(QString::fromUtf8(title), parent), name);
}

/// The margins of the groups of controls in this window.
constexpr QMargins kMargins(10, 8, 10, 10);

QPlainTextEdit* MakeWordsBox(const char* name, const char* accessibleName, const char* sample,
                             const char* toolTip, QWidget* parent) {
  auto* box = Described(Named(new QPlainTextEdit(parent), name), accessibleName);
  box->setFont(WordsFont());
  box->setTabChangesFocus(true);
  box->setPlaceholderText(QString::fromUtf8(sample));
  box->setToolTip(QString::fromUtf8(toolTip));
  return box;
}

}  // namespace

void FrmParamsControls::BuildControls(QWidget* window) {
  auto* layout = new QVBoxLayout(window);
  layout->setContentsMargins(10, 10, 10, 10);
  layout->setSpacing(10);
  // On a low screen the groups scroll; the buttons below them do not.
  auto* scroll = Named(new ScrollColumn(window), "scrSettings");
  scroll->setWidget(BuildGroups(scroll));
  layout->addWidget(scroll, 1);
  layout->addLayout(BuildState(window));
  layout->addLayout(BuildButtons(window));
  SetRuleTips(*this);
  SetTabOrder();
}

QWidget* FrmParamsControls::BuildGroups(QWidget* parent) {
  auto* groups = new QWidget(parent);
  auto* layout = new QGridLayout(groups);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(10);

  layout->addWidget(BuildIgnoreTheseWords(groups), 0, 0, 1, 2);
  layout->addWidget(BuildAllowWords(groups), 1, 0, 2, 1);
  layout->addWidget(BuildIgnoreWords(groups), 1, 1);
  layout->addWidget(BuildPhraseBoundaries(groups), 2, 1);
  fraSample = new RulesSampleBox(groups);
  layout->addWidget(fraSample, 3, 0, 1, 2);
  auto* behaviour = new QHBoxLayout;
  behaviour->addWidget(BuildOptions(groups), 1);
  behaviour->addWidget(BuildStateFile(groups));
  layout->addLayout(behaviour, 4, 0, 1, 2);

  layout->setColumnStretch(0, 1);
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(0, 1);
  return groups;
}

QLayout* FrmParamsControls::BuildState(QWidget* parent) {
  lblState = Named(new ElidingLabel(parent), "lblState");
  cmdUndo = new SettingsUndo(parent);
  auto* state = new QHBoxLayout;
  state->addWidget(lblState, 1);
  state->addWidget(cmdUndo);
  return state;
}

QLayout* FrmParamsControls::BuildButtons(QWidget* parent) {
  cmdSetOrClearCheckboxes[0] = MakeButton("cmdSetOrClearCheckboxes_0", "Check &all checkboxes", parent);
  cmdSetOrClearCheckboxes[1] = MakeButton("cmdSetOrClearCheckboxes_1", "Cl&ear all checkboxes", parent);
  cmdRestoreDefaults = MakeButton("cmdRestoreDefaults", "Restore &defaults", parent);
  cmdInitialize = MakeButton("cmdInitialize", "Re&initialize", parent);
  cmdSaveState = MakeButton("cmdSaveState", "&Save settings", parent);
  cmdClose = MakeButton("cmdClose", "&Hide settings", parent);
  cmdQuit = MakeButton("cmdQuit", "&Quit", parent);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button :
       {cmdSetOrClearCheckboxes[0], cmdSetOrClearCheckboxes[1], cmdRestoreDefaults, cmdInitialize}) {
    buttons->addWidget(button);
  }
  buttons->addStretch(1);
  for (QPushButton* button : {cmdSaveState, cmdClose, cmdQuit}) buttons->addWidget(button);
  return buttons;
}

QWidget* FrmParamsControls::BuildIgnoreTheseWords(QWidget* parent) {
  fraIgnoreTheseWords = MakeGroup("fraIgnoreTheseWords", "Words to ignore and to count", parent);
  QWidget* frame = fraIgnoreTheseWords;
  auto* layout = Tight(new QGridLayout(frame), kMargins);

  optWordsToIgnore = MakeOption("optWordsToIgnore", "Words to ignore", frame);
  optCountOnlyWordsAndPhrases =
      MakeOption("optCountOnlyWordsAndPhrases", "Count-only words and phrases", frame);
  optWordsToIgnore->setChecked(true);
  cboCommonWordsLanguages = MakeCombo("cboCommonWordsLanguages", "Ignore common words in:", frame);
  cboCommonWordsLanguages->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  auto* top = new QHBoxLayout;
  top->addWidget(optWordsToIgnore);
  top->addSpacing(12);
  top->addWidget(optCountOnlyWordsAndPhrases);
  top->addStretch(1);
  lblCommonWordsLanguages = MakeCaption("Ignore common words in:", cboCommonWordsLanguages, frame);
  top->addWidget(lblCommonWordsLanguages);
  top->addWidget(cboCommonWordsLanguages);
  // The languages go while the other list is shown; what stands beside them stays where it is.
  for (QWidget* control : std::initializer_list<QWidget*>{lblCommonWordsLanguages, cboCommonWordsLanguages}) {
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
  }
  layout->addLayout(top, 0, 0, 1, 3);

  cmdSelectWordsFile = MakeButton("cmdSelectWordsFile", "", frame);
  // Room for the longest caption, so that the list beside it does not move.
  for (const ListKind kind : {ListKind::CountOnly, ListKind::WordsToIgnore}) {
    cmdSelectWordsFile->setText(ToQt(FilesButtonCaption(kind, WordFileList::kMostFiles)));
    cmdSelectWordsFile->setMinimumWidth(
        std::max(cmdSelectWordsFile->minimumWidth(), cmdSelectWordsFile->sizeHint().width()));
  }
  cboWordsFile = MakeCombo("cboWordsFile", "Word-list files", frame);
  cmdClearWordsFile =
      Described(MakeButton("cmdClearWordsFile", "&Clear", frame), "Clear the list of word-list files");
  layout->addWidget(cmdSelectWordsFile, 1, 0);
  layout->addWidget(cboWordsFile, 1, 1);
  layout->addWidget(cmdClearWordsFile, 1, 2);

  lblWordsToIgnoreOrCount = Named(new QLabel(frame), "lblWordsToIgnoreOrCount");
  lblWordsToIgnoreOrCount->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  // Two lines of the longer caption, so that nothing below moves.
  lblWordsToIgnoreOrCount->setMinimumHeight(2 * lblWordsToIgnoreOrCount->fontMetrics().lineSpacing());
  cmdClearWordsToIgnoreOrCount =
      Described(MakeButton("cmdClearWordsToIgnoreOrCount", "Clea&r", frame), "Clear the extra words");
  layout->addWidget(lblWordsToIgnoreOrCount, 2, 0);
  layout->addLayout(BuildWordsBoxes(frame), 2, 1);
  layout->addWidget(cmdClearWordsToIgnoreOrCount, 2, 2, Qt::AlignTop);

  lblWordsState = Named(new ElidingLabel(frame), "lblWordsState");
  layout->addWidget(lblWordsState, 3, 1, 1, 2);
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(2, 1);
  return frame;
}

QLayout* FrmParamsControls::BuildWordsBoxes(QWidget* frame) {
  txbWordsToIgnoreOrCount[0] =
      MakeWordsBox("txbWordsToIgnoreOrCount_0", "Extra words to ignore", "ibid, vide, viz, sans, Ising",
                   "Extra words to ignore (not phrases) may be added here.  Spaces (not commas) should be "
                   "used to separate them.  Case is not significant.",
                   frame);
  txbWordsToIgnoreOrCount[1] = MakeWordsBox(
      "txbWordsToIgnoreOrCount_1", "Count-only words and phrases", "white whale, harpoon~, <s[aeiou]+l>",
      "Only phrases that hold one of these words, or are one of these phrases, are counted.  Comma "
      "and space should be used to separate them.  A regular expression stands between < and >.",
      frame);
  WordsBoxes = new QStackedLayout;
  for (QPlainTextEdit* box : txbWordsToIgnoreOrCount) WordsBoxes->addWidget(box);
  // Two lines at least; the rest of the window's height goes here.
  const int lines = 2 * QFontMetrics(WordsFont()).lineSpacing() + 14;
  for (QPlainTextEdit* box : txbWordsToIgnoreOrCount) box->setMinimumHeight(lines);
  return WordsBoxes;
}

QWidget* FrmParamsControls::BuildAllowWords(QWidget* parent) {
  fraAllowWords = MakeGroup("fraAllowWords", "Allow 'words' with:", parent);
  QWidget* frame = fraAllowWords;
  auto* layout = Tight(new QGridLayout(frame), kMargins);
  chkAllowWordsWithAmpersands = MakeCheckBox("chkAllowWordsWithAmpersands", "ampersand &&", frame);
  chkAllowWordsWithParentheses = MakeCheckBox("chkAllowWordsWithParentheses", "parentheses ( )", frame);
  chkAllowWordsWithCommas = MakeCheckBox("chkAllowWordsWithCommas", "comma ,", frame);
  chkAllowWordsWithAtSigns = MakeCheckBox("chkAllowWordsWithAtSigns", "at-sign @", frame);
  chkAllowWordsWithHyphens = MakeCheckBox("chkAllowWordsWithHyphens", "hyphen -", frame);
  chkAllowWordsWithPeriods = MakeCheckBox("chkAllowWordsWithPeriods", "period .", frame);
  chkAllowWordsWithForwardslashes = MakeCheckBox("chkAllowWordsWithForwardslashes", "forward slash /", frame);
  chkAllowWordsWithBackslashes = MakeCheckBox("chkAllowWordsWithBackslashes", "backslash \\", frame);
  chkAllowWordsWithColons = MakeCheckBox("chkAllowWordsWithColons", "colon :", frame);
  chkAllowWordsWithUnderscores = MakeCheckBox("chkAllowWordsWithUnderscores", "underscore _", frame);
  chkAllowWordsWithNumerals = MakeCheckBox("chkAllowWordsWithNumerals", "numerals 123", frame);
  chkAllowWordsWithApostrophes = MakeCheckBox("chkAllowWordsWithApostrophes", "apostrophe '", frame);
  const std::array<QCheckBox*, 12> shown = {
      chkAllowWordsWithAmpersands,     chkAllowWordsWithParentheses, chkAllowWordsWithCommas,
      chkAllowWordsWithAtSigns,        chkAllowWordsWithHyphens,     chkAllowWordsWithPeriods,
      chkAllowWordsWithForwardslashes, chkAllowWordsWithBackslashes, chkAllowWordsWithColons,
      chkAllowWordsWithUnderscores,    chkAllowWordsWithNumerals,    chkAllowWordsWithApostrophes};
  for (int i = 0; i < 12; ++i) layout->addWidget(shown[static_cast<size_t>(i)], i % 6, i / 6);
  auto* also = new QLabel(QStringLiteral("Also:"), frame);
  chkCaseSignificant = MakeCheckBox("chkCaseSignificant", "Upper/lower case significant", frame);
  chkOnly7bitASCII = MakeCheckBox("chkOnly7bitASCII", "Allow only 7-bit ASCII characters", frame);
  layout->setRowMinimumHeight(6, 4);
  layout->addWidget(also, 7, 0, 1, 2);
  layout->addWidget(chkCaseSignificant, 8, 0, 1, 2);
  layout->addWidget(chkOnly7bitASCII, 9, 0, 1, 2);
  layout->setRowStretch(10, 1);
  return frame;
}

QWidget* FrmParamsControls::BuildIgnoreWords(QWidget* parent) {
  fraIgnoreWords = MakeGroup("fraIgnoreWords", "Ignore words:", parent);
  QWidget* frame = fraIgnoreWords;
  auto* layout = Tight(new QGridLayout(frame), kMargins);
  chkIgnoreShortWords = MakeCheckBox("chkIgnoreShortWords", "with fewer than", frame);
  cboShortWordSize = MakeCombo("cboShortWordSize", "Ignore words with fewer characters than", frame);
  cboLongWordSize = MakeCombo("cboLongWordSize", "Ignore words with more characters than", frame);
  // They are measured before their items, of two figures at most, are there.
  for (QComboBox* sizes : {cboShortWordSize, cboLongWordSize}) {
    sizes->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    sizes->setMinimumContentsLength(2);
  }
  chkIgnoreRepetitions = MakeCheckBox("chkIgnoreRepetitions", "containing 4 repetitions of a letter", frame);
  chkIgnoreNoLetter = MakeCheckBox("chkIgnoreNoLetter", "which lack a letter", frame);
  layout->addWidget(chkIgnoreShortWords, 0, 0);
  layout->addWidget(cboShortWordSize, 0, 1);
  layout->addWidget(new QLabel(QStringLiteral("characters"), frame), 0, 2);
  auto* longWords = MakeCaption("with &more than", cboLongWordSize, frame);
  // Under the text of the boxes around it, not under their marks.
  longWords->setIndent(chkIgnoreShortWords->sizeHint().width() -
                       chkIgnoreShortWords->fontMetrics().horizontalAdvance(chkIgnoreShortWords->text()) - 2);
  layout->addWidget(longWords, 1, 0);
  layout->addWidget(cboLongWordSize, 1, 1);
  layout->addWidget(new QLabel(QStringLiteral("characters"), frame), 1, 2);
  layout->addWidget(chkIgnoreRepetitions, 2, 0, 1, 4);
  layout->addWidget(chkIgnoreNoLetter, 3, 0, 1, 4);
  layout->setColumnStretch(3, 1);
  layout->setRowStretch(4, 1);
  return frame;
}

QWidget* FrmParamsControls::BuildPhraseBoundaries(QWidget* parent) {
  fraPhraseBoundaries = MakeGroup("fraPhraseBoundaries", "A phrase must not go beyond:", parent);
  QWidget* frame = fraPhraseBoundaries;
  auto* layout = Tight(new QGridLayout(frame), kMargins);
  chkTerminatePhraseAtDoubleQuote =
      MakeCheckBox("chkTerminatePhraseAtDoubleQuote", "end double quote \xE2\x80\x9D \"", frame);
  chkTerminatePhraseAtComma = MakeCheckBox("chkTerminatePhraseAtComma", "comma ,", frame);
  chkTerminatePhraseAtTab = MakeCheckBox("chkTerminatePhraseAtTab", "tab", frame);
  chkTerminatePhraseAtPeriod = MakeCheckBox("chkTerminatePhraseAtPeriod", "period .", frame);
  chkTerminatePhraseAtEndOfLine = MakeCheckBox("chkTerminatePhraseAtEndOfLine", "end of line", frame);
  layout->addWidget(chkTerminatePhraseAtDoubleQuote, 0, 0);
  layout->addWidget(chkTerminatePhraseAtComma, 1, 0);
  layout->addWidget(chkTerminatePhraseAtTab, 2, 0);
  layout->addWidget(chkTerminatePhraseAtPeriod, 0, 1);
  layout->addWidget(chkTerminatePhraseAtEndOfLine, 1, 1);
  layout->setColumnStretch(1, 1);
  return frame;
}

QWidget* FrmParamsControls::BuildOptions(QWidget* parent) {
  fraOptions = MakeGroup("fraOptions", "Options", parent);
  QWidget* frame = fraOptions;
  auto* layout = Tight(new QGridLayout(frame), kMargins);
  chkPatternMatchingInWordsToIgnoreFile =
      MakeCheckBox("chkPatternMatchingInWordsToIgnoreFile", "Enable pattern matching", frame);
  chkExtractTextFromDocx = MakeCheckBox("chkExtractTextFromDocx", "Extract text from docx files", frame);
  chkExtractTextFromDocx->setToolTip(
      QStringLiteral("If checked then text extracted from .docx files will be written to files in an "
                     "'extracted_text' subfolder."));
  chkSaveStateOnQuit = MakeCheckBox("chkSaveStateOnQuit", "Save settings when quitting", frame);
  chkWarnOnOverwrite = MakeCheckBox("chkWarnOnOverwrite", "Warn on overwrite of output file", frame);
  auto* patterns = new QHBoxLayout;
  patterns->addWidget(chkPatternMatchingInWordsToIgnoreFile);
  patterns->addWidget(new QLabel(QStringLiteral("for words-to-ignore file"), frame));
  patterns->addStretch(1);
  layout->addLayout(patterns, 0, 0);
  layout->addWidget(chkExtractTextFromDocx, 1, 0);
  layout->addWidget(chkSaveStateOnQuit, 0, 1);
  layout->addWidget(chkWarnOnOverwrite, 1, 1);
  layout->setColumnStretch(0, 1);
  layout->setHorizontalSpacing(16);
  layout->setRowStretch(2, 1);
  return frame;
}

QWidget* FrmParamsControls::BuildStateFile(QWidget* parent) {
  fraStateFile = MakeGroup("fraStateFile", "Settings file and questions", parent);
  QWidget* frame = fraStateFile;
  auto* layout = Tight(new QGridLayout(frame), kMargins);
  cmdSaveLoadState[0] = MakeButton("cmdSaveLoadState_0", "&Load settings from file", frame);
  cmdSaveLoadState[1] = MakeButton("cmdSaveLoadState_1", "Save settings &to file", frame);
  cmdAskEverythingAgain = MakeButton("cmdAskEverythingAgain", "As&k everything again", frame);
  cmdAskEverythingAgain->setToolTip(
      QStringLiteral("Asks again every question for which 'Do not ask again' was ticked."));
  txbStateFile = MakeTextBox("txbStateFile", "Settings file", frame);
  txbStateFile->hide();
  layout->addWidget(cmdSaveLoadState[0], 0, 0);
  layout->addWidget(cmdSaveLoadState[1], 0, 1);
  layout->addWidget(cmdAskEverythingAgain, 1, 0, 1, 2);
  layout->setRowStretch(2, 1);
  return frame;
}

std::array<QCheckBox*, 12> FrmParamsControls::AllowWordsBoxes() const {
  return {chkAllowWordsWithHyphens,     chkAllowWordsWithApostrophes, chkAllowWordsWithUnderscores,
          chkAllowWordsWithColons,      chkAllowWordsWithBackslashes, chkAllowWordsWithForwardslashes,
          chkAllowWordsWithParentheses, chkAllowWordsWithAmpersands,  chkAllowWordsWithPeriods,
          chkAllowWordsWithCommas,      chkAllowWordsWithAtSigns,     chkAllowWordsWithNumerals};
}

std::vector<QCheckBox*> FrmParamsControls::AllCheckboxes() const {
  const auto words = AllowWordsBoxes();
  std::vector<QCheckBox*> boxes(words.begin(), words.end());
  boxes.insert(boxes.end(),
               {chkCaseSignificant, chkIgnoreRepetitions, chkExtractTextFromDocx, chkIgnoreNoLetter,
                chkIgnoreShortWords, chkWarnOnOverwrite, chkSaveStateOnQuit, chkTerminatePhraseAtEndOfLine,
                chkTerminatePhraseAtPeriod, chkTerminatePhraseAtDoubleQuote, chkTerminatePhraseAtTab,
                chkTerminatePhraseAtComma, chkOnly7bitASCII, chkPatternMatchingInWordsToIgnoreFile});
  return boxes;
}

void FrmParamsControls::SetTabOrder() {
  const std::vector<QWidget*> order = {optWordsToIgnore,
                                       optCountOnlyWordsAndPhrases,
                                       cboCommonWordsLanguages,
                                       cmdSelectWordsFile,
                                       cboWordsFile,
                                       cmdClearWordsFile,
                                       txbWordsToIgnoreOrCount[0],
                                       txbWordsToIgnoreOrCount[1],
                                       cmdClearWordsToIgnoreOrCount,
                                       chkAllowWordsWithAmpersands,
                                       chkAllowWordsWithParentheses,
                                       chkAllowWordsWithCommas,
                                       chkAllowWordsWithAtSigns,
                                       chkAllowWordsWithHyphens,
                                       chkAllowWordsWithPeriods,
                                       chkAllowWordsWithForwardslashes,
                                       chkAllowWordsWithBackslashes,
                                       chkAllowWordsWithColons,
                                       chkAllowWordsWithUnderscores,
                                       chkAllowWordsWithNumerals,
                                       chkAllowWordsWithApostrophes,
                                       chkCaseSignificant,
                                       chkOnly7bitASCII,
                                       chkIgnoreShortWords,
                                       cboShortWordSize,
                                       cboLongWordSize,
                                       chkIgnoreRepetitions,
                                       chkIgnoreNoLetter,
                                       chkTerminatePhraseAtDoubleQuote,
                                       chkTerminatePhraseAtComma,
                                       chkTerminatePhraseAtTab,
                                       chkTerminatePhraseAtPeriod,
                                       chkTerminatePhraseAtEndOfLine,
                                       fraSample->txbSample,
                                       chkPatternMatchingInWordsToIgnoreFile,
                                       chkExtractTextFromDocx,
                                       chkSaveStateOnQuit,
                                       chkWarnOnOverwrite,
                                       cmdSaveLoadState[0],
                                       cmdSaveLoadState[1],
                                       cmdAskEverythingAgain,
                                       cmdUndo,
                                       cmdSetOrClearCheckboxes[0],
                                       cmdSetOrClearCheckboxes[1],
                                       cmdRestoreDefaults,
                                       cmdInitialize,
                                       cmdSaveState,
                                       cmdClose,
                                       cmdQuit};
  for (size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
  TabToTheSelected({optWordsToIgnore, optCountOnlyWordsAndPhrases});
}

}  // namespace korv
