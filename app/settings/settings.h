#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/counting/run_options.h"
#include "engine/text/word_rules.h"
#include "report/report_options.h"

namespace korv {

inline constexpr int kLeastShortWordSize = 2;
inline constexpr int kMostShortWordSize = 20;
inline constexpr int kLeastLongWordSize = 20;
inline constexpr int kMostLongWordSize = 80;
inline constexpr int kLongWordSizeStep = 10;
inline constexpr int kMostWordsFiles = 99;

/// Items of the list of common-words languages.
enum class CommonWords { English, German, Spanish, Portuguese, Italian, French, All, None };

/// The whole persisted settings model: what the controls of both windows hold, as values rather than as
/// places in lists. The defaults are those of a fresh program after "Restore defaults".
///
/// Paths and texts are UTF-8 as typed; nothing here promises that a path exists.
struct Settings {
  std::string Folder;              ///< txbFolder
  std::string InputFile;           ///< txbFile(0)
  std::string OutputFile;          ///< txbFile(1)
  std::string FilePatterns;        ///< txbFileFilepathSpecifications(0)
  std::string ExcludedTexts;       ///< txbFileFilepathSpecifications(1)
  std::string ExtraWordsToIgnore;  ///< txbWordsToIgnoreOrCount(0)
  TextSource SourceKind = TextSource::SingleFile;
  bool IncludeSubfolders = false;
  bool DisableOutputToFile = false;

  /// Without AllowedExtraChars, which a run derives. LongWordSize is one of the list's tens.
  WordRules Words;

  int MinWords = 4;  ///< kLeastWords..kMostWords; may exceed MaxWords, which a run refuses.
  int MaxWords = 6;
  int MinFrequency = 2;  ///< 1..kMostMinFrequency
  /// The selected one of the four option buttons. None selected counts as Allow.
  std::optional<IgnoreRule> IgnoreOption = IgnoreRule::ExcludeAll;

  std::vector<std::string> WordsFiles;  ///< cboWordsFile, at most kMostWordsFiles full paths.
  int SelectedWordsFile = -1;           ///< Index into WordsFiles, -1 for none.
  /// The selected one of them; null for none.
  const std::string* WordsFile() const {
    return SelectedWordsFile < 0 ? nullptr : &WordsFiles[static_cast<size_t>(SelectedWordsFile)];
  }
  CommonWords CommonWordsLanguage = CommonWords::English;
  bool PatternMatchingInWordsToIgnoreFile = false;

  /// FileList and FilterActive are not persisted.
  ReportOptions Report;

  bool ExtractTextFromDocx = false;
  bool SaveStateOnQuit = false;
  bool WarnOnOverwrite = false;
};

/// What "Restore defaults" resets: word rules with their sizes, terminators, the behaviour options, pattern
/// matching and the source kind. Paths, lists, lengths and the report's options stay.
void SetDefaultValues(Settings& settings);
/// Takes what SetDefaultValues() would reset from `from` instead.
void TakeResettable(Settings& settings, const Settings& from);
/// Whether two settings agree in that.
bool SameResettable(const Settings& one, const Settings& other);

/// What a run reads out of the settings.
RunOptions RunOptionsOf(const Settings& settings);

/// Walks the fields in the order of the state file: the one place that knows it. `visit` has
///   Text(std::string&), Check(bool&), Option(std::optional<IgnoreRule>&, IgnoreRule),
///   Number(value, least, most, step): a selection, persisted as (value - least) / step,
///   List(std::vector<std::string>&, int& selected).
/// `settings` is Settings or const Settings.
template <typename AnySettings, typename Visitor>
void VisitFields(AnySettings& settings, Visitor& visit) {
  auto& words = settings.Words;
  auto& report = settings.Report;
  visit.Text(settings.Folder);
  visit.Text(settings.ExtraWordsToIgnore);
  visit.Text(settings.InputFile);
  visit.Text(settings.FilePatterns);
  visit.Text(settings.OutputFile);
  visit.Text(settings.ExcludedTexts);
  visit.Number(words.ShortWordSize, kLeastShortWordSize, kMostShortWordSize);
  visit.Number(words.LongWordSize, kLeastLongWordSize, kMostLongWordSize, kLongWordSizeStep);
  visit.Check(words.IgnoreShortWords);
  visit.Check(words.IgnoreRepetitions);
  visit.Check(settings.ExtractTextFromDocx);
  visit.Check(words.IgnoreNoLetter);
  visit.Check(words.CaseSignificant);
  visit.Check(words.AllowHyphens);
  visit.Check(words.AllowApostrophes);
  visit.Check(words.AllowUnderscores);
  visit.Check(words.AllowColons);
  visit.Check(words.AllowBackslashes);
  visit.Check(words.AllowForwardslashes);
  visit.Check(words.AllowParentheses);
  visit.Check(words.AllowPeriods);
  visit.Check(words.AllowCommas);
  visit.Check(words.AllowAtSigns);
  visit.Check(words.AllowNumerals);
  visit.Check(words.AllowAmpersands);
  visit.Check(settings.WarnOnOverwrite);
  visit.Check(settings.SaveStateOnQuit);
  visit.Check(settings.DisableOutputToFile);
  visit.Check(settings.IncludeSubfolders);
  visit.Number(report.WordOrder, 0, 1);
  visit.Number(report.DisplayFormat, 0, kDisplayFormats - 1);
  visit.Check(words.Only7bitASCII);
  visit.List(settings.WordsFiles, settings.SelectedWordsFile);
  visit.Number(settings.SourceKind, 0, 2);
  visit.Check(words.TerminateAtEndOfLine);
  visit.Check(words.TerminateAtPeriod);
  visit.Check(words.TerminateAtDoubleQuote);
  visit.Check(words.TerminateAtTab);
  visit.Check(words.TerminateAtComma);
  visit.Number(settings.MinWords, kLeastWords, kMostWords);
  visit.Number(settings.MaxWords, kLeastWords, kMostWords);
  visit.Number(settings.MinFrequency, 1, kMostMinFrequency);
  visit.Check(words.TerminateAtTab);  // Twice: files keep their positions, and the second one wins.
  visit.Check(settings.PatternMatchingInWordsToIgnoreFile);
  visit.Check(report.RelativeFrequency);
  visit.Check(report.SortByNumberOfFiles);
  visit.Number(settings.CommonWordsLanguage, 0, 7);
  visit.Text(report.FilterText);
  visit.Number(report.FilterModeOfWords, 0, 2);
  visit.Option(settings.IgnoreOption, IgnoreRule::Allow);
  visit.Option(settings.IgnoreOption, IgnoreRule::ExcludeAll);
  visit.Option(settings.IgnoreOption, IgnoreRule::Remove);
  visit.Option(settings.IgnoreOption, IgnoreRule::ExcludeWith);
}

}  // namespace korv
