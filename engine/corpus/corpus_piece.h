#pragma once

#include <cstdint>
#include <string_view>

#include "base/growing_array.h"
#include "engine/corpus/indices.h"
#include "engine/corpus/line_index.h"
#include "engine/text/word_counts.h"

namespace korv {

/// A piece of a text as one of several builders has cut it (CorpusBuilder::TakePiece), on its way into the
/// corpus of the whole text. Builders give the pieces of a text that they get, in the order of the text; the
/// corpus takes all of them in that order.
struct CorpusPiece {
  /// Stands before the first token, so that a phrase end there is not taken for one that is there already.
  static constexpr WordNumber kBegin{0xFFFFFFFF};

  GrowingArray<WordNumber> Tokens;  ///< kBegin, then tokens in the numbers of the builder.
  GrowingArray<Place> WordsAtEnds;  ///< Indices in Tokens.
  LineIndex Lines;                  ///< The same, with offsets and line numbers from the begin of the piece.
  WordCounts Counts;
  /// The words that the builder met in none of its earlier pieces, in the order of its numbers.
  GrowingArray<char> NewWords;
  GrowingArray<uint64_t> NewWordEnds;
};

/// Where a piece of a text begins.
struct PieceBegin {
  uint64_t Offset = 0;  ///< In bytes from the begin of the text.
  uint32_t Lines = 0;   ///< Lines before it.
};

/// The numbers that the words of another builder have in the corpus that takes its pieces, by its numbers.
using PartNumbers = GrowingArray<WordNumber>;

}  // namespace korv
