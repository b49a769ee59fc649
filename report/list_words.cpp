#include "report/list_words.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <vector>

#include "engine/analysis/phrase_list.h"
#include "report/columns/column_keys.h"
#include "report/columns/registry.h"
#include "report/columns/row_filter.h"
#include "report/filter.h"
#include "report/formats.h"
#include "report/list_source.h"
#include "report/look_ahead.h"
#include "report/row_builder.h"
#include "report/writers/report_opening.h"
#include "report/writers/table_forms.h"
#include "report/writers/text_writer.h"

namespace korv {

namespace {

/// The state that all listing loops share: one call of List() per phrase.
class Listing {
 public:
  Listing(const Report& report, const ListExtent& extent, RowBuilder& rows, ListWriter& writer,
          Yielder& yielder)
      : table_(report.Table),
        rows_(rows),
        writer_(writer),
        yielder_(yielder),
        progress_(report.Progress),
        most_(report.Rows.Most),
        counts_(Filters(report.Options) || !report.Rows.Empty()) {
    if (Filters(report.Options)) filter_.emplace(report.Options.FilterText, report.Options.FilterModeOfWords);
    result_.Unfiltered = extent.Phrases;
    // Where nothing is left out the whole list is known beforehand, wherever it ends.
    if (!counts_) {
      result_.Phrases = extent.Phrases;
      result_.Occurrences = extent.Occurrences;
    }
  }

  /// Lists one phrase; false when the listing is over.
  bool List(PhraseIndex i) {
    yielder_.Yield();
    if (yielder_.Stopped()) return Stop();
    if (result_.Phrases == most_ && counts_) return false;
    text_.clear();
    table_.AppendText(i, text_);
    if (filter_ && !filter_->Passes(text_)) return true;
    if (counts_) {
      ++result_.Phrases;
      result_.Occurrences += table_.Count(i);
    }
    // A full sink still lets a filter find out how many phrases there are.
    if (result_.Outcome == ListOutcome::SinkFull) return true;
    ++result_.Shown;
    if (progress_ != nullptr) *progress_ = result_.Shown;
    if (writer_.Row(rows_.Cells(i, text_))) return true;
    result_.Outcome = ListOutcome::SinkFull;
    return counts_;
  }

  /// Notes that the user stopped the listing; false.
  bool Stop() {
    result_.Outcome = ListOutcome::Stopped;
    return false;
  }

  ListResult Finish() {
    result_.Fault = writer_.Fault();
    if (result_.Outcome == ListOutcome::SinkFull) return result_;
    const bool stopped = result_.Outcome == ListOutcome::Stopped;
    if (!writer_.End(stopped) && !stopped) result_.Outcome = ListOutcome::SinkFull;
    result_.Fault = writer_.Fault();
    return result_;
  }

 private:
  const PhraseTable& table_;
  RowBuilder& rows_;
  ListWriter& writer_;
  Yielder& yielder_;
  Gauge<uint32_t>* progress_;
  uint32_t most_;
  bool counts_;  ///< Which phrases are listed shows on the way.
  std::optional<PhraseFilter> filter_;
  std::string text_;
  ListResult result_;
};

void ListWordsAlphabetically(const PhraseTable& table, Listing& listing) {
  for (const PhraseIndex i : table.All()) {
    table.Prefetch(i + kLookAhead, i + 2 * kLookAhead);
    if (table.Listed(i) && !listing.List(i)) return;
  }
}

void ListWordsByFrequency(const PhraseTable& table, Listing& listing) {
  PhraseRank rank{1};
  for (PhraseIndex i = table.ChainHead(); i != kNoPhrase; i = table.AtChainPosition(++rank)) {
    table.Prefetch(table.AtChainPosition(rank + kLookAhead), table.AtChainPosition(rank + 2 * kLookAhead));
    if (!listing.List(i)) return;
  }
}

/// Nothing when stopped.
std::optional<PhraseList> ChosenRows(const Report& report, const ColumnSource& source, Yielder& yielder) {
  const RowChoice& rows = report.Rows;
  if (rows.Given != nullptr) return *rows.Given;
  const bool alphabetical = report.Options.WordOrder == kAlphabetical;
  const SharedOrder order = rows.OrderBy != nullptr
                                ? OrderByColumn(*rows.OrderBy, rows.Direction, source, yielder)
                                : OrderByColumn(*FindColumn(alphabetical ? "phrase" : "report_rank"),
                                                SortDirection::Ascending, source, yielder);
  if (!order) return std::nullopt;
  if (PassesAll(rows.Filter)) return AllRows(report.Table, order);
  const auto test = CompileFilter(rows.Filter, source, yielder);
  if (!test) return PhraseList();
  return FilterRows(report.Table, order, *test, yielder);
}

void ListChosenRows(const Report& report, const ColumnSource& source, Yielder& yielder, Listing& listing) {
  const std::optional<PhraseList> rows = ChosenRows(report, source, yielder);
  if (!rows) {
    listing.Stop();
    return;
  }
  for (uint32_t row = 0; row < rows->Rows(); ++row)
    if (!listing.List(rows->EntryAt(row))) return;
}

}  // namespace

std::string_view NameOfListing(const ReportOptions& options) {
  return options.WordOrder == kAlphabetical ? "ListWordsAlphabetically" : "ListWordsByFrequency";
}

ListResult WriteList(const Report& report, std::span<const Column* const> columns, const ListExtent& extent,
                     ListWriter& writer, Yielder& yielder) {
  std::vector<const Column*> needed(columns.begin(), columns.end());
  std::ranges::copy(report.Rows.Columns(), std::back_inserter(needed));
  ListSource source(report, needed, extent);
  if (!source.Prepare(yielder)) return {.Outcome = ListOutcome::Stopped, .Unfiltered = extent.Phrases};
  RowBuilder rows(columns, source.View());
  writer.Begin(columns, source.View());
  Listing listing(report, extent, rows, writer, yielder);
  if (!report.Rows.Empty())
    ListChosenRows(report, source.View(), yielder, listing);
  else if (report.Options.WordOrder == kAlphabetical)
    ListWordsAlphabetically(report.Table, listing);
  else
    ListWordsByFrequency(report.Table, listing);
  ListResult result = listing.Finish();
  result.Coverage = source.View().Analysis->Coverage();
  return result;
}

ListResult ListWords(const Report& report, const ReportForm& form, ReportSink& sink, Yielder& yielder) {
  if (const TableOutput& table = form.Table; table.Form != nullptr)
    return WriteList(report, ColumnsOf(table), MeasureList(report.Table, yielder),
                     *table.Form->Make(sink, table.About, form.Files), yielder);
  if (!AnythingListed(report.Table))
    return {.Outcome =
                sink.Write(EmptyReportText(report, form)) ? ListOutcome::Listed : ListOutcome::SinkFull};
  const ListExtent extent = MeasureList(report.Table, yielder);
  const std::vector<const Column*> columns =
      ColumnsOfFormat(FormatOf(report.Options.DisplayFormat), report.Options);
  TextWriter writer(report, form, sink);
  return WriteList(report, columns, extent, writer, yielder);
}

}  // namespace korv
