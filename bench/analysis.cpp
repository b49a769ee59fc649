// Measures of phrases over the places of a run: a made-up text of eight million words in a thousand files,
// and its phrases of 2 to 6 words. What is prepared, and then the values of all listed phrases on one thread.
//     bench_analysis

#include <benchmark/benchmark.h>

#include <string>

#include "base/yielder.h"
#include "bench/made_text.h"
#include "engine/analysis/phrase_analysis.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"

namespace {

using namespace korv;

constexpr size_t kWords = 8'000'000;
constexpr size_t kWordsOfFile = kWords / 1000;

const PhraseTable& Table() {
  static const WordFilters noLists;
  static const PhraseTable& table = []() -> const PhraseTable& {
    const bench::MadeText text(kWords);
    RunOptions options;
    options.MinWords = 2;
    options.MaxWords = 6;
    options.KeepPlaces = true;
    options.SourceKind = TextSource::Folder;
    CorpusBuilder builder({}, options, noLists);
    auto end = text.SentenceEnds().begin();
    for (size_t i = 0; i < text.Words().size(); ++i) {
      if (i % kWordsOfFile == 0) builder.BeginSource(std::to_string(i));
      builder.TakeWord(text.Words()[i]);
      if (end == text.SentenceEnds().end() || *end != i + 1) continue;
      builder.ResetPhrases();
      ++end;
    }
    auto& counted = *new PhraseTable;
    NoYielder yielder;
    TakeText(std::move(builder), counted);
    CountPhrases(counted, yielder);
    SortPhrases(counted, yielder);
    ListByFrequency(counted, options.MinFrequency);
    ExcludeRedundantSubphrases(counted, yielder);
    return counted;
  }();
  return table;
}

void Prepare(benchmark::State& state, const AnalysisNeeds& needs) {
  const PhraseTable& table = Table();
  NoYielder yielder;
  for (auto _ : state) {
    PhraseAnalysis analysis(table, {});
    analysis.Prepare(needs, yielder);
    benchmark::DoNotOptimize(&analysis);
  }
  state.counters["entries"] = table.EntryCount();
  state.counters["places"] = static_cast<double>(table.Corpus().Places.size());
}

void Values(benchmark::State& state, const AnalysisNeeds& needs,
            double (*value)(const PhraseAnalysis& analysis, PhraseIndex phrase)) {
  const PhraseTable& table = Table();
  NoYielder yielder;
  PhraseAnalysis analysis(table, {});
  analysis.Prepare(needs, yielder);
  for (auto _ : state) {
    double sum = 0;
    for (const PhraseIndex i : table.All())
      if (table.Listed(i)) sum += value(analysis, i);
    benchmark::DoNotOptimize(sum);
  }
}

void DispersionOfAll(benchmark::State& state) {
  Values(state, {.Parts = true}, [](const PhraseAnalysis& analysis, PhraseIndex phrase) {
    return analysis.Dispersion(phrase, DispersionP).value_or(0);
  });
}

void ReducedFrequencyOfAll(benchmark::State& state) {
  Values(state, {.Positions = true}, [](const PhraseAnalysis& analysis, PhraseIndex phrase) {
    return analysis.ReducedFrequency(phrase).value_or(0);
  });
}

void MutualInformationOfAll(benchmark::State& state) {
  Values(state, {.Positions = true, .Words = true}, [](const PhraseAnalysis& analysis, PhraseIndex phrase) {
    return analysis.Association(phrase, MutualInformation).value_or(0);
  });
}

BENCHMARK_CAPTURE(Prepare, parts, AnalysisNeeds{.Parts = true})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Prepare, free_occurrences, AnalysisNeeds{.FreeOccurrences = true})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Prepare, words, AnalysisNeeds{.Words = true})->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Prepare, c_values, AnalysisNeeds{.CValues = true})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(Prepare, joints, AnalysisNeeds{.Joints = true})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(DispersionOfAll)->Unit(benchmark::kMillisecond);
BENCHMARK(ReducedFrequencyOfAll)->Unit(benchmark::kMillisecond);
BENCHMARK(MutualInformationOfAll)->Unit(benchmark::kMillisecond);

}  // namespace
