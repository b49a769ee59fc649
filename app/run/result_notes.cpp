#include "app/run/result_notes.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/run/empty_result.h"
#include "app/run/left_out_words.h"
#include "base/size_text.h"
#include "base/utf8.h"
#include "report/summary.h"
#include "sources/detect/source_checks.h"

namespace korv {

namespace {

constexpr size_t kLongestName = 60;  // characters

std::string Counted(uint64_t number, const char* one, const char* many, const NumberFormat& numbers) {
  return numbers.Grouped(static_cast<int64_t>(number)) + " " + (number == 1 ? one : many);
}

std::string Name(const std::string& path) {
  return Shortened(SourceName(TextSource::SingleFile, path), kLongestName);
}

/// One a line.
std::string PathsText(const RunSummary& facts) {
  constexpr size_t kMostNamed = 20;
  std::string text;
  for (size_t i = 0; i < std::min(kMostNamed, facts.Paths.size()); ++i)
    text += (text.empty() ? "" : "\n") + facts.Paths[i].Path;
  return text + (facts.Paths.size() > kMostNamed ? "\n..." : "");
}

bool Filtered(const ReportOptions& options) {
  return options.FilterActive && !options.FilterText.empty();
}

/// Collects the notes of one result.
class Notes {
 public:
  Notes(const ShownResult& result, const ChosenNow& now, const NumberFormat& numbers)
      : result_(result), listing_(result.Listing), now_(now), numbers_(numbers) {}

  std::vector<ResultNote> All() {
    Source();
    if (!result_.InSight) {
      Add({NoteKind::NotInSight, "The last list is not shown.", {NoteAction::ShowLastList}});
      Skipped();
      return std::move(notes_);
    }
    Changes();
    Chosen();
    File();
    if (listing_.List.Unfiltered == 0 && !listing_.Failed)
      for (ResultNote& cause : CausesOfNothing(result_, numbers_)) Add(std::move(cause));
    Extent();
    Filter();
    Run();
    return std::move(notes_);
  }

  /// What concerns the run, however it is listed.
  std::vector<ResultNote> OfTheRun() {
    Changes();
    Run();
    return std::move(notes_);
  }

 private:
  void Add(ResultNote note) { notes_.push_back(std::move(note)); }

  void Source() {
    const RunSummary& facts = result_.Run.Facts;
    ResultNote note{NoteKind::Source, "", {}, facts.Paths.empty() ? facts.InputPath : PathsText(facts)};
    switch (facts.Options.SourceKind) {
      case TextSource::Clipboard:
        note.Text = "Phrases of the text on the clipboard";
        break;
      case TextSource::SingleFile:
        note.Text = "Phrases of " + Name(facts.InputPath);
        break;
      case TextSource::Folder:
        note.Text =
            "Phrases of " +
            (facts.Paths.empty() ? "the folder " + Name(facts.InputPath) : TogetherName(facts.Paths)) + ": " +
            Counted(facts.FilesScanned, "file", "files", numbers_) + " in " +
            Counted(facts.FoldersScanned, "folder", "folders", numbers_);
        break;
    }
    Add(std::move(note));
  }

  void Changes() {
    if (now_.Changes.Source)
      Add({NoteKind::OtherSource, "Another source is chosen now.", {NoteAction::CountAgain}});
    if (now_.Changes.Rules())
      Add({NoteKind::OtherRules,
           "Counted under other rules than those chosen now: " + ChangedRulesText(now_.Changes) + ".",
           {NoteAction::CountAgain}});
  }

  void Chosen() {
    if (!now_.FormatAvailable)
      Add({NoteKind::OtherReport,
           "The chosen format needs a count of a folder; this list has another one.",
           {NoteAction::CountAgain}});
    else if (!SameForm(listing_.Options, now_.Report))
      Add({NoteKind::OtherReport,
           "This list has another order or format than the one chosen now.",
           {NoteAction::ListAnew}});
  }

