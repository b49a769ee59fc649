#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

namespace korv {

/// What the places of a document are counted in.
enum class PlaceUnit : uint8_t { Line, Page, Chapter, Cue, Segment };

/// A line of a document's text at which something begins; or, where lines of the file are told, any place.
struct TextMark {
  uint64_t Offset;      ///< Of the line's first byte in the text.
  uint32_t Number;      ///< Of the page, the chapter, ... that the text from here on belongs to.
  bool EndsPhrase;      ///< No phrase goes on from the line before.
  uint32_t Column = 0;  ///< Where Number is a line of the file: the column there, from 1; 0 where unknown.

  bool operator==(const TextMark&) const = default;
};

/// The first mark that stands behind `offset`, of marks in the order of their offsets.
inline std::span<const TextMark>::iterator MarkBehind(std::span<const TextMark> marks, uint64_t offset) {
  return std::upper_bound(marks.begin(), marks.end(), offset,
                          [](uint64_t at, const TextMark& mark) { return at < mark.Offset; });
}

/// Whether phrases end before the line that begins at `offset`. Logarithmic in the number of marks.
inline bool EndsPhraseAt(std::span<const TextMark> marks, uint64_t offset) {
  const auto behind = MarkBehind(marks, offset);
  return behind != marks.begin() && (behind - 1)->Offset == offset && (behind - 1)->EndsPhrase;
}

}  // namespace korv
