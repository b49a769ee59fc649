#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"

// Every allocation of a counting run fails once: the failure must come out as std::bad_alloc, nothing may
// be lost or crash on the way, and the next run must go through.

namespace {

/// Allocations until one fails; negative: none does.
std::atomic<long> allocationsLeft{-1};

void* AllocateOrNull(std::size_t size) noexcept {
  if (allocationsLeft.load(std::memory_order_relaxed) >= 0 &&
      allocationsLeft.fetch_sub(1, std::memory_order_relaxed) == 0) {
    return nullptr;
  }
  return std::malloc(size == 0 ? 1 : size);
}

void* Allocate(std::size_t size) {
  if (void* memory = AllocateOrNull(size)) return memory;
  throw std::bad_alloc();
}

}  // namespace

// NOLINTBEGIN: replacing them is the point. All forms that the library uses, as they free each other's.
void* operator new(std::size_t size) {
  return Allocate(size);
}
void* operator new[](std::size_t size) {
  return Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return AllocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return AllocateOrNull(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}
// NOLINTEND

namespace korv {
namespace {

struct World {
  std::vector<std::string> Words;
  RunOptions Options;
  WordFilterSpec Entries;
};

World RandomWorld(size_t words) {
  World world;
  std::mt19937 random(1);
  const std::vector<std::string> vocabulary = {"the", "cat", "côte", "cote", "he", "them", "year", "hen"};
  for (size_t i = 0; i < words; ++i) world.Words.push_back(vocabulary[random() % vocabulary.size()]);
  world.Options.MinWords = 2;
  world.Options.MaxWords = 5;
  world.Options.SourceKind = TextSource::Folder;
  world.Entries.FileWordsToIgnore = {"the", "he"};
  return world;
}

/// The number of listed phrases.
int Count(const World& world) {
  const WordFilters lists(world.Entries);
  CorpusBuilder stream(WordRules{}, world.Options, lists);
  for (size_t i = 0; i < world.Words.size(); ++i) {
    if (i % 1000 == 0) stream.BeginSource("file");
    stream.TakeWord(world.Words[i]);
  }
  PhraseTable table;
  TakeText(std::move(stream), table);
  NoYielder yielder;
  EXPECT_TRUE(CountPhrases(table, yielder));
  EXPECT_TRUE(SortPhrases(table, yielder));
  ListByFrequency(table, world.Options.MinFrequency);
  EXPECT_TRUE(ExcludeRedundantSubphrases(table, yielder));
  EXPECT_TRUE(SetUpFrequencyChain(table, ChainOrder::ByFiles, yielder));
  int listed = 0;
  for (const PhraseIndex i : table.All()) listed += table.Listed(i) ? 1 : 0;
  return listed;
}

/// Nothing when an allocation failed.
std::optional<int> CountWithFailure(const World& world, long allocations) {
  allocationsLeft = allocations;
  std::optional<int> listed;
  try {
    listed = Count(world);
  } catch (const std::bad_alloc&) {
  }
  allocationsLeft = -1;
  return listed;
}

void FailEvery(const World& world, double growth) {
  const int expected = Count(world);
  EXPECT_GT(expected, 0);
  int failures = 0;
  for (double at = 0;; at = at * growth + 1) {
    const std::optional<int> listed = CountWithFailure(world, static_cast<long>(at));
    if (listed) {
      EXPECT_EQ(*listed, expected);
      break;
    }
    ++failures;
  }
  EXPECT_GT(failures, 10);
  EXPECT_EQ(Count(world), expected);
}

TEST(AllocationFailure, ComesOutOfASmallRunWhereverItHappens) {
  FailEvery(RandomWorld(300), 1.0);
}

TEST(AllocationFailure, ComesOutOfARunOnSeveralThreads) {
  FailEvery(RandomWorld(60000), 1.05);
}

}  // namespace
}  // namespace korv
