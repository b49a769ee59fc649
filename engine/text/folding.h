#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Replaces accented letters by their base letters, and ligatures and the sharp s by their two-letter forms.
/// A letter that has both gets the base letter: A with a diaeresis becomes A. Everything else stays, eth and
/// thorn in lower case too. UTF-8.
std::string FoldAccents(std::string_view text);

/// Lower-cases, character by character. FoldKey(FoldAccents(Text)) is the Key by which phrases are ordered
/// and filter words are found.
std::string FoldKey(std::string_view text);

}  // namespace korv
