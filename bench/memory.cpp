// What the machine's memory allows, to judge the other figures by: reading in order, writing in order, and
// reads at random places that each wait for the one before, or do not.
//     bench_memory

#include <benchmark/benchmark.h>

#include <cstdint>
#include <numeric>
#include <random>
#include <vector>

namespace {

constexpr size_t kNumbers = size_t{64} << 20;  // 256 MB, far beyond any cache

std::vector<uint32_t>& Numbers() {
  static std::vector<uint32_t> numbers(kNumbers, 1);
  return numbers;
}

void ReadInOrder(benchmark::State& state) {
  const auto& numbers = Numbers();
  for (auto _ : state) benchmark::DoNotOptimize(std::accumulate(numbers.begin(), numbers.end(), 0U));
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(kNumbers * sizeof(uint32_t)));
}

void WriteInOrder(benchmark::State& state) {
  auto& numbers = Numbers();
  uint32_t value = 1;
  for (auto _ : state) {
    std::fill(numbers.begin(), numbers.end(), ++value);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(kNumbers * sizeof(uint32_t)));
}

void ReadAnywhere(benchmark::State& state) {
  const auto& numbers = Numbers();
  std::mt19937 random(1);
  uint32_t sum = 0;
  for (auto _ : state) sum += numbers[random() % kNumbers];
  benchmark::DoNotOptimize(sum);
  state.SetItemsProcessed(state.iterations());
}

void ReadAnywhereInChain(benchmark::State& state) {
  const auto& numbers = Numbers();
  uint32_t at = 1;
  for (auto _ : state) at = (at * 2654435761U + numbers[at % kNumbers]);
  benchmark::DoNotOptimize(at);
  state.SetItemsProcessed(state.iterations());
}

BENCHMARK(ReadInOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteInOrder)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadAnywhere);
BENCHMARK(ReadAnywhereInChain);

}  // namespace
