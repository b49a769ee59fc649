#pragma once

#include <cstddef>

#include "engine/corpus/corpus.h"
#include "sources/places/place_locator.h"

namespace korv {

/// The phrase of `words` words at `place` and what stands around it as the run itself knows it, without the
/// file: words as they were counted, "|" where no phrase goes on, nothing of what was dropped. At most
/// `around` code points of whole words on both sides, not beyond the file. Line, column and
/// offsets are 0. Linear in
/// `around`.
PlaceInText WordsAround(const Corpus& corpus, Place place, int words, size_t around);

/// Index of the first token behind the text that `place` belongs to.
Place EndOfText(const Corpus& corpus, Place place);

}  // namespace korv
