#pragma once

#include <string>
#include <string_view>

#include "sources/detect/comment_markers.h"

namespace korv {

/// The encoding that a signature of Unicode at the beginning of a text tells: "UTF-8", "UTF-16LE",
/// "UTF-16BE", "UTF-32LE" or "UTF-32BE"; empty where there is none.
std::string SignedEncoding(std::string_view head);

/// The encoding that a text says to have: by its signature, or, where it is mark-up, in the first of the
/// 16,384 bytes of `head`: "<?xml ... encoding=...?>", "<meta charset=...>". A name that iconv knows; those
/// that browsers read otherwise than they say are what browsers take them for, so that Latin-1 is
/// "WINDOWS-1252". Empty where it says nothing.
std::string DeclaredEncoding(std::string_view head, MarkupLanguage language);

/// The name of an encoding as browsers take it, in capital letters.
std::string EncodingAsBrowsersHaveIt(std::string_view name);

}  // namespace korv
