#pragma once

#include <optional>
#include <string>
#include <vector>

#include "engine/run_options.h"
#include "engine/text/word_rules.h"
#include "report/report_options.h"
#include "sources/read/document_choice.h"

namespace korv {

inline constexpr int kLeastShortWordSize = 2;
inline constexpr int kMostShortWordSize = 20;
inline constexpr int kLeastLongWordSize = 20;
inline constexpr int kMostLongWordSize = 80;
inline constexpr int kLongWordSizeStep = 10;
inline constexpr int kMostWordsFiles = 99;

/// Items of the list of common-words languages.
enum class CommonWords { English, German, Spanish, Portuguese, Italian, French, All, None };

/// What the user asked for with one switch: texts by the letter, or as a reader sees them. The single
/// settings that it sets may then differ from it.
enum class Reading { Letter, Reader };

/// What a word is made of.
enum class WordRule {
  Allowed,  ///< Letters and the characters that are allowed.
  Words,    ///< The same with digits, apostrophes and hyphens, allowed or not.
  Unicode,  ///< As Unicode has words.
};

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

  // What Reading sets: see ApplyReading().
  korv::Reading Reading = korv::Reading::Letter;
  bool ShownMarkup = false;
  bool DeclaredEncodings = false;
  bool NotesAndBoxes = false;
  WordRule WordsAre = WordRule::Allowed;
  bool AnyWordLength = false;  ///< No word is dropped for its length.
  bool LongPhrases = false;    ///< Phrases of up to 1,000 characters, not 100.
  std::string Encoding;  ///< cboEncoding: the name of the encoding of all texts; empty for each its own.

  bool ExtractTextFromDocx = false;
  DocumentChoice
      Documents;  ///< chkReadOtherDocuments, txbDocumentSegments, txbOnlyElements, txbSkippedElements
  bool SaveStateOnQuit = false;
  bool WarnOnOverwrite = false;
};

}  // namespace korv
