#include "engine/analysis/phrase_order.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

namespace korv {

namespace {

/// An entry with the bits of its key that it is sorted by.
struct Keyed {
  uint32_t Key;
  PhraseIndex Entry;
};
using KeyedEntries = RawVector<Keyed>;

bool GoesOn(Yielder& yielder) {
  yielder.Yield();
  return !yielder.Stopped();
}

/// Sorts by Key. Stable. Digits that all keys share cost no pass. False when stopped.
bool RadixSort(KeyedEntries& entries, Yielder& yielder) {
  constexpr int kBits = 11;
  constexpr uint32_t kDigits = 1U << kBits;
  uint32_t differing = 0;
  for (const Keyed& entry : entries) {
    if (!GoesOn(yielder)) return false;
    differing |= entry.Key ^ entries.front().Key;
  }
  KeyedEntries sorted(entries.size());
  for (int shift = 0; shift < 32; shift += kBits) {
    const auto digit = [shift](const Keyed& entry) { return (entry.Key >> shift) & (kDigits - 1); };
    if (((differing >> shift) & (kDigits - 1)) == 0) continue;
    std::array<uint32_t, kDigits> next{};
    for (const Keyed& entry : entries) ++next[digit(entry)];
    uint32_t place = 0;
    for (uint32_t& n : next) place += std::exchange(n, place);
    for (const Keyed& entry : entries) {
      if (!GoesOn(yielder)) return false;
      sorted[next[digit(entry)]++] = entry;
    }
    entries.swap(sorted);
  }
  return true;
}

/// Ascending numbers for ascending keys, none of which is a NaN.
uint64_t BitsInOrder(double key) {
  constexpr uint64_t kSign = uint64_t{1} << 63;
  const auto bits = std::bit_cast<uint64_t>(key + 0.0);  // -0.0 becomes 0.0
  return (bits & kSign) != 0 ? ~bits : bits | kSign;
}

/// Sorts what has one upper half of the key by the lower half. Few phrases share one, unless they share the
/// whole key.
template <typename Bits>
void SortByLowerHalves(KeyedEntries& entries, const Bits& bits) {
  const auto less = [&](const Keyed& a, const Keyed& b) { return bits(a.Entry) < bits(b.Entry); };
  for (auto begin = entries.begin(); begin != entries.end();) {
    const auto end =
        std::find_if(begin, entries.end(), [key = begin->Key](const Keyed& e) { return e.Key != key; });
    if (!std::is_sorted(begin, end, less)) std::stable_sort(begin, end, less);
    begin = end;
  }
}

void MarkGroup(PhraseOrder& order, size_t at) {
  order.BeginsGroup[at / 64] |= uint64_t{1} << (at % 64);
}

std::shared_ptr<PhraseOrder> EmptyOrder(size_t entries) {
  auto order = std::make_shared<PhraseOrder>();
  order->Entries.resize(entries);
  order->BeginsGroup.resize((entries + 63) / 64);
  return order;
}

/// Entries in the order of `sorted`, then those of `undefined`. bits(entry) is the whole key.
template <typename Bits>
SharedOrder OrderOf(const KeyedEntries& sorted, const std::vector<PhraseIndex>& undefined, const Bits& bits,
                    Yielder& yielder) {
  const auto order = EmptyOrder(sorted.size() + undefined.size());
  for (size_t at = 0; at < sorted.size(); ++at) {
    if (!GoesOn(yielder)) return nullptr;
    order->Entries[at] = sorted[at].Entry;
    if (at == 0 || sorted[at].Key != sorted[at - 1].Key ||
        bits(sorted[at].Entry) != bits(sorted[at - 1].Entry))
      MarkGroup(*order, at);
  }
  std::ranges::copy(undefined, order->Entries.begin() + static_cast<std::ptrdiff_t>(sorted.size()));
  if (!undefined.empty()) MarkGroup(*order, sorted.size());
  order->Undefined = static_cast<uint32_t>(undefined.size());
  return order;
}

uint32_t ListedPhrases(const PhraseTable& table) {
  uint32_t listed = 0;
  for (const PhraseIndex i : table.All()) listed += table.Listed(i) ? 1 : 0;
  return listed;
}

}  // namespace

SharedOrder OrderByPhrase(const PhraseTable& table, SortDirection direction, Yielder& yielder) {
  const uint32_t listed = ListedPhrases(table);
  const auto order = EmptyOrder(listed);
  uint32_t row = 0;
  for (const PhraseIndex i : table.All()) {
    if (!GoesOn(yielder)) return nullptr;
    if (!table.Listed(i)) continue;
    order->Entries[direction == SortDirection::Ascending ? row : listed - 1 - row] = i;
    MarkGroup(*order, row++);
  }
  return order;
}

SharedOrder OrderByCount(const PhraseTable& table, SortDirection direction, Yielder& yielder) {
  KeyedEntries entries;
  entries.reserve(table.EntryCount());
  for (const PhraseIndex i : table.All()) {
    if (!GoesOn(yielder)) return nullptr;
    const uint32_t count = table.Count(i);
    if (table.Listed(i)) entries.push_back({direction == SortDirection::Ascending ? count : ~count, i});
  }
  if (!RadixSort(entries, yielder)) return nullptr;
  return OrderOf(
      entries, {}, [](PhraseIndex) { return 0; }, yielder);
}

SharedOrder OrderByKeys(const PhraseTable& table, std::span<const double> keys, SortDirection direction,
                        Yielder& yielder) {
  const uint64_t flip = direction == SortDirection::Ascending ? 0 : ~uint64_t{0};
  const auto bits = [&](PhraseIndex i) { return BitsInOrder(keys[ValueOf(i)]) ^ flip; };
  KeyedEntries entries;
  entries.reserve(table.EntryCount());
  std::vector<PhraseIndex> undefined;
  for (const PhraseIndex i : table.All()) {
    if (!GoesOn(yielder)) return nullptr;
    if (!table.Listed(i)) continue;
    if (std::isnan(keys[ValueOf(i)]))
      undefined.push_back(i);
    else
      entries.push_back({static_cast<uint32_t>(bits(i) >> 32), i});
  }
  if (!RadixSort(entries, yielder)) return nullptr;
  SortByLowerHalves(entries, bits);
  return OrderOf(entries, undefined, bits, yielder);
}

SharedOrder Reversed(const PhraseOrder& order, Yielder& yielder) {
  const auto begins = [&](size_t at) { return (order.BeginsGroup[at / 64] >> (at % 64) & 1) != 0; };
  const size_t defined = order.Entries.size() - order.Undefined;
  const auto reversed = EmptyOrder(order.Entries.size());
  reversed->Undefined = order.Undefined;
  for (size_t begin = 0, end = 0; begin < defined; begin = end) {
    if (!GoesOn(yielder)) return nullptr;
    end = begin + 1;
    while (end < defined && !begins(end)) ++end;
    MarkGroup(*reversed, defined - end);
    std::copy(order.Entries.begin() + static_cast<std::ptrdiff_t>(begin),
              order.Entries.begin() + static_cast<std::ptrdiff_t>(end),
              reversed->Entries.begin() + static_cast<std::ptrdiff_t>(defined - end));
  }
  std::copy(order.Entries.begin() + static_cast<std::ptrdiff_t>(defined), order.Entries.end(),
            reversed->Entries.begin() + static_cast<std::ptrdiff_t>(defined));
  if (order.Undefined > 0) MarkGroup(*reversed, defined);
  return reversed;
}

std::vector<PhraseRank> RanksByCount(const PhraseTable& table, Yielder& yielder) {
  const SharedOrder order = OrderByCount(table, SortDirection::Descending, yielder);
  if (!order) return {};
  std::vector<PhraseRank> ranks(size_t{table.EntryCount()} + 1, kNoRank);
  PhraseRank rank = kNoRank;
  for (const PhraseIndex i : order->Entries) ranks[ValueOf(i)] = ++rank;
  return ranks;
}

}  // namespace korv
