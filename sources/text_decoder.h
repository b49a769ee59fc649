#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Ansi: one byte is one character, its code the byte's. Utf8: as its name says.
enum class TextEncoding { Ansi, Utf8 };

/// Turns the bytes of a text into the text that the program works on: UTF-8 in NFC, typographic
/// apostrophes as "'" and closing double quotes as the plain one, ill-formed sequences of UTF-8 as U+FFFD
/// (one for the longest well-formed beginning of each).
///
/// Returns a view of `bytes` where nothing changes, else of `buffer`, which is overwritten and only grows.
/// `bytes` must not end inside a character unless the text does.
std::string_view DecodeText(std::string_view bytes, TextEncoding encoding, std::string& buffer);

}  // namespace korv
