#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace korv {

/// Why a word is dropped, in the order in which the rules are applied.
enum class DropReason : uint8_t {
  Short,       ///< Fewer characters than ShortWordSize.
  Long,        ///< More characters than LongWordSize.
  Letterless,  ///< No letter in it.
  Repetition,  ///< The same letter four times in a row.
  Ignored,     ///< A word to ignore, in the mode that removes them from the text.
  Not7bit,     ///< A character of code 128 or above.
};
inline constexpr size_t kDropReasons = 6;

/// The numbers of words of a text that were taken and dropped.
struct WordCounts {
  uint64_t Taken = 0;                              ///< Words that stand in phrases, or excluded them.
  std::array<uint64_t, kDropReasons> DroppedBy{};  ///< By DropReason. A word counts for the first that holds.

  uint64_t DroppedFor(DropReason reason) const { return DroppedBy[static_cast<size_t>(reason)]; }
  uint64_t Dropped() const { return std::accumulate(DroppedBy.begin(), DroppedBy.end(), uint64_t{0}); }
  /// All words that were cut from the text, dropped or not.
  uint64_t Read() const { return Taken + Dropped(); }

  bool operator==(const WordCounts&) const = default;
};

inline WordCounts operator+(WordCounts a, const WordCounts& b) {
  a.Taken += b.Taken;
  for (size_t r = 0; r < kDropReasons; ++r) a.DroppedBy[r] += b.DroppedBy[r];
  return a;
}

/// What came behind `before`, the counts of an earlier moment.
inline WordCounts operator-(WordCounts now, const WordCounts& before) {
  now.Taken -= before.Taken;
  for (size_t r = 0; r < kDropReasons; ++r) now.DroppedBy[r] -= before.DroppedBy[r];
  return now;
}

}  // namespace korv
