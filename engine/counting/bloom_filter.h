#pragma once

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "base/zeroed_array.h"

namespace korv {

/// A Bloom filter: a set of hashes that never denies a member and claims one time in 25 at most to hold a
/// hash that is none. Three bits a member, all in one word of memory. Any thread may add; look-ups come
/// after.
class BloomFilter {
 public:
  /// For about so many members: 8 bits each.
  explicit BloomFilter(size_t members) : words_(std::bit_ceil(members * 8 + 64) / 64) {}

  /// Returns whether it may have been a member before.
  bool Add(uint64_t hash) {
    const uint64_t bits = Bits(hash);
    return (std::atomic_ref(words_[WordOf(hash)]).fetch_or(bits, std::memory_order_relaxed) & bits) == bits;
  }
  bool MayHold(uint64_t hash) const {
    const uint64_t bits = Bits(hash);
    return (words_[WordOf(hash)] & bits) == bits;
  }
  /// Prefetches the memory that Add() and MayHold() read.
  void Prefetch(uint64_t hash) const { __builtin_prefetch(&words_[WordOf(hash)]); }

 private:
  size_t WordOf(uint64_t hash) const { return hash >> 24 & (words_.Size() - 1); }
  static uint64_t Bits(uint64_t hash) {
    return uint64_t{1} << (hash & 63) | uint64_t{1} << (hash >> 6 & 63) | uint64_t{1} << (hash >> 12 & 63);
  }

  ZeroedArray<uint64_t> words_;
};

}  // namespace korv
