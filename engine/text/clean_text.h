#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korv {

/// Text from outside, decoded or typed, as the program works on it. Typographic apostrophes become "'",
/// closing double quotes the plain one, the hyphens U+2010 and U+2011 "-". Characters that are invisible
/// within words (soft hyphens, U+2060, U+FEFF) are removed. An ill-formed sequence of UTF-8 becomes U+FFFD,
/// one for its longest well-formed beginning. The result is in NFC.
///
/// Returns a view of `text` where nothing changes, else of `buffer`, which is overwritten. The number of
/// ill-formed sequences is added to `illFormed`, where given. Linear in the text.
std::string_view CleanText(std::string_view text, std::string& buffer, uint64_t* illFormed = nullptr);
std::string CleanText(std::string_view text);

}  // namespace korv
