#include <algorithm>
#include <numeric>

#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table_data.h"

namespace korv {

namespace {

/// Stable, by `value` of each element descending: values below kFew by counting, the few above by sorting.
template <typename Value>
bool SortDescending(std::vector<PhraseIndex>& chain, Yielder& yielder, const Value& value) {
  constexpr uint32_t kFew = 1u << 16;
  std::vector<PhraseIndex> large;
  std::vector<size_t> next(kFew + 1, 0);
  for (const PhraseIndex i : chain) {
    yielder.Yield();
    if (yielder.Stopped()) return false;
    if (value(i) < kFew)
      ++next[value(i)];
    else
      large.push_back(i);
  }
  std::stable_sort(large.begin(), large.end(),
                   [&](PhraseIndex a, PhraseIndex b) { return value(a) > value(b); });

  size_t place = large.size();
  for (uint32_t v = kFew; v-- > 0;) {
    const size_t size = next[v];
    next[v] = place;
    place += size;
  }
  std::vector<PhraseIndex> sorted(chain.size());
  std::copy(large.begin(), large.end(), sorted.begin());
  for (const PhraseIndex i : chain) {
    yielder.Yield();
    if (yielder.Stopped()) return false;
    if (value(i) < kFew) sorted[next[value(i)]++] = i;
  }
  chain = std::move(sorted);
  return true;
}

}  // namespace

bool SetUpFrequencyChain(PhraseTable& table, ChainOrder order, Yielder& yielder) {
  PhraseTableData& data = table.Data();
  data.Chain.clear();
  data.Rank.clear();
  std::vector<PhraseIndex> chain;
  for (const PhraseIndex i : table.All())
    if (table.Listed(i)) chain.push_back(i);

  if (!SortDescending(chain, yielder, [&](PhraseIndex i) { return table.Count(i); })) return false;
  if (order == ChainOrder::ByFiles) {
    std::vector<uint32_t> files(data.Entries.size() + 1, 0);
    for (const PhraseIndex i : chain) {
      files[ValueOf(i)] = table.FileCount(i);
      yielder.Yield();
      if (yielder.Stopped()) return false;
    }
    if (!SortDescending(chain, yielder, [&](PhraseIndex i) { return files[ValueOf(i)]; })) return false;
  }

  data.Rank.assign(data.Entries.size() + 1, kNoRank);
  PhraseRank rank = kNoRank;
  for (const PhraseIndex i : chain) data.Rank[ValueOf(i)] = ++rank;
  data.Chain = std::move(chain);
  return true;
}

}  // namespace korv
