#pragma once

#include <cstdint>

#include "tests/reference/naive_table.h"

namespace korv::reference {

enum class Direction { Descending, Ascending };
enum class ChainBy { Count, Files };

/// Recursive quicksort of the entries `first`..`last` by Key from character `startChar` (1-based) on, equal
/// keys by Text.
void SortPhrases(Table& table, int32_t first, int32_t last, int32_t startChar,
                 Direction direction = Direction::Descending);

/// Clears Listed of every entry that occurs within a longer listed one of the same count, pair by pair.
void ExcludeRedundantSubphrases(Table& table);

/// Numbers the listed entries by counting down from the largest count, and links them.
void SetUpFrequencyChain(Table& table, ChainBy by = ChainBy::Count);

}  // namespace korv::reference
