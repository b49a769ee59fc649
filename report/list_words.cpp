#include "report/list_words.h"

#include <optional>
#include <vector>

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

/// The state that both listing loops share: one call of List() per phrase.
class Listing {
 public:
  Listing(const Report& report, const ListExtent& extent, RowBuilder& rows, ListWriter& writer,
          Yielder& yielder)
      : table_(report.Table), rows_(rows), writer_(writer), yielder_(yielder) {
    if (Filters(report.Options)) filter_.emplace(report.Options.FilterText, report.Options.FilterModeOfWords);
    result_.Unfiltered = extent.Phrases;
    // Without a filter the whole list is known beforehand, wherever it ends.
    if (!filter_) {
      result_.Phrases = extent.Phrases;
      result_.Occurrences = extent.Occurrences;
    }
  }

  /// Lists one phrase; false when the listing is over.
  bool List(PhraseIndex i) {
    yielder_.Yield();
    if (yielder_.Stopped()) {
      result_.Outcome = ListOutcome::Stopped;
      return false;
    }
    text_.clear();
    table_.AppendText(i, text_);
    if (filter_ && !filter_->Passes(text_)) return true;
    if (filter_) {
      ++result_.Phrases;
      result_.Occurrences += table_.Count(i);
    }
    // A full sink still lets a filter find out how many phrases there are.
    if (result_.Outcome == ListOutcome::SinkFull) return true;
    ++result_.Shown;
    if (writer_.Row(rows_.Cells(i, text_))) return true;
    result_.Outcome = ListOutcome::SinkFull;
    return filter_.has_value();
  }

  ListResult Finish() {
    if (result_.Outcome == ListOutcome::SinkFull) return result_;
    const bool stopped = result_.Outcome == ListOutcome::Stopped;
    if (!writer_.End(stopped) && !stopped) result_.Outcome = ListOutcome::SinkFull;
    return result_;
  }

 private:
  const PhraseTable& table_;
  RowBuilder& rows_;
  ListWriter& writer_;
  Yielder& yielder_;
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

}  // namespace

std::string_view NameOfListing(const ReportOptions& options) {
  return options.WordOrder == kAlphabetical ? "ListWordsAlphabetically" : "ListWordsByFrequency";
}

ListResult WriteList(const Report& report, std::span<const Column* const> columns, const ListExtent& extent,
                     ListWriter& writer, Yielder& yielder) {
  ListSource source(report, columns, extent);
  if (!source.Prepare(yielder)) return {.Outcome = ListOutcome::Stopped, .Unfiltered = extent.Phrases};
  RowBuilder rows(columns, source.View());
  writer.Begin(columns, source.View());
  Listing listing(report, extent, rows, writer, yielder);
  if (report.Options.WordOrder == kAlphabetical)
    ListWordsAlphabetically(report.Table, listing);
  else
    ListWordsByFrequency(report.Table, listing);
  return listing.Finish();
}

ListResult ListWords(const Report& report, const ReportForm& form, ReportSink& sink, Yielder& yielder) {
  if (form.Table)
    return WriteList(report, form.Columns.empty() ? ColumnsOfTables() : form.Columns, {},
                     *form.Table->Make(sink), yielder);
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
