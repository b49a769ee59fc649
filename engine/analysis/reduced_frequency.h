#pragma once

#include <cstdint>
#include <span>

namespace korv {

/// Average reduced frequency: how often a phrase would have to occur at even distances to matter as much.
///
///     ARF = (1 / v) * sum of min(d_j, v),  v = n / f
///
/// over the distances d_j, in words, between one occurrence and the next; the last distance leads round the
/// end of the text to the first occurrence. Between 1, all side by side, and f. It needs no parts. Savicky
/// and Hlavacova 2002.
///
/// `positions`: for each occurrence the words before it, ascending; at least one. `words`: n. Linear.
double AverageReducedFrequency(std::span<const uint64_t> positions, uint64_t words);

}  // namespace korv
