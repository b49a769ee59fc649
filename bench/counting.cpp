// The engine by itself: counting from numbered words, ordering, redundant phrases, the chain.
//     bench_counting [--benchmark_filter=...]

#include <benchmark/benchmark.h>

#include "base/yielder.h"
#include "bench/made_text.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "engine/patterns/word_filters.h"

namespace {

using korv::bench::MadeText;

constexpr int64_t kMillion = 1'000'000;

const MadeText& Text(int64_t millions) {
  static const MadeText one(kMillion);
  static const MadeText eight(8 * kMillion);
  return millions == 1 ? one : eight;
}

void Feed(const MadeText& text, korv::CorpusBuilder& stream) {
  stream.BeginSource({});
  auto end = text.SentenceEnds().begin();
  size_t taken = 0;
  for (const std::string& word : text.Words()) {
    stream.TakeWord(word);
    if (end != text.SentenceEnds().end() && *end == ++taken) {
      stream.ResetPhrases();
      ++end;
    }
  }
}

korv::RunOptions OptionsUpTo(int64_t maxWords) {
  korv::RunOptions options;
  options.MinWords = 2;
  options.MaxWords = static_cast<int>(maxWords);
  return options;
}

const korv::WordFilters kNoLists;
const korv::WordRules kRules;

void CountInto(korv::PhraseTable& table, const MadeText& text, int64_t maxWords, korv::Yielder& yielder) {
  korv::CorpusBuilder stream(kRules, OptionsUpTo(maxWords), kNoLists);
  Feed(text, stream);
  korv::TakeText(std::move(stream), table);
  korv::CountPhrases(table, yielder);
}

/// From words to numbers.
void TakeWords(benchmark::State& state) {
  const MadeText& text = Text(state.range(0));
  for (auto _ : state) {
    korv::CorpusBuilder stream(kRules, OptionsUpTo(6), kNoLists);
    Feed(text, stream);
    benchmark::DoNotOptimize(stream.Counts().Taken);
  }
  state.SetItemsProcessed(state.iterations() * state.range(0) * kMillion);
}

/// From numbers to counted phrases: millions of words, most words of a phrase.
void CountPhrases(benchmark::State& state) {
  const MadeText& text = Text(state.range(0));
  korv::NoYielder yielder;
  for (auto _ : state) {
    state.PauseTiming();
    korv::CorpusBuilder stream(kRules, OptionsUpTo(state.range(1)), kNoLists);
    Feed(text, stream);
    korv::PhraseTable table;
    korv::TakeText(std::move(stream), table);
    state.ResumeTiming();
    korv::CountPhrases(table, yielder);
    benchmark::DoNotOptimize(table.EntryCount());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0) * kMillion);
}

/// What follows counting: order, redundant phrases, chain.
void SortExcludeChain(benchmark::State& state) {
  const MadeText& text = Text(state.range(0));
  korv::NoYielder yielder;
  int64_t entries = 0;
  for (auto _ : state) {
    state.PauseTiming();
    korv::PhraseTable table;
    CountInto(table, text, state.range(1), yielder);
    state.ResumeTiming();
    korv::SortPhrases(table, yielder);
    korv::ListByFrequency(table, 2);
    korv::ExcludeRedundantSubphrases(table, yielder);
    korv::SetUpFrequencyChain(table, korv::ChainOrder::ByCount, yielder);
    entries = table.EntryCount();
  }
  state.SetItemsProcessed(state.iterations() * entries);
}

BENCHMARK(TakeWords)->Arg(1)->Arg(8)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CountPhrases)
    ->Args({1, 6})
    ->Args({1, 25})
    ->Args({8, 6})
    ->Args({8, 25})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(SortExcludeChain)->Args({8, 6})->Args({8, 25})->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
