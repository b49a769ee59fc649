#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "base/raw_vector.h"
#include "base/yielder.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// The listed phrases of a table in some order. Data: any thread may read it.
///
///   Entries holds each listed entry once; those with equal keys ascend;
///   the last Undefined of them have no key, whatever the direction;
///   bit p of BeginsGroup is set where Entries[p] has another key than the entry before it.
///
/// Memory: 4 bytes and a bit for each phrase.
struct PhraseOrder {
  RawVector<PhraseIndex> Entries;
  uint32_t Undefined = 0;
  std::vector<uint64_t> BeginsGroup;
};

/// What views share. Null where the making was stopped.
using SharedOrder = std::shared_ptr<const PhraseOrder>;

enum class SortDirection { Ascending, Descending };

/// The order of the table, which is alphabetical, or its reverse.
SharedOrder OrderByPhrase(const PhraseTable& table, SortDirection direction, Yielder& yielder);

/// By count. Never uses the frequency chain of the table, which may be threaded anew meanwhile. A counting
/// sort.
SharedOrder OrderByCount(const PhraseTable& table, SortDirection direction, Yielder& yielder);

/// By a key of each entry: keys[ValueOf(i)] is that of entry i, a NaN where it has none. Keys of entries that
/// are not listed do not matter. A radix sort by the upper halves of the keys, and one by comparing where
/// these are not enough. It takes 16 bytes a phrase meanwhile.
SharedOrder OrderByKeys(const PhraseTable& table, std::span<const double> keys, SortDirection direction,
                        Yielder& yielder);

/// The other direction. No sort: groups of equal keys are copied in the reverse order.
SharedOrder Reversed(const PhraseOrder& order, Yielder& yielder);

/// By entry: its place when the listed phrases are ordered by count, the greatest first, then by table index.
/// kNoRank for entries that are not listed. 4 bytes an entry. Empty when stopped.
std::vector<PhraseRank> RanksByCount(const PhraseTable& table, Yielder& yielder);

}  // namespace korv
