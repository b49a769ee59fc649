#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/corpus/vocabulary.h"
#include "engine/counting/phrase_hash.h"

namespace korv {

/// The second of two neighbouring words of a phrase, and the count of that phrase.
struct SecondWord {
  WordNumber Word;
  uint32_t Count;
  bool operator==(const SecondWord&) const = default;
};

inline uint64_t HashOf(const SecondWord& second) {
  return Scramble(uint64_t{ValueOf(second.Word)} << 32 | second.Count);
}

/// A set of second words with a number each: open addressing, at most half full. It is emptied and filled
/// again many times; that costs what the next members need, and no allocation unless they are more than ever.
class SecondSet {
 public:
  static constexpr uint32_t kNone = UINT32_MAX;

  /// Makes room for so many members; more may be added.
  void Clear(size_t members) {
    size_ = 0;
    mask_ = std::bit_ceil(members * 2 + 2) - 1;
    if (slots_.size() <= mask_) slots_.resize(mask_ + 1);
    std::fill(slots_.begin(), slots_.begin() + static_cast<std::ptrdiff_t>(mask_) + 1, Slot{});
  }

  /// False where it is a member already.
  bool Insert(const SecondWord& second, uint32_t number) {
    Slot& slot = SlotOf(second);
    if (slot.Key.Word != kNoWord) return false;
    slot = {second, number};
    if (++size_ * 2 > mask_) Grow();
    return true;
  }

  /// Its number, or kNone.
  uint32_t Find(const SecondWord& second) const {
    for (size_t at = HashOf(second) & mask_; slots_[at].Key.Word != kNoWord; at = (at + 1) & mask_)
      if (slots_[at].Key == second) return slots_[at].Number;
    return kNone;
  }

 private:
  struct Slot {
    SecondWord Key{kNoWord, 0};
    uint32_t Number = kNone;
  };

  Slot& SlotOf(const SecondWord& second) {
    size_t at = HashOf(second) & mask_;
    while (slots_[at].Key.Word != kNoWord && slots_[at].Key != second) at = (at + 1) & mask_;
    return slots_[at];
  }

  void Grow() {
    const std::vector<Slot> before(slots_.begin(), slots_.begin() + static_cast<std::ptrdiff_t>(mask_) + 1);
    Clear(before.size());
    for (const Slot& slot : before)
      if (slot.Key.Word != kNoWord) {
        SlotOf(slot.Key) = slot;
        ++size_;
      }
  }

  std::vector<Slot> slots_;
  size_t mask_ = 0;
  size_t size_ = 0;
};

}  // namespace korv
