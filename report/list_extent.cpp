#include "report/list_extent.h"

#include <algorithm>
#include <mutex>

#include "base/workers.h"
#include "report/look_ahead.h"

namespace korv {

namespace {

/// From so many entries on threads share them.
constexpr uint32_t kEnoughForThreads = 1U << 14;

void Measure(const PhraseTable& table, PhraseIndex i, ListExtent& extent) {
  table.Prefetch(i + kLookAhead, i + 2 * kLookAhead);
  if (!table.Listed(i)) return;
  ++extent.Phrases;
  extent.HighestCount = std::max(extent.HighestCount, table.Count(i));
  extent.LongestCharacters = std::max(extent.LongestCharacters, table.Characters(i));
  extent.LongestWords = std::max(extent.LongestWords, table.Words(i));
  extent.Occurrences += table.Count(i);
}

void Add(const ListExtent& part, ListExtent& extent) {
  extent.Phrases += part.Phrases;
  extent.HighestCount = std::max(extent.HighestCount, part.HighestCount);
  extent.LongestCharacters = std::max(extent.LongestCharacters, part.LongestCharacters);
  extent.LongestWords = std::max(extent.LongestWords, part.LongestWords);
  extent.Occurrences += part.Occurrences;
}

/// False when stopped, with a part of it.
bool MeasureOnThreads(const PhraseTable& table, Yielder& yielder, ListExtent& extent) {
  constexpr size_t kEntriesOfTask = 1U << 14;
  const size_t entries = table.EntryCount();
  std::mutex mutex;
  return RunTasks((entries + kEntriesOfTask - 1) / kEntriesOfTask, false, yielder, [&](size_t task, size_t) {
    ListExtent part;
    const size_t end = std::min(entries, (task + 1) * kEntriesOfTask);
    for (size_t entry = task * kEntriesOfTask; entry < end; ++entry)
      Measure(table, PhraseIndex{static_cast<uint32_t>(entry + 1)}, part);
    const std::lock_guard lock(mutex);
    Add(part, extent);
  });
}

}  // namespace

ListExtent MeasureList(const PhraseTable& table, Yielder& yielder) {
  ListExtent extent;
  if (table.EntryCount() >= kEnoughForThreads && MeasureOnThreads(table, yielder, extent)) return extent;
  // After a stop, too: a listing that was stopped tells how long the list is.
  extent = {};
  for (const PhraseIndex i : table.All()) {
    yielder.Yield();
    Measure(table, i, extent);
  }
  return extent;
}

}  // namespace korv
