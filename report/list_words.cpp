#include "report/list_words.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "report/filter.h"
#include "report/folder_paths.h"
#include "report/summary.h"

namespace korv {

namespace {

constexpr int kPathsOfFiles = 11;
constexpr int kSharesOfFiles = 12;
constexpr int kAlphabetical = 1;
// A line takes about as long as a few misses of the cache, and phrases lie all over the text.
constexpr uint32_t kLookAhead = 16;

bool ShowsPaths(const ReportOptions& options) {
  return options.DisplayFormat == kPathsOfFiles || options.DisplayFormat == kSharesOfFiles;
}

bool Filters(const ReportOptions& options) {
  return options.FilterActive && !options.FilterText.empty();
}

std::string HeaderText(const RunFacts& facts) {
  switch (facts.Options.SourceKind) {
    case TextSource::SingleFile:
      return facts.InputPath.empty() ? "" : "File: " + ShownPath(facts.InputPath) + "\r\n";
    case TextSource::Folder:
      return "Folder: " + ShownPath(facts.InputPath) +
             (facts.IncludeSubfolders ? " plus any subfolders" : "") + "\r\n";
    case TextSource::Clipboard:
      break;
  }
  return "";
}

std::string WithLineEnd(std::string text) {
  if (!text.empty() && !text.ends_with("\r\n")) text += "\r\n";
  return text;
}

/// What a report consists of when there is nothing to list.
std::string EmptyReportText(const Report& report, bool file) {
  const std::string said =
      report.Table.Occurrences() == 0 ? NoResultText(report.Facts) : SummaryText(report.Facts, 0, 0);
  if (!file) return said;
  return HeaderText(report.Facts) + FilesScannedText(report.Facts, report.Numbers) + WithLineEnd(said);
}

/// Everything above the heading.
std::string OpeningText(const Report& report, const ReportForm& form, const ListExtent& extent) {
  std::string text;
  if (form.File) text += HeaderText(report.Facts);
  text += FilesScannedText(report.Facts, report.Numbers);
  if (form.SkippedFiles) text += SkippedFilesText(report.Facts) + NoticesText(report.Facts);
  text += SummaryText(report.Facts, extent.Phrases, extent.LongestWords);
  if (Filters(report.Options))
    text += FilterNoticeText(report.Options.FilterModeOfWords, report.Options.FilterText);
  if (ShowsPaths(report.Options)) text += "{Folder} = " + ShownPath(report.Facts.InputPath) + "\r\n";
  return text;
}

void ReplaceLineEnds(std::string& text, std::string_view lineEnd) {
  if (lineEnd == "\r\n") return;
  for (size_t at = text.find("\r\n"); at != text.npos; at = text.find("\r\n", at + lineEnd.size()))
    text.replace(at, 2, lineEnd);
}

LineFormat FormatOfLines(const Report& report, const ReportForm& form, const ListExtent& extent) {
  LineFormat format{.DisplayFormat = report.Options.DisplayFormat,
                    .LineLayout = form.LineLayout,
                    .RelativeFrequency = report.Options.RelativeFrequency,
                    .SortByNumberOfFiles = report.Options.SortByNumberOfFiles,
                    .TotalOccurrences = report.Table.Occurrences(),
                    .FilesScanned = report.Facts.FilesScanned,
                    .Extent = extent,
                    .Numbers = report.Numbers,
                    .LineEnd = form.LineEnd,
                    .FilePaths = {}};
  if (ShowsPaths(report.Options))
    format.FilePaths = AbbreviatePaths(report.Table.FilePaths(), ShownPath(report.Facts.InputPath));
  return format;
}

/// The state that both listing loops share: one call of List() per phrase.
class Listing {
 public:
  Listing(const Report& report, const ReportForm& form, const ListExtent& extent, ReportSink& sink,
          Yielder& yielder)
      : report_(report),
        form_(form),
        lines_(FormatOfLines(report, form, extent)),
        sink_(sink),
        yielder_(yielder),
        perFile_(report.Options.DisplayFormat >= 10) {
    if (Filters(report.Options)) filter_.emplace(report.Options.FilterText, report.Options.FilterModeOfWords);
    pending_ = OpeningText(report, form, extent);
    ReplaceLineEnds(pending_, form.LineEnd);
    lines_.AppendHeading(pending_);
  }

