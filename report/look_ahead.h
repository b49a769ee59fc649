#pragma once

#include <cstdint>

namespace korv {

/// How many entries ahead of the current one a loop over a table prefetches. Phrases lie all over the text,
/// so each costs cache misses; making a line takes about as long as a few of them.
inline constexpr uint32_t kLookAhead = 16;

}  // namespace korv
