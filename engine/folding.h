#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Replaces accented letters by their base letters, one to one; letters without such a partner that have
/// a two-letter form (ligatures, sharp s) by that. The one-to-one table is looked at first.
std::string FoldAccents(std::string_view text);
/// Lower-cases, the accented capitals by their own table.
std::string FoldKey(std::string_view text);

}  // namespace korv
