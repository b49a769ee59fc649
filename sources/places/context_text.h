#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "sources/read/text_decoder.h"

namespace korv {

/// Whether Unicode calls the character white space.
bool IsWhiteSpace(char32_t character);

/// Bytes of a text as UTF-8, nothing replaced but what is ill-formed.
std::string RawText(std::string_view bytes, TextEncoding encoding);

/// `text`, well-formed UTF-8, with every run of white space as one blank and none at its ends.
std::string WithSingleBlanks(std::string_view text);

/// The last (first) words of a text with single blanks that `most` code points hold. A word that they would
/// cut is left out, and there is no blank at the ends.
std::string LastWords(std::string_view text, size_t most);
std::string FirstWords(std::string_view text, size_t most);

}  // namespace korv
