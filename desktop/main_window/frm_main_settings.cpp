// The settings of both windows: from the controls into the record and back, and the files that keep them.

#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <initializer_list>
#include <utility>

#include "app/settings/saved_state.h"
#include "desktop/dialogs/frm_popup.h"
#include "desktop/main_window/frm_main.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

/// Which control keeps which check of the record. One list for both directions.
template <typename Main, typename AnySettings, typename Visit>
void VisitChecks(Main& main, const frmParams& params, AnySettings& settings, Visit visit) {
  auto& words = settings.Words;
  visit(params.chkAllowWordsWithHyphens, words.AllowHyphens);
  visit(params.chkAllowWordsWithApostrophes, words.AllowApostrophes);
  visit(params.chkAllowWordsWithUnderscores, words.AllowUnderscores);
  visit(params.chkAllowWordsWithColons, words.AllowColons);
  visit(params.chkAllowWordsWithBackslashes, words.AllowBackslashes);
  visit(params.chkAllowWordsWithForwardslashes, words.AllowForwardslashes);
  visit(params.chkAllowWordsWithPeriods, words.AllowPeriods);
  visit(params.chkAllowWordsWithAtSigns, words.AllowAtSigns);
  visit(params.chkAllowWordsWithNumerals, words.AllowNumerals);
  visit(params.chkAllowWordsWithParentheses, words.AllowParentheses);
  visit(params.chkAllowWordsWithAmpersands, words.AllowAmpersands);
  visit(params.chkAllowWordsWithCommas, words.AllowCommas);
  visit(params.chkCaseSignificant, words.CaseSignificant);
  visit(params.chkOnly7bitASCII, words.Only7bitASCII);
  visit(params.chkIgnoreShortWords, words.IgnoreShortWords);
  visit(params.chkIgnoreNoLetter, words.IgnoreNoLetter);
  visit(params.chkIgnoreRepetitions, words.IgnoreRepetitions);
  visit(params.chkTerminatePhraseAtEndOfLine, words.TerminateAtEndOfLine);
  visit(params.chkTerminatePhraseAtPeriod, words.TerminateAtPeriod);
  visit(params.chkTerminatePhraseAtComma, words.TerminateAtComma);
  visit(params.chkTerminatePhraseAtDoubleQuote, words.TerminateAtDoubleQuote);
  visit(params.chkTerminatePhraseAtTab, words.TerminateAtTab);
  visit(params.chkPatternMatchingInWordsToIgnoreFile, settings.PatternMatchingInWordsToIgnoreFile);
  visit(params.chkExtractTextFromDocx, settings.ExtractTextFromDocx);
  visit(params.chkSaveStateOnQuit, settings.SaveStateOnQuit);
  visit(params.chkWarnOnOverwrite, settings.WarnOnOverwrite);
  visit(main.chkIncludeSubfolders, settings.IncludeSubfolders);
  visit(main.chkDisableOutputToFile, settings.DisableOutputToFile);
}

template <typename Main, typename AnySettings, typename Visit>
void VisitBoxes(Main& main, AnySettings& settings, Visit visit) {
  visit(main.txbFolder, settings.Folder);
  visit(main.txbFile[0], settings.InputFile);
  visit(main.txbFile[1], settings.OutputFile);
  visit(main.txbFileFilepathSpecifications[0], settings.FilePatterns);
  visit(main.txbFileFilepathSpecifications[1], settings.ExcludedTexts);
}

/// Selects one of a group of option buttons, or none of them.
void Select(std::initializer_list<std::pair<QRadioButton*, bool>> options) {
  // A group does not let go of its selection by itself.
  for (const auto& [option, selected] : options) option->setAutoExclusive(false);
  for (const auto& [option, selected] : options) option->setChecked(selected);
  for (const auto& [option, selected] : options) option->setAutoExclusive(true);
}

/// A box of several lines as one line: the breaks between typed words are blanks like any other.
std::string OneLine(const QPlainTextEdit& box) {
  QString text = box.toPlainText();
  text.replace(u'\n', u' ');
  return FromQt(text);
}

}  // namespace

Settings frmMain::GatherSettings() const {
  Settings settings;
  VisitChecks(*this, *params_, settings, [](const QCheckBox* box, bool& value) { value = box->isChecked(); });
  VisitBoxes(*this, settings,
             [](const QLineEdit* box, std::string& value) { value = FromQt(box->text().trimmed()); });
  settings.ExtraWordsToIgnore = OneLine(*params_->txbWordsToIgnoreOrCount[0]);
  settings.Words.ShortWordSize = kLeastShortWordSize + params_->cboShortWordSize->currentIndex();
  settings.Words.LongWordSize =
      kLeastLongWordSize + kLongWordSizeStep * params_->cboLongWordSize->currentIndex();
  settings.SourceKind = SourceKind();
  settings.MinWords = kLeastWords + cboPhraseLength[0]->currentIndex();
  settings.MaxWords = kLeastWords + cboPhraseLength[1]->currentIndex();
  settings.MinFrequency = 1 + cboMinimumFrequency->currentIndex();
  settings.IgnoreOption.reset();
  if (optAllowPhrasesAllWordsToIgnore->isChecked()) settings.IgnoreOption = IgnoreRule::Allow;
  if (optExcludePhrasesAllWordsToIgnore->isChecked()) settings.IgnoreOption = IgnoreRule::ExcludeAll;
  if (optRemoveWordsToIgnore->isChecked()) settings.IgnoreOption = IgnoreRule::Remove;
  if (optExcludePhrasesWithWordToIgnore->isChecked()) settings.IgnoreOption = IgnoreRule::ExcludeWith;
  settings.CommonWordsLanguage = static_cast<CommonWords>(params_->cboCommonWordsLanguages->currentIndex());
  params_->GatherWordFiles(settings);
  settings.Report = GatherReportOptions();
  return settings;
}

