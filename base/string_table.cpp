#include "base/string_table.h"

#include <algorithm>
#include <cstring>
#include <random>
#include <span>
#include <stdexcept>
#include <utility>

#include "base/translation.h"

namespace korv {

namespace {

constexpr uint64_t kFactorA = 0x9E3779B97F4A7C15;
constexpr uint64_t kFactorB = 0xD6E8FEB86659FD93;

uint64_t Load(const char* p, size_t size) {
  uint64_t v = 0;
  std::memcpy(&v, p, size);
  return v;
}

uint64_t Mix(uint64_t v) {
  v ^= v >> 32;
  v *= kFactorB;
  v ^= v >> 29;
  return v;
}

}  // namespace

uint64_t HashBytes(std::string_view text, uint64_t seed) {
  const auto lowKey = static_cast<uint32_t>(seed);
  const auto highKey = static_cast<uint32_t>(seed >> 32);
  // What is added to the product spreads words evenly under every seed.
  const auto product = [&](uint64_t bytes) {
    const uint32_t low = static_cast<uint32_t>(bytes) + lowKey;
    const uint32_t high = static_cast<uint32_t>(bytes >> 32) + highKey;
    return uint64_t{low} * high + bytes * kFactorA;
  };
  const char* p = text.data();
  size_t n = text.size();
  uint64_t h = n * kFactorA;
  while (n > 8) {
    h = Mix(h + product(Load(p, 8)));
    p += 8;
    n -= 8;
  }
  // The last one to eight bytes in two overlapping loads of a fixed size, which compilers turn into
  // plain instructions.
  uint64_t last = 0;
  if (n == 8)
    last = Load(p, 8);
  else if (n >= 4)
    last = Load(p, 4) | Load(p + n - 4, 4) << 32;
  else if (n >= 2)
    last = Load(p, 2) | Load(p + n - 2, 2) << 16;
  else if (n == 1)
    last = static_cast<unsigned char>(*p);
  return Mix(h + product(last));
}

StringTable::StringTable(uint64_t seed) : seed_(seed), slots_(1024) {
  begins_.push_back(0);
}

uint64_t StringTable::RandomSeed() {
  std::random_device random;
  const uint64_t high = random();
  return high << 32 | random();
}

/// The slot that holds `text`, else the empty one where it belongs.
size_t StringTable::SlotOf(const Slots& slots, std::string_view text, uint32_t hash) const {
  const size_t mask = slots.Size() - 1;
  size_t at = hash & mask;
  while (slots[at].NumberPlusOne != 0 &&
         (slots[at].Hash != hash || Text(slots[at].NumberPlusOne - 1) != text))
    at = (at + 1) & mask;
  return at;
}

uint32_t StringTable::Number(std::string_view text) {
  if (!oldSlots_.Empty()) MoveSlots();
  const auto hash = static_cast<uint32_t>(HashBytes(text, seed_));
  const size_t at = SlotOf(slots_, text, hash);
  if (slots_[at].NumberPlusOne != 0) return slots_[at].NumberPlusOne - 1;
  if (!oldSlots_.Empty())
    if (const Slot old = oldSlots_[SlotOf(oldSlots_, text, hash)]; old.NumberPlusOne != 0)
      return old.NumberPlusOne - 1;
  const uint32_t number = Size();
  if (number == kNone - 1) throw std::length_error(Tr("too many different words"));
  bytes_.append(std::span(text));
  begins_.push_back(bytes_.size());
  slots_[at] = {hash, number + 1};
  if (Size() > slots_.Size() / 2) BeginToGrow();
  return number;
}

// The slots before have all moved by now: they were half full, and MoveSlots() moves more than one a call.
void StringTable::BeginToGrow() {
  Slots larger(slots_.Size() * 2);
  oldSlots_ = std::move(slots_);
  slots_ = std::move(larger);
  moved_ = 0;
}

void StringTable::MoveSlots() {
  constexpr size_t kSlotsPerCall = 16;
  const size_t mask = slots_.Size() - 1;
  const size_t end = std::min(oldSlots_.Size(), moved_ + kSlotsPerCall);
  for (; moved_ < end; ++moved_) {
    const Slot& slot = oldSlots_[moved_];
    if (slot.NumberPlusOne == 0) continue;
    size_t at = slot.Hash & mask;
    while (slots_[at].NumberPlusOne != 0) at = (at + 1) & mask;
    slots_[at] = slot;
  }
  if (moved_ == oldSlots_.Size()) oldSlots_ = {};
}

}  // namespace korv
