#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/run/comparison_choice.h"
#include "app/run/run_observer.h"
#include "base/clock.h"
#include "base/number_format.h"
#include "base/yielder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "engine/patterns/word_filters.h"
#include "engine/run_options.h"
#include "engine/source_path.h"
#include "engine/text/word_rules.h"
#include "platform/files.h"
#include "platform/messages.h"
#include "report/report_options.h"
#include "report/run_summary.h"
#include "sources/detect/encoding_choice.h"
#include "sources/detect/text_file_code.h"
#include "sources/folders/file_selection.h"
#include "sources/read/document_choice.h"

namespace korv {

/// What is to be counted, and how. Plain data, read once at the beginning of a run.
struct RunRequest {
  RunOptions Options;
  WordRules Rules;       ///< AllowedExtraChars is rebuilt by the run.
  WordFilterSpec Lists;  ///< CaseSignificant is taken from Rules.
  ChainOrder Chain = ChainOrder::ByCount;

  std::string InputPath;  ///< The file or the folder, as typed.
  /// Several files and folders instead, counted together; the source is a folder then.
  std::vector<SourcePath> Paths;
  /// What Paths, side A, are compared with: read behind them in the same run. Empty where nothing is
  /// compared.
  std::vector<SourcePath> Compared;
  ComparisonChoice Comparison;  ///< How they are compared.
  std::string OutputPath;       ///< Empty when the report goes to no file.

  // Clipboard source, or standard input among Paths or Compared: one of the two.
  std::string ClipboardText;  ///< UTF-8.
  /// Bytes of any length, standard input for one. Not owned.
  korv::InputFile* Stream = nullptr;
  EncodingChoice StreamEncoding = EncodingChoice::Auto;
  /// The extension that texts are read by, whatever their names say: "html". Empty for their own.
  std::string ReadAs;
  /// The file or the stream holds counts of phrases instead of text. A file is a single file as source.
  bool FromCounts = false;
  bool KeepText = true;  ///< With the places; without it nothing leads back into the text.

  // Folder source.
  FileSelection Selection;
  bool IncludeSubfolders = false;
  bool SeveralFilesNeedOutput = true;  ///< Refuse several files without an output file.
  /// Such refusals come with a way out, which somebody at a window may take.
  bool OffersWaysOut = false;

  bool ExtractTextFromDocx = false;
  DocumentChoice Documents;
};

struct RunServices {
  korv::Messages& Messages;
  korv::Yielder& Yielder;
  FileSystem& Files;
  const korv::Clock& Clock;
  const NumberFormat& Numbers;
  EncodingChooser& Encodings;
  RunObserver& View;
  RunProgress& Progress;  ///< Kept up to date while the run goes on.
};

enum class RunEnd {
  Counted,    ///< There is a result, perhaps without a phrase in it.
  Refused,    ///< The source cannot be counted. The user has been told why.
  Abandoned,  ///< The user cancelled before anything was read.
  Stopped,    ///< Stopped, and the user did not want what was found.
  Failed,     ///< Something unforeseen, which has been shown.
};

/// A finished run: all that its reports need, so that listing again does not mean counting again.
struct CountedRun {
  std::unique_ptr<WordFilters> Lists = std::make_unique<WordFilters>();  ///< Those of the table.
  /// Sorted, marked and with its frequency chain. Its PhraseCount() may be asked while the run goes on.
  PhraseTable Table;
  ChainOrder Chain = ChainOrder::ByCount;  ///< What the chain goes by.
  RunSummary Facts;
  ComparisonChoice Comparison{};  ///< As in the request. Of use where Facts has a second side.
  std::string OutputPath;         ///< As in the request, or as chosen during the run.
  DocumentChoice Documents;       ///< As in the request.
  std::string KeptText;           ///< Of the clipboard or the stream, in its own encoding, where it is kept.
  std::string FileKind;           ///< Single file: FileKindAfterRun(), which lblTotalNumOccurrences shows.
  bool Interrupted = false;       ///< Stopped at some point; the user wanted what was found.
  StageTimes Times;
};

/// What a click on "Count phrases" asks before a run: whether the lengths make sense, whether to raise a
/// minimum frequency of 1, whether to keep the filter. Changes what the answers change: MinFrequency, and
/// the filter words with FilterActive. False when the run must not start; the user knows why.
bool AskBeforeCounting(RunRequest& request, ReportOptions& report, FileSystem& files, Messages& messages);

/// A click on the button while a run is going: asks, and on Yes requests the stop.
void AskToStop(Messages& messages, Yielder& yielder, RunObserver& view);

/// Counts the phrases of the source of `request`, from its checks to the frequency chain. A stop, which may
/// have been requested before, asks whether to list what was found; Yes finishes as if the text had ended
/// where it was stopped. Throws nothing: what nobody foresaw is shown.
RunEnd RunCount(const RunRequest& request, const RunServices& services, CountedRun& run);

/// The order of ranks that a report asks for.
ChainOrder ChainOrderOf(const ReportOptions& report);

/// Before a finished run is listed with other options: threads the chain anew where they ask for another
/// order. False when stopped; there is no chain then, and a later call sets it up.
bool SetUpChainFor(CountedRun& run, const ReportOptions& report, Yielder& yielder);

}  // namespace korv