  void File() {
    const std::string& written = listing_.File;
    if (!written.empty())
      Add({NoteKind::Written,
           Counted(Within(), "phrase", "phrases", numbers_) + " written to " + Name(written) + " (" +
               FormatByteCount(listing_.Bytes, numbers_) + ").",
           {NoteAction::OpenFile, NoteAction::OpenFolder},
           written});
    if (!now_.OutputPath.empty() && now_.OutputPath != written)
      Add({NoteKind::NotWritten,
           "This list has not been written to the output file " + Name(now_.OutputPath) + ".",
           {NoteAction::ListAnew},
           now_.OutputPath});
    if (now_.OutputPath.empty() && !written.empty())
      Add({NoteKind::OnlyInFile, "This list stands in the file only.", {NoteAction::ListAnew}});
  }

  /// Phrases that found their way.
  uint32_t Within() const { return listing_.List.Shown; }

  void Extent() {
    const ListResult& list = listing_.List;
    const std::string phrases = Filtered(listing_.Options) ? " matching phrases" : " phrases";
    const std::string share =
        numbers_.Grouped(list.Shown) + " of " + numbers_.Grouped(list.Phrases) + phrases;
    const char* const where = listing_.File.empty() ? " shown" : " written";
    if (listing_.Failed)
      Add({NoteKind::ListingStopped, "The listing ended with an error.", {NoteAction::ListAnew}});
    else if (list.Outcome == ListOutcome::Stopped)
      // How many would have matched is not known.
      Add({NoteKind::ListingStopped,
           "The listing was stopped: " +
               (Filtered(listing_.Options) ? numbers_.Grouped(list.Shown) + phrases : share) + where + ".",
           {NoteAction::ListAnew}});
    else if (list.Shown < list.Phrases && listing_.File.empty())
      Add({NoteKind::Full, share + " shown: the text box is full.", {NoteAction::WriteToFile}});
  }

  void Filter() {
    const ReportOptions& listed = listing_.Options;
    if (Filtered(listed)) {
      const std::string matches = numbers_.Grouped(listing_.List.Phrases) + " of " +
                                  Counted(listing_.List.Unfiltered, "phrase", "phrases", numbers_) +
                                  (listing_.List.Phrases == 1 ? " matches." : " match.");
      const std::string applied = Shortened(listed.FilterText, kLongestName);
      Add({NoteKind::Filter,
           (now_.Report.FilterText.empty() ? "Still filtered by \"" : "Filtered by \"") + applied + "\" (" +
               FilterModeText(listed.FilterModeOfWords) + "): " + matches,
           {NoteAction::ShowAll},
           listed.FilterText});
    }
    if (!now_.Report.FilterText.empty() && !SameFilter(listed, now_.Report))
      Add({NoteKind::OtherFilter,
           "The filter words below are not applied to this list.",
           {NoteAction::FilterResults}});
  }

  void Run() {
    const RunSummary& facts = result_.Run.Facts;
    if (facts.Options.Stopped)
      Add({NoteKind::Incomplete,
           "Counting was stopped: what came after that is not in this list.",
           {NoteAction::CountAgain}});
    const size_t entries = result_.Request.Lists.CountOnly.size();
    if (entries > 0)
      Add({NoteKind::CountOnly,
           "Only phrases that match " +
               (entries == 1 ? "the one count-only entry"
                             : "one of the " + numbers_.Grouped(static_cast<int64_t>(entries)) +
                                   " count-only entries") +
               " were counted.",
           {NoteAction::CountOnly}});
    if (const std::string text = WordsLeftOutText(result_.Run, result_.Request.Rules, numbers_);
        !text.empty())
      Add({NoteKind::WordsLeftOut, text + ".", WaysToWordsLeftOut()});
    Skipped();
    if (facts.LongPhrases > 0)
      Add({NoteKind::LongPhrases, Counted(facts.LongPhrases, "phrase", "phrases", numbers_) +
                                      " of more than 100 characters left out."});
    if (const uint64_t replaced = facts.Encodings.IllFormed; replaced > 0)
      Add({NoteKind::Replaced, Counted(replaced, "byte sequence that is no UTF-8 was",
                                       "byte sequences that are no UTF-8 were", numbers_) +
                                   " passed over."});
  }

