#include "report/list_words.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "base/workers.h"
#include "engine/analysis/phrase_list.h"
#include "report/columns/column_keys.h"
#include "report/columns/registry.h"
#include "report/columns/row_filter.h"
#include "report/filter.h"
#include "report/formats.h"
#include "report/list_source.h"
#include "report/listed_rows.h"
#include "report/row_builder.h"
#include "report/row_maker.h"
#include "report/shown_phrase.h"
#include "report/writers/report_opening.h"
#include "report/writers/table_forms.h"
#include "report/writers/text_writer.h"

namespace korv {

namespace {

/// From so many rows on threads make them.
constexpr size_t kEnoughForThreads = size_t{1} << 14;

/// The state that all listing loops share: one call of List() per phrase, or for rows that have been made.
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
    if (Complete()) return false;
    text_.clear();
    table_.AppendText(i, text_);
    if (filter_ && !filter_->Passes(text_)) return true;
    ShowPhrase(table_, text_);
    return Take(table_.Count(i), [&] { return writer_.Row(rows_.Cells(i, text_)); });
  }

  /// Lists rows that pass the filter; false when the listing is over.
  bool List(const MadeRows& made) {
    yielder_.Yield();
    if (yielder_.Stopped()) return Stop();
    size_t begin = 0;
    for (const auto& [end, count] : made.Rows) {
      if (Complete()) return false;
      const std::string_view row = made.Text.Text().substr(begin, end - begin);
      if (!Take(count, [&] { return writer_.MadeRow(row); })) return false;
      begin = end;
    }
    return true;
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
  bool Complete() const { return result_.Phrases == most_ && counts_; }

  /// Takes a phrase into account, and has `write` write it; false when the listing is over.
  template <typename Write>
  bool Take(uint32_t count, const Write& write) {
    if (counts_) {
      ++result_.Phrases;
      result_.Occurrences += count;
    }
    // A full sink still lets a filter find out how many phrases there are.
    if (result_.Outcome == ListOutcome::SinkFull) return true;
    ++result_.Shown;
    if (progress_ != nullptr) *progress_ = result_.Shown;
    if (write()) return true;
    result_.Outcome = ListOutcome::SinkFull;
    return counts_;
  }

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

/// Nothing when stopped.
std::optional<ListedRows> RowsOf(const Report& report, const ColumnSource& source, Yielder& yielder) {
  if (!report.Rows.Empty()) {
    std::optional<PhraseList> rows = ChosenRows(report, source, yielder);
    if (!rows) return std::nullopt;
    return ListedRows::Chosen(report.Table, std::move(*rows));
  }
  if (report.Options.WordOrder == kAlphabetical) return ListedRows::Alphabetical(report.Table);
  return ListedRows::ByFrequency(report.Table);
}

void ListOneByOne(const ListedRows& rows, Listing& listing) {
  for (size_t row = 0; row < rows.Size(); ++row) {
    rows.PrefetchBehind(row);
    const PhraseIndex entry = rows.At(row);
    if (entry != kNoPhrase && !listing.List(entry)) return;
  }
}

/// Has all threads make rows, a batch at a time, and lists them in their order. The sink stays on this
/// thread.
void ListOnThreads(const ListedRows& rows, std::vector<RowMaker>& makers, Listing& listing,
                   Yielder& yielder) {
  constexpr size_t kMostRowsOfTask = 2048;
  const size_t tasks = makers.size() * 8;
  std::vector<MadeRows> made(tasks);
  size_t rowsOfTask = kMostRowsOfTask;
  for (size_t begin = 0; begin < rows.Size();) {
    const auto endOf = [&](size_t task) { return std::min(rows.Size(), begin + task * rowsOfTask); };
    if (!RunTasks(tasks, false, yielder, [&](size_t task, size_t worker) {
          makers[worker].Make(rows, endOf(task), endOf(task + 1), yielder, made[task]);
        })) {
      listing.Stop();
      return;
    }
    bool tooLong = false;
    for (size_t task = 0; task < tasks; ++task) {
      if (!listing.List(made[task])) return;
      // What did not fit into memory that may be taken is made here.
      while (made[task].End < endOf(task + 1)) {
        tooLong = true;
        makers.front().Make(rows, made[task].End, endOf(task + 1), yielder, made[task]);
        if (!listing.List(made[task])) return;
      }
    }
    begin = endOf(tasks);
    rowsOfTask = tooLong ? std::max<size_t>(1, rowsOfTask / 4) : std::min(kMostRowsOfTask, rowsOfTask * 2);
  }
}

/// One for each thread; none where the rows of the writer are no texts of their own.
std::vector<RowMaker> MakersOf(const Report& report, std::span<const Column* const> columns,
                               const ColumnSource& source, const ListWriter& writer, const Yielder& yielder) {
  std::vector<RowMaker> makers;
  makers.reserve(WorkerCount(yielder));
  for (size_t worker = 0; worker < WorkerCount(yielder); ++worker) {
    std::unique_ptr<RowText> text = writer.Rows();
    if (!text) break;
    makers.emplace_back(report, columns, source, std::move(text));
  }
  return makers;
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
  RowBuilder cells(columns, source.View());
  writer.Begin(columns, source.View());
  Listing listing(report, extent, cells, writer, yielder);
  const std::optional<ListedRows> rows = RowsOf(report, source.View(), yielder);
  std::vector<RowMaker> makers;
  if (rows && rows->Size() >= kEnoughForThreads)
    makers = MakersOf(report, columns, source.View(), writer, yielder);
  if (!rows)
    listing.Stop();
  else if (makers.empty())
    ListOneByOne(*rows, listing);
  else
    ListOnThreads(*rows, makers, listing, yielder);
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
