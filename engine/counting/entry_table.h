#pragma once

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "base/zeroed_array.h"

namespace korv {

/// Entries of a phrase table by a hash: open addressing, at most two thirds full. Any thread may insert;
/// look-ups come after.
class EntryTable {
 public:
  EntryTable() = default;
  /// For at most so many entries; 12 to 24 bytes each.
  explicit EntryTable(size_t entries) : slots_(std::bit_ceil(entries * 3 / 2 + 2)) {}

  /// `entry` is its index in the table's entries, from 0.
  void Insert(uint64_t hash, uint32_t entry) {
    const uint64_t slot = (hash & kHashPart) | (uint64_t{entry} + 1);
    for (size_t at = First(hash);; at = Next(at)) {
      uint64_t empty = 0;
      if (std::atomic_ref(slots_[at]).compare_exchange_strong(empty, slot, std::memory_order_relaxed)) return;
    }
  }

  /// Calls `use` with each entry inserted under this hash, and with few others, until it returns true.
  template <typename Use>
  void Visit(uint64_t hash, const Use& use) const {
    for (size_t at = First(hash); slots_[at] != 0; at = Next(at))
      if ((slots_[at] & kHashPart) == (hash & kHashPart) && use(static_cast<uint32_t>(slots_[at]) - 1))
        return;
  }

  /// Prefetches the memory that Insert() and Visit() read first.
  void Prefetch(uint64_t hash) const { __builtin_prefetch(&slots_[First(hash)]); }

 private:
  /// A slot holds the upper half of the hash and the entry, counted from 1; 0 is an empty one.
  static constexpr uint64_t kHashPart = 0xFFFFFFFF00000000;

  size_t First(uint64_t hash) const { return hash & (slots_.Size() - 1); }
  size_t Next(size_t at) const { return (at + 1) & (slots_.Size() - 1); }

  ZeroedArray<uint64_t> slots_;
};

}  // namespace korv