  std::vector<NoteAction> WaysToWordsLeftOut() const {
    const WordRules& rules = result_.Request.Rules;
    if (RulesThatTake(rules, result_.Run.Facts.Words) == rules) return {NoteAction::WordRules};
    return {NoteAction::CountLeftOut, NoteAction::WordRules};
  }

  void Skipped() {
    if (const size_t skipped = result_.Run.Facts.SkippedFiles.size(); skipped > 0)
      Add({NoteKind::Skipped,
           Counted(skipped, "file was skipped.", "files were skipped.", numbers_),
           {NoteAction::ShowSkipped}});
  }

  const ShownResult& result_;
  const ShownListing& listing_;
  const ChosenNow& now_;
  const NumberFormat& numbers_;
  std::vector<ResultNote> notes_;
};

std::string ReasonText(DropReason reason, const WordRules& rules) {
  switch (reason) {
    case DropReason::Short:
      return "shorter than " + std::to_string(rules.ShortWordSize) + " letters";
    case DropReason::Long:
      return "longer than " + std::to_string(rules.LongWordSize) + " letters";
    case DropReason::Letterless:
      return "without a letter";
    case DropReason::Repetition:
      return "with a letter four times in a row";
    case DropReason::Ignored:
      return "words to ignore";
    case DropReason::Not7bit:
      return "with other than 7-bit characters";
  }
  return {};
}

}  // namespace

const char* CaptionOf(NoteAction action) {
  switch (action) {
    case NoteAction::ListAnew:
      return "List anew";
    case NoteAction::CountAgain:
      return "Count again";
    case NoteAction::ShowLastList:
      return "Show the last list";
    case NoteAction::ShowAll:
      return "Show all";
    case NoteAction::FilterResults:
      return "Filter";
    case NoteAction::WriteToFile:
      return "Write all to a file...";
    case NoteAction::OpenFile:
      return "Open file";
    case NoteAction::OpenFolder:
      return "Open folder";
    case NoteAction::CountLeftOut:
      return "Count them";
    case NoteAction::ShowSkipped:
      return "Show";
    case NoteAction::WordRules:
      return "Word rules...";
    case NoteAction::WordsToIgnore:
      return "Words to ignore...";
    case NoteAction::CountOnly:
      return "Count-only list...";
    case NoteAction::MinFrequency:
      return "Minimum frequency";
    case NoteAction::Lengths:
      return "Phrase length";
  }
  return "";
}

std::vector<ResultNote> NotesOf(const ShownResult& result, const ChosenNow& now,
                                const NumberFormat& numbers) {
  return Notes(result, now, numbers).All();
}

std::vector<ResultNote> NotesOfRun(const ShownResult& result, const ChosenNow& now,
                                   const NumberFormat& numbers) {
  return Notes(result, now, numbers).OfTheRun();
}

std::string FilterModeText(FilterMode mode) {
  switch (mode) {
    case FilterMode::AllWords:
      return "all words";
    case FilterMode::AllWordsInSameOrder:
      return "all words in same order";
    case FilterMode::Subphrase:
      return "as subphrase";
  }
  return {};
}

std::string WordsLeftOutText(const CountedRun& run, const WordRules& rules, const NumberFormat& numbers) {
  const WordCounts& words = run.Facts.Words;
  if (words.Dropped() == 0) return {};
  std::string reasons;
  for (size_t i = 0; i < kDropReasons; ++i) {
    const uint64_t dropped = words.DroppedBy[i];
    if (dropped == 0) continue;
    if (!reasons.empty()) reasons += ", ";
    // Where there is one reason, its number is the one that has just been told.
    if (dropped != words.Dropped()) reasons += numbers.Grouped(static_cast<int64_t>(dropped)) + " ";
    reasons += ReasonText(static_cast<DropReason>(i), rules);
  }
  return numbers.Grouped(static_cast<int64_t>(words.Dropped())) + " of " +
         Counted(words.Read(), "word", "words", numbers) + " left out: " + reasons;
}

std::string EncodingText(const RunSummary& facts, const NumberFormat& numbers) {
  const EncodingCounts& texts = facts.Encodings;
  const bool several = texts.Ascii + texts.Ansi + texts.Utf8 > 1;
  std::string text;
  for (const auto& [count, name] :
       {std::pair(texts.Utf8, "UTF-8"), {texts.Ansi, "ANSI"}, {texts.Ascii, "ASCII"}}) {
    if (count == 0) continue;
    if (!text.empty()) text += ", ";
    if (several) text += numbers.Grouped(static_cast<int64_t>(count)) + " ";
    text += name;
  }
  return text;
}

ResultLabels LabelsOf(const ShownResult& result, const NumberFormat& numbers) {
  const ListResult& list = result.Listing.List;
  const StatusLabels listed =
      StatusLabelTexts(list.Phrases, list.Occurrences, Filtered(result.Listing.Options), numbers);
  const RunSummary& facts = result.Run.Facts;
  ResultLabels labels{listed.NumberOfWords, listed.NumOccurrences, result.Run.FileKind, ""};
  if (facts.Options.SourceKind != TextSource::SingleFile)
    labels.TotalNumOccurrences = "Total number of phrase occurrences: " +
                                 numbers.Grouped(static_cast<int64_t>(result.Run.Table.Occurrences()));
  if (const uint64_t dropped = facts.Words.Dropped(); dropped > 0)
    labels.NumWordsExcluded = "Number of words excluded: " + numbers.Grouped(static_cast<int64_t>(dropped));
  return labels;
}

std::string SourceName(TextSource kind, const std::string& path) {
  if (kind == TextSource::Clipboard) return "Clipboard";
  const std::string trimmed = kind == TextSource::Folder ? TrimmedFolderPath(path) : TrimmedPath(path);
  const std::string name = PathToText(PathFromText(trimmed).filename());
  return name.empty() ? trimmed : name;
}

std::string FileNameOfRun(const RunSummary& facts) {
  std::string name = SourceNameOf(facts);
  std::ranges::replace_if(
      name, [](char c) { return std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos; }, '_');
  return name;
}

std::string TogetherName(std::span<const SourcePath> paths) {
  const auto counted = [](size_t number, const char* what) {
    return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
  };
  size_t folders = 0;
  for (const SourcePath& source : paths)
    if (source.What == SourcePath::Kind::Folder) ++folders;
  const size_t files = paths.size() - folders;
  std::string name;
  if (files > 0) name = counted(files, "file");
  if (files > 0 && folders > 0) name += " and ";
  if (folders > 0) name += counted(folders, "folder");
  return name;
}

std::string SourceNameOf(const RunSummary& facts) {
  return facts.Paths.empty() ? SourceName(facts.Options.SourceKind, facts.InputPath)
                             : TogetherName(facts.Paths);
}

std::string Shortened(const std::string& name, size_t characters) {
  std::vector<size_t> begins;
  for (size_t at = 0; at < name.size(); ++at)
    if ((static_cast<unsigned char>(name[at]) & 0xC0U) != 0x80U) begins.push_back(at);
  if (begins.size() <= characters) return name;
  // The end of a name tells more than its middle.
  const size_t front = (characters - 1) / 2;
  const size_t back = characters - 1 - front;
  return name.substr(0, begins[front]) + "\xE2\x80\xA6" + name.substr(begins[begins.size() - back]);
}

}  // namespace korv