void frmMain::ApplySettings(const Settings& settings) {
  PutIntoControls(settings);
  FollowControls();
}

void frmMain::PutIntoControls(const Settings& settings) {
  const QScopedValueRollback<bool> quiet(restoring_, true);
  VisitChecks(*this, *params_, settings, [](QCheckBox* box, bool value) { box->setChecked(value); });
  VisitBoxes(*this, settings, [](QLineEdit* box, const std::string& value) { box->setText(ToQt(value)); });
  if (OneLine(*params_->txbWordsToIgnoreOrCount[0]) != settings.ExtraWordsToIgnore) {
    params_->txbWordsToIgnoreOrCount[0]->setPlainText(ToQt(settings.ExtraWordsToIgnore));
  }
  params_->cboShortWordSize->setCurrentIndex(settings.Words.ShortWordSize - kLeastShortWordSize);
  params_->cboLongWordSize->setCurrentIndex((settings.Words.LongWordSize - kLeastLongWordSize) /
                                            kLongWordSizeStep);
  cboPhraseLength[0]->setCurrentIndex(settings.MinWords - kLeastWords);
  cboPhraseLength[1]->setCurrentIndex(settings.MaxWords - kLeastWords);
  cboMinimumFrequency->setCurrentIndex(settings.MinFrequency - 1);
  Select({{optAllowPhrasesAllWordsToIgnore, settings.IgnoreOption == IgnoreRule::Allow},
          {optExcludePhrasesAllWordsToIgnore, settings.IgnoreOption == IgnoreRule::ExcludeAll},
          {optRemoveWordsToIgnore, settings.IgnoreOption == IgnoreRule::Remove},
          {optExcludePhrasesWithWordToIgnore, settings.IgnoreOption == IgnoreRule::ExcludeWith}});
  params_->cboCommonWordsLanguages->setCurrentIndex(static_cast<int>(settings.CommonWordsLanguage));
  params_->ApplyWordFiles(settings);

  cboWordOrder->setCurrentIndex(settings.Report.WordOrder);
  cboDisplayFormat->setCurrentIndex(settings.Report.DisplayFormat);
  chkDisplayRelativeFrequency->setChecked(settings.Report.RelativeFrequency);
  chkSortByNumberOfFiles->setChecked(settings.Report.SortByNumberOfFiles);
  txbFilterWords->setText(ToQt(settings.Report.FilterText));
  cmdClear->setEnabled(!settings.Report.FilterText.empty());
  const FilterMode mode = settings.Report.FilterModeOfWords;
  Select({{optIncludeAllWords, mode == FilterMode::AllWords},
          {optIncludeAllWordsInSameOrder, mode == FilterMode::AllWordsInSameOrder},
          {optIncludeAllWordsAsSubphrase, mode == FilterMode::Subphrase}});

  params_->EnableWordSizes();
  SelectSource(settings.SourceKind);
}

std::string frmMain::SaveStateTo(const std::filesystem::path& path) {
  const Settings settings = GatherSettings();
  const std::string fault =
      SavedState(desktop_.Files, desktop_.Messages, desktop_.StateFile).SaveState(path, settings);
  if (fault.empty()) keeper_.Remember(settings);
  return fault;
}

RestoreOutcome frmMain::RestoreSavedState(const std::filesystem::path& path) {
  Settings settings = GatherSettings();
  const RestoreOutcome outcome =
      SavedState(desktop_.Files, desktop_.Messages, desktop_.StateFile).RestoreSavedState(path, settings);
  ApplySettings(settings);
  if (outcome.Result != kRestored) return outcome;
  keeper_.Remember(settings);

  // As when the user leaves those fields.
  for (int i = 0; i < 2; ++i) {
    txbFile_LostFocus(i);
    txbFileFilepathSpecifications_LostFocus(i);
  }
  txbFolder_LostFocus();
  // What follows the last field is not for a file that ended before it.
  if (outcome.EndedEarly) {
    SetWordsToIgnoreNotice();
    return outcome;
  }
  if (const std::string* list = settings.WordsFile()) {
    const std::string& selected = *list;
    if (AskToLoadWordFile(selected, desktop_.Messages)) {
      params_->AttemptToReadWords(ListKind::WordsToIgnore);
    } else {
      params_->ForgetLoadedWords(ListKind::WordsToIgnore);
    }
  } else {
    params_->ForgetLoadedWords(ListKind::WordsToIgnore);
  }
  SetWordsToIgnoreNotice();
  return outcome;
}

void frmMain::RestoreStateFile() {
  if (!desktop_.Files.FileExists(desktop_.StateFile)) return;
  const RestoreOutcome outcome = RestoreSavedState({});
  if (outcome.Result == kRestored) return;
  desktop_.Messages.Show(
      {.Text = LoadFailureText(outcome), .Title = "Load settings", .Icon = Icon::Exclamation});
}

void frmMain::cmdSaveState_Click() {
  SaveStateFile(this);
}

void frmMain::SaveStateFile(QWidget* window) {
  const std::string fault = SaveStateTo({});
  if (!fault.empty()) {
    desktop_.Messages.Show({.Text = fault, .Title = "Save state", .Icon = Icon::Exclamation});
    return;
  }
  popUp_->PopUpInForm(QStringLiteral("Settings saved"), window, QStringLiteral("Save state"));
}

}  // namespace korv