  /// Lists one phrase; false when the listing is over.
  bool List(PhraseIndex i) {
    yielder_.Yield();
    if (yielder_.Stopped()) {
      result_.Outcome = ListOutcome::Stopped;
      return false;
    }
    text_.clear();
    report_.Table.AppendText(i, text_);
    if (filter_ && !filter_->Passes(text_)) return true;
    ++result_.Phrases;
    result_.Occurrences += report_.Table.Count(i);
    // A full sink still lets a filter find out how many phrases there are.
    if (result_.Outcome == ListOutcome::SinkFull) return true;
    AppendLine(i);
    if (pending_.size() <= sink_.PieceSize() || HandOver()) return true;
    result_.Outcome = ListOutcome::SinkFull;
    return filter_.has_value();
  }

  ListResult Finish() {
    if (result_.Outcome == ListOutcome::SinkFull) return result_;
    lines_.AppendEnd(pending_);
    if (result_.Outcome == ListOutcome::Listed && result_.Phrases == 0) AppendNoMatch();
    if (!pending_.empty() && !HandOver() && result_.Outcome == ListOutcome::Listed)
      result_.Outcome = ListOutcome::SinkFull;
    return result_;
  }

 private:
  void AppendLine(PhraseIndex i) {
    ListedPhrase phrase{
        .Text = text_, .Rank = report_.Table.ChainPosition(i), .Count = report_.Table.Count(i)};
    if (!perFile_) return lines_.AppendPhrase(phrase, pending_);
    const FileTallies files = report_.Table.Files(i);
    phrase.FileCount = files.FileCount();
    phrase.Files = files.Tallies();
    lines_.AppendPhrase(phrase, pending_);
  }

  void AppendNoMatch() {
    const auto place = form_.File ? NoticePlace::File : NoticePlace::TextBox;
    const std::string notice =
        NoMatchText(report_.Options.FilterModeOfWords, report_.Options.WordOrder == kAlphabetical, place);
    pending_ += form_.File ? notice + form_.LineEnd : form_.LineEnd + notice;
  }

  bool HandOver() {
    const bool taken = sink_.Write(pending_);
    pending_.clear();
    return taken;
  }

  const Report& report_;
  const ReportForm& form_;
  LineBuilder lines_;
  ReportSink& sink_;
  Yielder& yielder_;
  const bool perFile_;
  std::optional<PhraseFilter> filter_;
  std::string pending_;
  std::string text_;
  ListResult result_;
};

void ListWordsAlphabetically(const PhraseTable& table, Listing& listing) {
  const PhraseIndex entries = table.EntryCount();
  for (PhraseIndex i = 1; i <= entries; ++i) {
    table.Prefetch(i + kLookAhead, i + 2 * kLookAhead);
    if (table.Listed(i) && !listing.List(i)) return;
  }
}

void ListWordsByFrequency(const PhraseTable& table, Listing& listing) {
  uint32_t position = 1;
  for (PhraseIndex i = table.ChainHead(); i != 0; i = table.AtChainPosition(++position)) {
    table.Prefetch(table.AtChainPosition(position + kLookAhead),
                   table.AtChainPosition(position + 2 * kLookAhead));
    if (!listing.List(i)) return;
  }
}

}  // namespace

ListExtent MeasureList(const PhraseTable& table, Yielder& yielder) {
  ListExtent extent;
  const PhraseIndex entries = table.EntryCount();
  for (PhraseIndex i = 1; i <= entries; ++i) {
    yielder.Yield();
    table.Prefetch(i + kLookAhead, i + 2 * kLookAhead);
    if (!table.Listed(i)) continue;
    ++extent.Phrases;
    extent.HighestCount = std::max(extent.HighestCount, table.Count(i));
    extent.LongestCharacters = std::max(extent.LongestCharacters, table.Characters(i));
    extent.LongestWords = std::max(extent.LongestWords, table.Words(i));
    extent.Occurrences += table.Count(i);
  }
  return extent;
}

bool AnythingListed(const PhraseTable& table) {
  return table.ChainHead() != 0;
}

std::string_view NameOfListing(const ReportOptions& options) {
  return options.WordOrder == kAlphabetical ? "ListWordsAlphabetically" : "ListWordsByFrequency";
}

ListResult ListWords(const Report& report, const ReportForm& form, ReportSink& sink, Yielder& yielder) {
  if (!AnythingListed(report.Table)) {
    std::string text = EmptyReportText(report, form.File);
    ReplaceLineEnds(text, form.LineEnd);
    return {.Outcome = sink.Write(text) ? ListOutcome::Listed : ListOutcome::SinkFull};
  }
  const ListExtent extent = MeasureList(report.Table, yielder);
  Listing listing(report, form, extent, sink, yielder);
  if (report.Options.WordOrder == kAlphabetical)
    ListWordsAlphabetically(report.Table, listing);
  else
    ListWordsByFrequency(report.Table, listing);
  return listing.Finish();
}

}  // namespace korv
