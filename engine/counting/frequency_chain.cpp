#include <algorithm>
#include <utility>
#include <vector>

#include "base/raw_vector.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

using Chain = RawVector<PhraseIndex>;

bool GoesOn(Yielder& yielder) {
  yielder.Yield();
  return !yielder.Stopped();
}

/// Sorts by `value` of each element, the greatest first. Stable. Values up to the number of elements, or to
/// 65,535, are sorted by counting; the few above by comparing. False when stopped, with the chain as it was.
template <typename Value>
bool SortDescending(Chain& chain, Yielder& yielder, const Value& value) {
  constexpr size_t kMostCounted = 1u << 16;
  const auto counted = static_cast<uint32_t>(std::min(kMostCounted, chain.size() + 1));
  Chain large;
  std::vector<size_t> next(counted, 0);
  for (const PhraseIndex i : chain) {
    if (!GoesOn(yielder)) return false;
    if (value(i) < counted)
      ++next[value(i)];
    else
      large.push_back(i);
  }
  std::stable_sort(large.begin(), large.end(),
                   [&](PhraseIndex a, PhraseIndex b) { return value(a) > value(b); });

  size_t place = large.size();
  for (uint32_t v = counted; v-- > 0;) {
    const size_t size = next[v];
    next[v] = place;
    place += size;
  }
  Chain sorted(chain.size());
  std::copy(large.begin(), large.end(), sorted.begin());
  for (const PhraseIndex i : chain) {
    if (!GoesOn(yielder)) return false;
    if (value(i) < counted) sorted[next[value(i)]++] = i;
  }
  chain = std::move(sorted);
  return true;
}

bool TakeListed(const PhraseTable& table, Yielder& yielder, Chain& chain) {
  chain.reserve(table.EntryCount());
  for (const PhraseIndex i : table.All()) {
    if (!GoesOn(yielder)) return false;
    if (table.Listed(i)) chain.push_back(i);
  }
  return true;
}

bool SortByFiles(const PhraseTable& table, Yielder& yielder, Chain& chain) {
  RawVector<uint32_t> files(size_t{table.EntryCount()} + 1);
  for (const PhraseIndex i : chain) {
    files[ValueOf(i)] = table.FileCount(i);
    if (!GoesOn(yielder)) return false;
  }
  return SortDescending(chain, yielder, [&](PhraseIndex i) { return files[ValueOf(i)]; });
}

bool RankEntries(uint32_t entries, const Chain& chain, Yielder& yielder, RawVector<PhraseRank>& ranks) {
  ranks.resize(size_t{entries} + 1);
  for (PhraseRank& rank : ranks) {
    if (!GoesOn(yielder)) return false;
    rank = kNoRank;
  }
  PhraseRank rank = kNoRank;
  for (const PhraseIndex i : chain) {
    if (!GoesOn(yielder)) return false;
    ranks[ValueOf(i)] = ++rank;
  }
  return true;
}

}  // namespace

bool SetUpFrequencyChain(PhraseTable& table, ChainOrder order, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  data.Chain = {};
  data.Rank = {};
  Chain chain;
  RawVector<PhraseRank> ranks;
  if (!TakeListed(table, yielder, chain) ||
      !SortDescending(chain, yielder, [&](PhraseIndex i) { return table.Count(i); }) ||
      (order == ChainOrder::ByFiles && !SortByFiles(table, yielder, chain)) ||
      !RankEntries(table.EntryCount(), chain, yielder, ranks))
    return false;
  data.Rank = std::move(ranks);
  data.Chain = std::move(chain);
  return true;
}

}  // namespace korv
