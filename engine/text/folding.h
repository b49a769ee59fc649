#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Replaces accented letters by their base letters, one to one; letters without such a partner that have
/// a two-letter form (ligatures, sharp s) by that. The one-to-one table is looked at first, so that A with
/// a diaeresis gives one letter. Everything else stays, eth and thorn in lower case among it. UTF-8.
std::string FoldAccents(std::string_view text);

/// Lower-cases, character by character. FoldKey(FoldAccents(Text)) is the Key by which phrases are ordered
/// and filter words are found.
std::string FoldKey(std::string_view text);

}  // namespace korv
