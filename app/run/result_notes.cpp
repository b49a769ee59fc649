#include "app/run/result_notes.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/run/counted.h"
#include "app/run/empty_result.h"
#include "app/run/left_out_words.h"
#include "base/size_text.h"
#include "base/translation.h"
#include "base/utf8.h"
#include "report/summary.h"
#include "sources/detect/source_checks.h"

namespace korv {

namespace {

constexpr size_t kLongestName = 60;  // characters

std::string Name(const std::string& path) {
  return Shortened(SourceName(TextSource::SingleFile, path), kLongestName);
}

/// One a line.
std::string PathsText(std::span<const SourcePath> paths) {
  constexpr size_t kMostNamed = 20;
  std::string text;
  for (size_t i = 0; i < std::min(kMostNamed, paths.size()); ++i)
    text += (text.empty() ? "" : "\n") + paths[i].Path;
  return text + (paths.size() > kMostNamed ? "\n..." : "");
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
      Add({NoteKind::NotInSight, Tr("The last list is not shown."), {NoteAction::ShowLastList}});
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
    if (facts.SecondSide) return BothSides(facts);
    ResultNote note{NoteKind::Source, "", {}, facts.Paths.empty() ? facts.InputPath : PathsText(facts.Paths)};
    switch (facts.Options.SourceKind) {
      case TextSource::Clipboard:
        note.Text = Tr("Phrases of the text on the clipboard");
        break;
      case TextSource::SingleFile:
        note.Text = Fill(Tr("Phrases of %1"), {Name(facts.InputPath)});
        break;
      case TextSource::Folder:
        note.Text = Fill(
            facts.Paths.empty() ? Tr("Phrases of the folder %1: %2 in %3") : Tr("Phrases of %1: %2 in %3"),
            {facts.Paths.empty() ? Name(facts.InputPath) : TogetherName(facts.Paths),
             Counted(TrCount("%1 file", "%1 files", facts.FilesScanned), facts.FilesScanned, numbers_),
             Counted(TrCount("%1 folder", "%1 folders", facts.FoldersScanned), facts.FoldersScanned,
                     numbers_)});
        break;
    }
    Add(std::move(note));
  }

  void BothSides(const RunSummary& facts) {
    const auto nameOf = [&](Side side) { return Shortened(SideNameOf(facts, side), kLongestName); };
    Add({NoteKind::Source,
         Fill(Tr("Phrases of %1, compared with %2"), {nameOf(Side::A), nameOf(Side::B)}),
         {},
         PathsText(facts.Paths) + "\n" + PathsText(facts.SecondSide->Paths)});
    Add({NoteKind::BothSides, Tr("Frequencies in this list are those of both sides together.")});
  }

  void SharedFiles() {
    const std::optional<SecondSide>& b = result_.Run.Facts.SecondSide;
    if (b && b->SharedFiles > 0)
      Add({NoteKind::SharedFiles,
           Counted(TrCount("%1 file is on both sides of the comparison.",
                           "%1 files are on both sides of the comparison.", b->SharedFiles),
                   b->SharedFiles, numbers_)});
  }

  void Changes() {
    if (now_.Changes.Source)
      Add({NoteKind::OtherSource, Tr("Another source is chosen now."), {NoteAction::CountAgain}});
    if (now_.Changes.Rules())
      Add({NoteKind::OtherRules,
           Fill(Tr("Counted under other rules than those chosen now: %1."), {ChangedRulesText(now_.Changes)}),
           {NoteAction::CountAgain}});
  }

  void Chosen() {
    if (!now_.FormatAvailable)
      Add({NoteKind::OtherReport,
           Tr("The chosen format needs a count of a folder; this list has another one."),
           {NoteAction::CountAgain}});
    else if (!SameForm(listing_.Options, now_.Report))
      Add({NoteKind::OtherReport,
           Tr("This list has another order or format than the one chosen now."),
           {NoteAction::ListAnew}});
  }

  void File() {
    const std::string& written = listing_.File;
    if (!written.empty())
      Add({NoteKind::Written,
           Fill(TrCount("%1 phrase written to %2 (%3).", "%1 phrases written to %2 (%3).", Within()),
                {numbers_.Grouped(Within()), Name(written), FormatByteCount(listing_.Bytes, numbers_)}),
           {NoteAction::OpenFile, NoteAction::OpenFolder},
           written});
    if (!now_.OutputPath.empty() && now_.OutputPath != written)
      Add({NoteKind::NotWritten,
           Fill(Tr("This list has not been written to the output file %1."), {Name(now_.OutputPath)}),
           {NoteAction::ListAnew},
           now_.OutputPath});
    if (now_.OutputPath.empty() && !written.empty())
      Add({NoteKind::OnlyInFile, Tr("This list stands in the file only."), {NoteAction::ListAnew}});
  }

