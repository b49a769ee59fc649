// Views of millions of phrases: orders, filters, the first answer of a filter. Each counter "phrases" tells
// how many were listed.
//     bench_lists [--benchmark_filter=...]

#include <benchmark/benchmark.h>

#include <chrono>
#include <stdexcept>
#include <string>

#include "base/number_format.h"
#include "base/yielder.h"
#include "bench/made_text.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"
#include "engine/patterns/word_filters.h"
#include "report/columns/column_keys.h"
#include "report/columns/registry.h"
#include "report/columns/row_filter.h"
#include "report/list_source.h"

namespace {

using namespace korv;

/// A run over 26 million made-up words in 200 files, without a rule that drops any: some 5 million phrases of
/// 2 to 6 words that occur twice or more.
struct LargeRun {
  LargeRun() {
    constexpr size_t kWords = 26'000'000;
    constexpr size_t kFiles = 200;
    const bench::MadeText text(kWords);
    Facts.Options.MinWords = 2;
    Facts.Options.SourceKind = TextSource::Folder;
    WordRules rules;
    rules.IgnoreRepetitions = false;
    CorpusBuilder builder(rules, Facts.Options, Lists);
    auto end = text.SentenceEnds().begin();
    for (size_t i = 0; i < kWords; ++i) {
      if (i % (kWords / kFiles) == 0) builder.BeginSource(std::to_string(i));
      builder.TakeWord(text.Words()[i]);
      if (end == text.SentenceEnds().end() || *end != i + 1) continue;
      builder.ResetPhrases();
      ++end;
    }
    Facts.Words = builder.Counts();
    TakeText(std::move(builder), Table);
    NoYielder yielder;
    CountPhrases(Table, yielder);
    SortPhrases(Table, yielder);
    ListByFrequency(Table, 2);
    ExcludeRedundantSubphrases(Table, yielder);
    SetUpFrequencyChain(Table, ChainOrder::ByCount, yielder);
  }

  WordFilters Lists;
  PhraseTable Table;
  RunSummary Facts;
  ReportOptions Options;
  NumberFormat Numbers;
};

const LargeRun& Run() {
  static const LargeRun& run = *new LargeRun;
  return run;
}

const std::vector<const Column*>& Columns() {
  static const std::vector<const Column*> columns = AllColumns();
  return columns;
}

const ColumnSource& Source() {
  static const Report& report = *new Report{Run().Table, Run().Facts, Run().Options, Run().Numbers};
  static const ListSource& source = [&]() -> const ListSource& {
    auto& prepared = *new ListSource(report, Columns(), {});
    NoYielder yielder;
    prepared.Prepare(yielder);
    return prepared;
  }();
  return source.View();
}

void OrderBy(benchmark::State& state, const std::string& column) {
  NoYielder yielder;
  const ColumnSource& source = Source();
  SharedOrder order;
  for (auto _ : state) order = OrderByColumn(*FindColumn(column), SortDirection::Descending, source, yielder);
  state.counters["phrases"] = static_cast<double>(order->Entries.size());
}

void Reverse(benchmark::State& state) {
  NoYielder yielder;
  const SharedOrder order = OrderByCount(Run().Table, SortDirection::Descending, yielder);
  for (auto _ : state) benchmark::DoNotOptimize(Reversed(*order, yielder));
}

void ByCount(benchmark::State& state) {
  NoYielder yielder;
  for (auto _ : state)
    benchmark::DoNotOptimize(OrderByCount(Run().Table, SortDirection::Descending, yielder));
}

/// With the milliseconds to the first answer that held a row.
void Filter(benchmark::State& state, const RowFilter& filter) {
  NoYielder yielder;
  const ColumnSource& source = Source();
  const SharedOrder order = OrderByCount(Run().Table, SortDirection::Descending, yielder);
  double first = 0;
  uint32_t rows = 0;
  for (auto _ : state) {
    const auto begin = std::chrono::steady_clock::now();
    first = 0;
    const auto told = [&](const PhraseList& list, uint32_t) {
      if (first == 0 && list.Rows() > 0)
        first = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
    };
    const auto test = CompileFilter(filter, source, yielder);
    if (!test) throw std::logic_error(test.Error());
    rows = FilterRows(Run().Table, order, *test, yielder, told)->Rows();
  }
  state.counters["rows"] = rows;
  state.counters["first_ms"] = first;
}

void NewOrderOfFiltered(benchmark::State& state) {
  NoYielder yielder;
  const SharedOrder order = OrderByCount(Run().Table, SortDirection::Descending, yielder);
  const SharedOrder other = OrderByPhrase(Run().Table, SortDirection::Ascending, yielder);
  const auto test = CompileFilter({{.Text = "ra"}, {}}, Source(), yielder);
  const auto list = FilterRows(Run().Table, order, *test, yielder);
  for (auto _ : state) benchmark::DoNotOptimize(InOrder(Run().Table, *list, other, yielder));
}

void RowOfLast(benchmark::State& state) {
  NoYielder yielder;
  const PhraseList list = AllRows(Run().Table, OrderByCount(Run().Table, SortDirection::Descending, yielder));
  const PhraseIndex last = list.EntryAt(list.Rows() - 1);
  for (auto _ : state) benchmark::DoNotOptimize(list.RowOf(last));
}

void AddFilter(const std::string& name, std::string text, MatchMode mode, std::vector<Limit> limits = {}) {
  RowFilter filter;
  filter.Query.Text = std::move(text);
  filter.Query.Mode = mode;
  filter.Limits = std::move(limits);
  benchmark::RegisterBenchmark(("Filter/" + name).c_str(), Filter, filter)
      ->Unit(benchmark::kMillisecond)
      ->MeasureProcessCPUTime()
      ->UseRealTime();
}

int Register() {
  for (const std::string column :
       {"phrase", "rank", "frequency", "per_million", "words", "characters", "files", "first_file"})
    benchmark::RegisterBenchmark(("OrderBy/" + column).c_str(), OrderBy, column)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime()
        ->UseRealTime();
  AddFilter("contains", "ra", MatchMode::Contains);
  AddFilter("contains_rare", "tenlomisz", MatchMode::Contains);
  AddFilter("contains_two_words", "a ten", MatchMode::Contains);
  AddFilter("not", "-ra", MatchMode::Contains);
  AddFilter("starts", "ra", MatchMode::StartsWith);
  AddFilter("wildcards", "*ra* ?en*", MatchMode::Wildcards);
  AddFilter("expression", "ra[a-m]* t.n", MatchMode::Expression);
  AddFilter("expression_of_nothing", "q$", MatchMode::Expression);
  AddFilter("least_frequency", "", MatchMode::Contains, {{FindColumn("frequency"), 10.0, {}}});
  AddFilter("least_files", "", MatchMode::Contains, {{FindColumn("files"), 10.0, {}}});
  return 0;
}
const int kRegistered = Register();

BENCHMARK(ByCount)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(Reverse)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(NewOrderOfFiltered)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(RowOfLast)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

}  // namespace
