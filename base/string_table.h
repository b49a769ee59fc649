#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/growing_array.h"
#include "base/zeroed_array.h"

namespace korv {

/// Distinct strings, numbered from 0 in the order of their first appearance.
///
///   Number(Text(n)) == n for every n < Size().
///
/// Number() is one look-up in a table of open addressing that is at most half full. The bytes of the strings
/// lie one after the other. When the table grows, its slots move a few at a time with the calls that follow,
/// so that no single call takes long however many strings there are. The hash depends on a number that nobody
/// can know beforehand: no choice of strings makes them meet in the table. Nothing else depends on it.
class StringTable {
 public:
  /// `seed` for tests.
  explicit StringTable(uint64_t seed = RandomSeed());

  /// The number of `text`, a new one when it has not been seen. Throws std::length_error for more than kNone
  /// - 1 strings.
  uint32_t Number(std::string_view text);
  /// A view that lasts until the next call of Number().
  std::string_view Text(uint32_t number) const {
    return {bytes_.data() + begins_[number], begins_[number + 1] - begins_[number]};
  }
  uint32_t Size() const { return static_cast<uint32_t>(begins_.size() - 1); }

  /// No number of any string.
  static constexpr uint32_t kNone = 0xFFFFFFFF;

 private:
  static uint64_t RandomSeed();

  /// The hash is kept so that most misses never touch the bytes.
  struct Slot {
    uint32_t Hash;
    uint32_t NumberPlusOne;  ///< 0: empty.
  };
  using Slots = ZeroedArray<Slot>;

  size_t SlotOf(const Slots& slots, std::string_view text, uint32_t hash) const;
  void BeginToGrow();
  void MoveSlots();

  uint64_t seed_;
  Slots slots_;  ///< Their number is a power of two.
  /// While the table grows, the slots before. Those from moved_ on are not among slots_ yet.
  Slots oldSlots_;
  size_t moved_ = 0;
  GrowingArray<uint64_t> begins_;  ///< Of each string in bytes_, and the end of the last.
  GrowingArray<char> bytes_;
};

/// A hash of the bytes, another one for every seed: for two texts that were chosen without knowing the seed,
/// the lower 32 bits are the same with a probability of about 1 in 2^32. Each eight bytes are multiplied,
/// half by half, with keys made of the seed added (Black and others 1999, the hash NH). For tables in memory
/// only: its values may change between versions.
uint64_t HashBytes(std::string_view text, uint64_t seed);

}  // namespace korv
