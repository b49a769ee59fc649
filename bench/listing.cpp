// Writing reports: every format that needs no folder, to a sink that throws the text away, and a filter.
//     bench_listing

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "base/number_format.h"
#include "base/yielder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "report/list_words.h"

namespace {

using namespace korv;

/// A million phrases of three made-up words, most of them rare.
const PhraseTable& Table() {
  static const PhraseTable& table = [&]() -> const PhraseTable& {
    auto& filled = *new PhraseTable;
    for (uint32_t i = 0; i < 1'000'000; ++i) {
      std::string phrase;
      for (const uint32_t part : {i % 1000, i / 1000, (i * 2654435761U) >> 20}) {
        if (!phrase.empty()) phrase += ' ';
        for (uint32_t letters = part + 27; letters > 0; letters /= 26) {
          phrase += static_cast<char>('a' + letters % 26);
        }
        phrase += "word";
      }
      filled.AddWordToList(phrase);
      if (i % 10 == 0) filled.AddWordToList(phrase);
    }
    NoYielder yielder;
    SortPhrases(filled, yielder);
    ListByFrequency(filled, 1);
    SetUpFrequencyChain(filled, ChainOrder::ByCount, yielder);
    return filled;
  }();
  return table;
}

struct NoSink final : ReportSink {
  bool Write(std::string_view piece) override {
    Bytes += piece.size();
    return true;
  }
  size_t PieceSize() const override { return size_t{1} << 18; }
  size_t Bytes = 0;
};

void List(benchmark::State& state, const ReportOptions& options, Layout layout) {
  const PhraseTable& table = Table();
  RunSummary facts;
  const NumberFormat numbers;
  const Report report{table, facts, options, numbers};
  ReportForm form;
  form.LineLayout = layout;
  form.File = layout == Layout::Tabs;
  NoYielder yielder;
  NoSink sink;
  for (auto _ : state) ListWords(report, form, sink, yielder);
  state.SetItemsProcessed(state.iterations() * table.EntryCount());
  state.SetBytesProcessed(static_cast<int64_t>(sink.Bytes));
}

void ListFormat(benchmark::State& state) {
  ReportOptions options;
  options.DisplayFormat = static_cast<int>(state.range(0));
  List(state, options, state.range(1) == 0 ? Layout::Columns : Layout::Tabs);
}

void ListFiltered(benchmark::State& state) {
  ReportOptions options;
  options.FilterText = "arsword bword";
  options.FilterModeOfWords = static_cast<FilterMode>(state.range(0));
  options.FilterActive = true;
  List(state, options, Layout::Tabs);
}

BENCHMARK(ListFormat)
    ->ArgNames({"format", "tabs"})
    ->ArgsProduct({{0, 1, 7, 8, 9}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ListFiltered)->ArgName("mode")->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

}  // namespace
