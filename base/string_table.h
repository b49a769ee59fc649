#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace korv {

/// Distinct strings, numbered from 0 in the order of their first appearance.
///
/// One look-up per call of Number() in an open-addressing table that is at most half full; the bytes of
/// the strings lie one after the other. A view from Text() lives until the next Number().
class StringTable {
 public:
  StringTable();

  /// The number of `text`, a new one when it has not been seen.
  uint32_t Number(std::string_view text);
  /// The number of `text`, or kNone.
  uint32_t Find(std::string_view text) const;
  std::string_view Text(uint32_t number) const {
    return {bytes_.data() + begins_[number], begins_[number + 1] - begins_[number]};
  }
  uint32_t Size() const { return static_cast<uint32_t>(begins_.size() - 1); }

  static constexpr uint32_t kNone = 0xFFFFFFFF;

 private:
  /// An empty slot has kNone as its number. The hash is kept so that most misses never touch the bytes.
  struct Slot {
    uint32_t Hash;
    uint32_t Number;
  };

  void Grow();

  std::vector<Slot> slots_;
  std::vector<uint64_t> begins_;  ///< Of each string in bytes_, and the end of the last.
  std::vector<char> bytes_;
  uint32_t mask_;
};

/// A hash of the bytes; for tables in memory only, its values may change between versions.
uint64_t HashBytes(std::string_view text);

}  // namespace korv
