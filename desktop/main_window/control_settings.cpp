#include "desktop/main_window/control_settings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "app/run/run_request.h"
#include "desktop/main_window/file_page.h"
#include "desktop/main_window/folder_page.h"
#include "desktop/main_window/output_file_panel.h"
#include "desktop/main_window/phrases_panel.h"
#include "desktop/main_window/report_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/words_to_ignore_panel.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/result_panel.h"
#include "desktop/settings_window/frm_params.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

/// Which control keeps which check of the record. One list for both directions.
template <typename AnySettings, typename Visit>
void VisitChecks(const MainPanels& panels, const frmParams& params, AnySettings& settings, Visit visit) {
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
  visit(panels.Source->Folder->chkIncludeSubfolders, settings.IncludeSubfolders);
  visit(panels.OutputFile->chkDisableOutputToFile, settings.DisableOutputToFile);
}

template <typename AnySettings, typename Visit>
void VisitBoxes(const MainPanels& panels, AnySettings& settings, Visit visit) {
  const FolderPage& folder = *panels.Source->Folder;
  visit(folder.txbFolder, settings.Folder);
  visit(panels.Source->File->txbFile, settings.InputFile);
  visit(panels.OutputFile->txbFile, settings.OutputFile);
  visit(folder.txbFileFilepathSpecifications[0], settings.FilePatterns);
  visit(folder.txbFileFilepathSpecifications[1], settings.ExcludedTexts);
}

/// A box of several lines as one line: the breaks between typed words are blanks like any other.
std::string OneLine(const QPlainTextEdit& box) {
  QString text = box.toPlainText();
  text.replace(u'\n', u' ');
  return FromQt(text);
}

}  // namespace

Settings ControlSettings::Gather() const {
  Settings settings;
  VisitChecks(panels_, params_, settings,
              [](const QCheckBox* box, bool& value) { value = box->isChecked(); });
  VisitBoxes(panels_, settings,
             [](const QLineEdit* box, std::string& value) { value = FromQt(box->text().trimmed()); });
  settings.ExtraWordsToIgnore = OneLine(*params_.txbWordsToIgnoreOrCount[0]);
  settings.Words.ShortWordSize = kLeastShortWordSize + params_.cboShortWordSize->currentIndex();
  settings.Words.LongWordSize =
      kLeastLongWordSize + kLongWordSizeStep * params_.cboLongWordSize->currentIndex();
  settings.SourceKind = panels_.Source->Kind();
  settings.MinWords = kLeastWords + panels_.Phrases->cboPhraseLength[0]->currentIndex();
  settings.MaxWords = kLeastWords + panels_.Phrases->cboPhraseLength[1]->currentIndex();
  settings.MinFrequency = 1 + panels_.Phrases->cboMinimumFrequency->currentIndex();
  settings.IgnoreOption = panels_.WordsToIgnore->Rule();
  settings.CommonWordsLanguage = static_cast<CommonWords>(params_.cboCommonWordsLanguages->currentIndex());
  params_.GatherWordFiles(settings);
  settings.Report = GatherReportOptions();
  return settings;
}

ReportOptions ControlSettings::GatherReportOptions() const {
  ReportOptions options = panels_.Report->Gather();
  options.FilterText = panels_.Result->Filter->Words();
  options.FilterModeOfWords = panels_.Result->Filter->Mode();
  return options;
}

RunRequest ControlSettings::GatherRunRequest() const {
  const Settings settings = Gather();
  RunRequest request = RunRequestOf(settings);
  request.Lists = params_.GatherWordFilterSpec(settings.Words);
  request.OffersWaysOut = true;
  return request;
}

void ControlSettings::Put(const Settings& settings) {
  const auto restoring = BeginRestoring();
  VisitChecks(panels_, params_, settings, [](QCheckBox* box, bool value) { box->setChecked(value); });
  VisitBoxes(panels_, settings, [](QLineEdit* box, const std::string& value) { box->setText(ToQt(value)); });
  QPlainTextEdit& extraWords = *params_.txbWordsToIgnoreOrCount[0];
  if (OneLine(extraWords) != settings.ExtraWordsToIgnore) {
    extraWords.setPlainText(ToQt(settings.ExtraWordsToIgnore));
  }
  params_.cboShortWordSize->setCurrentIndex(settings.Words.ShortWordSize - kLeastShortWordSize);
  params_.cboLongWordSize->setCurrentIndex((settings.Words.LongWordSize - kLeastLongWordSize) /
                                           kLongWordSizeStep);
  panels_.Phrases->cboPhraseLength[0]->setCurrentIndex(settings.MinWords - kLeastWords);
  panels_.Phrases->cboPhraseLength[1]->setCurrentIndex(settings.MaxWords - kLeastWords);
  panels_.Phrases->cboMinimumFrequency->setCurrentIndex(settings.MinFrequency - 1);
  panels_.WordsToIgnore->Select(settings.IgnoreOption);
  params_.cboCommonWordsLanguages->setCurrentIndex(static_cast<int>(settings.CommonWordsLanguage));
  params_.ApplyWordFiles(settings);
  panels_.Report->Put(settings.Report);
  panels_.Result->Filter->SetWords(settings.Report.FilterText);
  panels_.Result->Filter->Select(settings.Report.FilterModeOfWords);
  params_.EnableWordSizes();
  panels_.Source->Select(settings.SourceKind);
}

}  // namespace korv
