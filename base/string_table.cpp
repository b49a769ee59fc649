#include "base/string_table.h"

#include <cstring>
#include <stdexcept>

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

uint64_t HashBytes(std::string_view text) {
  const char* p = text.data();
  size_t n = text.size();
  uint64_t h = n * kFactorA;
  while (n > 8) {
    h = Mix((h ^ Load(p, 8)) * kFactorA);
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
  return Mix((h ^ last) * kFactorA);
}

StringTable::StringTable() : slots_(1024, Slot{0, kNone}), begins_(1, 0), mask_(1023) {}

uint32_t StringTable::Number(std::string_view text) {
  const auto hash = static_cast<uint32_t>(HashBytes(text));
  uint32_t at = hash & mask_;
  while (slots_[at].Number != kNone) {
    if (slots_[at].Hash == hash && Text(slots_[at].Number) == text) return slots_[at].Number;
    at = (at + 1) & mask_;
  }
  const uint32_t number = Size();
  if (number == kNone - 1) throw std::length_error("too many different words");
  bytes_.insert(bytes_.end(), text.begin(), text.end());
  begins_.push_back(bytes_.size());
  slots_[at] = {hash, number};
  if (Size() > mask_ / 2) Grow();
  return number;
}

uint32_t StringTable::Find(std::string_view text) const {
  const auto hash = static_cast<uint32_t>(HashBytes(text));
  for (uint32_t at = hash & mask_; slots_[at].Number != kNone; at = (at + 1) & mask_)
    if (slots_[at].Hash == hash && Text(slots_[at].Number) == text) return slots_[at].Number;
  return kNone;
}

void StringTable::Grow() {
  std::vector<Slot> old(slots_.size() * 2, Slot{0, kNone});
  old.swap(slots_);
  mask_ = static_cast<uint32_t>(slots_.size() - 1);
  for (const Slot& slot : old) {
    if (slot.Number == kNone) continue;
    uint32_t at = slot.Hash & mask_;
    while (slots_[at].Number != kNone) at = (at + 1) & mask_;
    slots_[at] = slot;
  }
}

}  // namespace korv
