#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "engine/analysis/phrase_list.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// Rows that a jump looks at where they are in no alphabetical order.
inline constexpr uint32_t kMostRowsOfJump = 300'000;

/// The row of the first phrase that begins with `typed`, accents and case aside. `alphabetical` is the
/// direction of rows that are ordered by the phrase: a binary search then. Otherwise it is the next such row
/// from row `from` on, and on from the top, among kMostRowsOfJump rows.
std::optional<uint32_t> FindRow(const PhraseTable& table, const PhraseList& rows,
                                std::optional<SortDirection> alphabetical, uint32_t from,
                                std::string_view typed);

}  // namespace korv
