#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korv {

/// UTF-8 from outside, decoded or typed, as the program works on it: in NFC, typographic apostrophes as "'",
/// closing double quotes as the plain one, the hyphens U+2010 and U+2011 as "-", without what is invisible
/// within words (soft hyphens, U+2060, U+FEFF), and ill-formed sequences as U+FFFD, one for the longest
/// well-formed beginning of each.
///
/// Returns a view of `text` where nothing changes, else of `buffer`, which is overwritten and only grows.
/// `illFormed`, where given, is raised by the number of ill-formed sequences. Linear.
std::string_view CleanText(std::string_view text, std::string& buffer, uint64_t* illFormed = nullptr);
std::string CleanText(std::string_view text);

}  // namespace korv
