#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "base/expected.h"
#include "sources/places/place_locator.h"

namespace korv {

/// A part of a text, to be shown as the file has it.
struct TextWindow {
  std::string Text;        ///< UTF-8, a line feed for each line end.
  uint64_t Begin = 0;      ///< Offset of its first byte in the file, or in the text extracted from it.
  uint64_t End = 0;        ///< Of the first byte behind it.
  uint64_t FirstLine = 0;  ///< Number of its first line, from 1.
  bool ToEnd = false;      ///< The text ends with it.
  /// Of the phrase in Text, in bytes; the same where it is not in it.
  size_t PhraseBegin = 0;
  size_t PhraseEnd = 0;

  /// Number of the line that goes on behind it.
  uint64_t LastLine() const;
};

/// Which part: about `Around` bytes on both sides of an offset whose line is known. Begins and ends with a
/// line where that costs no more than half of it.
struct WindowWish {
  size_t Source = 0;    ///< Index in Corpus::Sources.
  uint64_t Offset = 0;  ///< The first byte of a character.
  uint64_t Line = 0;    ///< The number of the line there.
  uint64_t Around = 0;
  /// Offsets of a phrase in the text.
  uint64_t PhraseBegin = 0;
  uint64_t PhraseEnd = 0;
};

/// Costs the reading of the part, but of a document the reading of all of it.
Expected<TextWindow, PlaceFault> ReadTextWindow(const Corpus& corpus, PlaceLocator& locator,
                                                const WindowWish& wish);

}  // namespace korv