  /// Phrases that found their way.
  uint32_t Within() const { return listing_.List.Shown; }

  void Extent() {
    const ListResult& list = listing_.List;
    const bool filtered = Filtered(listing_.Options);
    const std::string shown = numbers_.Grouped(list.Shown);
    const std::string phrases = numbers_.Grouped(list.Phrases);
    if (listing_.Failed)
      Add({NoteKind::ListingStopped, Tr("The listing ended with an error."), {NoteAction::ListAnew}});
    else if (list.Outcome == ListOutcome::Stopped)
      Add({NoteKind::ListingStopped,
           Fill(StoppedPattern(filtered), {shown, phrases}),
           {NoteAction::ListAnew}});
    else if (list.Shown < list.Phrases && listing_.File.empty())
      Add({NoteKind::Full,
           Fill(filtered ? Tr("%1 of %2 matching phrases shown: the text box is full.")
                         : Tr("%1 of %2 phrases shown: the text box is full."),
                {shown, phrases}),
           {NoteAction::WriteToFile}});
  }

  /// How many would have matched is not known.
  const char* StoppedPattern(bool filtered) const {
    if (listing_.File.empty())
      return filtered ? Tr("The listing was stopped: %1 matching phrases shown.")
                      : Tr("The listing was stopped: %1 of %2 phrases shown.");
    return filtered ? Tr("The listing was stopped: %1 matching phrases written.")
                    : Tr("The listing was stopped: %1 of %2 phrases written.");
  }

  void Filter() {
    const ReportOptions& listed = listing_.Options;
    if (Filtered(listed)) {
      Add({NoteKind::Filter,
           Fill(now_.Report.FilterText.empty() ? Tr("Still filtered by \"%1\" (%2): %3")
                                               : Tr("Filtered by \"%1\" (%2): %3"),
                {Shortened(listed.FilterText, kLongestName), FilterModeText(listed.FilterModeOfWords),
                 MatchesText()}),
           {NoteAction::ShowAll},
           listed.FilterText});
    }
    if (!now_.Report.FilterText.empty() && !SameFilter(listed, now_.Report))
      Add({NoteKind::OtherFilter,
           Tr("The filter words below are not applied to this list."),
           {NoteAction::FilterResults}});
  }

  std::string MatchesText() const {
    const ListResult& list = listing_.List;
    return Fill(list.Phrases == 1
                    ? TrCount("%1 of %2 phrase matches.", "%1 of %2 phrases matches.", list.Unfiltered)
                    : TrCount("%1 of %2 phrase match.", "%1 of %2 phrases match.", list.Unfiltered),
                {numbers_.Grouped(list.Phrases), numbers_.Grouped(list.Unfiltered)});
  }

  void Run() {
    const RunSummary& facts = result_.Run.Facts;
    SharedFiles();
    if (facts.Options.Stopped)
      Add({NoteKind::Incomplete,
           Tr("Counting was stopped: what came after that is not in this list."),
           {NoteAction::CountAgain}});
    const size_t entries = result_.Request.Lists.CountOnly.size();
    if (entries > 0)
      Add({NoteKind::CountOnly,
           entries == 1 ? Tr("Only phrases that match the one count-only entry were counted.")
                        : Counted(TrCount("Only phrases that match %1 count-only entry were counted.",
                                          "Only phrases that match one of the %1 count-only entries were "
                                          "counted.",
                                          entries),
                                  entries, numbers_),
           {NoteAction::CountOnly}});
    if (const std::string text = WordsLeftOutText(result_.Run, result_.Request.Rules, numbers_);
        !text.empty())
      Add({NoteKind::WordsLeftOut, text + ".", WaysToWordsLeftOut()});
    Skipped();
    if (facts.LongPhrases > 0)
      Add({NoteKind::LongPhrases,
           Fill(TrCount("%1 phrase of more than %2 characters left out.",
                        "%1 phrases of more than %2 characters left out.", facts.LongPhrases),
                {numbers_.Grouped(static_cast<int64_t>(facts.LongPhrases)),
                 numbers_.Grouped(facts.Options.MostCharacters)})});
    if (const uint64_t replaced = facts.Encodings.IllFormed; replaced > 0)
      Add({NoteKind::Replaced,
           Counted(TrCount("%1 byte sequence that is no UTF-8 was passed over.",
                           "%1 byte sequences that are no UTF-8 were passed over.", replaced),
                   replaced, numbers_)});
  }

  std::vector<NoteAction> WaysToWordsLeftOut() const {
    const WordRules& rules = result_.Request.Rules;
    if (RulesThatTake(rules, result_.Run.Facts.Words) == rules) return {NoteAction::WordRules};
    return {NoteAction::CountLeftOut, NoteAction::WordRules};
  }

