#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korv {

/// Ansi: one byte is one character, its code the byte's. Windows1252: the same, but that the bytes 128 to 159
/// are the signs that Windows has there. Utf8: as its name says.
enum class TextEncoding { Ansi, Utf8, Windows1252 };

/// The character of a byte of Windows-1252.
char32_t WindowsCharacter(unsigned char byte);

/// Turns the bytes of a text into the text that the program works on: UTF-8 as CleanText makes it (see
/// engine/clean_text.h). In ANSI text it is the bytes 0x91, 0x92, 0x94 and 0xAD that are replaced or dropped.
///
/// Returns a view of `bytes` where nothing changes, else of `buffer`, which is overwritten and only grows.
/// `bytes` must not end inside a character unless the text does. `illFormed`, where given, is raised by the
/// number of ill-formed sequences of UTF-8.
std::string_view DecodeText(std::string_view bytes, TextEncoding encoding, std::string& buffer,
                            uint64_t* illFormed = nullptr);

/// Whether the first character of `text`, which is not empty, joins none before it: text parted before it
/// decodes to the same as the whole. False where the end of `text` may cut that character.
bool BeginsPart(std::string_view text, TextEncoding encoding);

}  // namespace korv
