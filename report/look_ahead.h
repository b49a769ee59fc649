#pragma once

#include <cstdint>

namespace korv {

/// How many entries ahead of the one at hand a loop over a table fetches. A line takes about as long as a
/// few misses of the cache, and phrases lie all over the text.
inline constexpr uint32_t kLookAhead = 16;

}  // namespace korv