  void Skipped() {
    if (const size_t skipped = result_.Run.Facts.SkippedFiles.size(); skipped > 0)
      Add({NoteKind::Skipped,
           Counted(TrCount("%1 file was skipped.", "%1 files were skipped.", skipped), skipped, numbers_),
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
      return Fill(Tr("shorter than %1 letters"), {std::to_string(rules.ShortWordSize)});
    case DropReason::Long:
      return Fill(Tr("longer than %1 letters"), {std::to_string(rules.LongWordSize)});
    case DropReason::Letterless:
      return Tr("without a letter");
    case DropReason::Repetition:
      return Tr("with a letter four times in a row");
    case DropReason::Ignored:
      return Tr("words to ignore");
    case DropReason::Not7bit:
      return Tr("with other than 7-bit characters");
  }
  return {};
}

}  // namespace

const char* CaptionOf(NoteAction action) {
  switch (action) {
    case NoteAction::ListAnew:
      return Tr("List anew");
    case NoteAction::CountAgain:
      return Tr("Count again");
    case NoteAction::ShowLastList:
      return Tr("Show the last list");
    case NoteAction::ShowAll:
      return Tr("Show all");
    case NoteAction::FilterResults:
      return Tr("Filter");
    case NoteAction::WriteToFile:
      return Tr("Write all to a file...");
    case NoteAction::OpenFile:
      return Tr("Open file");
    case NoteAction::OpenFolder:
      return Tr("Open folder");
    case NoteAction::CountLeftOut:
      return Tr("Count them");
    case NoteAction::ShowSkipped:
      return Tr("Show");
    case NoteAction::WordRules:
      return Tr("Word rules...");
    case NoteAction::WordsToIgnore:
      return Tr("Words to ignore...");
    case NoteAction::CountOnly:
      return Tr("Count-only list...");
    case NoteAction::MinFrequency:
      return Tr("Minimum frequency");
    case NoteAction::Lengths:
      return Tr("Phrase length");
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
      return Tr("all words");
    case FilterMode::AllWordsInSameOrder:
      return Tr("all words in same order");
    case FilterMode::Subphrase:
      return Tr("as subphrase");
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
  return Fill(TrCount("%1 of %2 word left out: %3", "%1 of %2 words left out: %3", words.Read()),
              {numbers.Grouped(static_cast<int64_t>(words.Dropped())),
               numbers.Grouped(static_cast<int64_t>(words.Read())), reasons});
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
  ResultLabels labels{listed.NumberOfWords, listed.NumOccurrences, Tr(result.Run.FileKind.c_str()), ""};
  if (facts.Options.SourceKind != TextSource::SingleFile)
    labels.TotalNumOccurrences =
        Counted(Tr("Total number of phrase occurrences: %1"), result.Run.Table.Occurrences(), numbers);
  if (const uint64_t dropped = facts.Words.Dropped(); dropped > 0)
    labels.NumWordsExcluded = Counted(Tr("Number of words excluded: %1"), dropped, numbers);
  return labels;
}

std::string SourceName(TextSource kind, const std::string& path) {
  if (kind == TextSource::Clipboard) return Tr("Clipboard");
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
  size_t folders = 0;
  for (const SourcePath& source : paths)
    if (source.What == SourcePath::Kind::Folder) ++folders;
  const size_t files = paths.size() - folders;
  const std::string filesText = Fill(TrCount("%1 file", "%1 files", files), {std::to_string(files)});
  const std::string foldersText =
      Fill(TrCount("%1 folder", "%1 folders", folders), {std::to_string(folders)});
  if (files > 0 && folders > 0) return Fill(Tr("%1 and %2"), {filesText, foldersText});
  return files > 0 ? filesText : folders > 0 ? foldersText : std::string();
}

namespace {

std::string NameOfSide(std::span<const SourcePath> paths) {
  if (paths.size() != 1) return TogetherName(paths);
  switch (paths.front().What) {
    case SourcePath::Kind::StandardInput:
      return SourceName(TextSource::Clipboard, "");
    case SourcePath::Kind::File:
      return SourceName(TextSource::SingleFile, paths.front().Path);
    case SourcePath::Kind::Folder:
      break;
  }
  return SourceName(TextSource::Folder, paths.front().Path);
}

}  // namespace

std::string SideNameOf(const RunSummary& facts, Side side) {
  return NameOfSide(side == Side::A ? facts.Paths : facts.SecondSide->Paths);
}

std::string SourceNameOf(const RunSummary& facts) {
  if (facts.SecondSide) return SideNameOf(facts, Side::A) + " - " + SideNameOf(facts, Side::B);
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
