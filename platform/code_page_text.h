#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korv {

/// The text of bytes in the encoding of a name: "windows-1252", "ISO-8859-2", "CP932". Bytes that are no
/// character of it become U+FFFD. Empty for a name that the system does not know. Linear in `bytes`.
std::optional<std::string> TextOfBytes(std::string_view bytes, const std::string& encoding);

inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;
/// The characters of the 256 bytes; kNoCharacter where a byte is none.
using ByteTable = std::array<char32_t, 256>;

/// The table of an encoding that has one byte for each character; empty for other ones and for unknown
/// names.
std::optional<ByteTable> SingleByteTable(const std::string& encoding);

}  // namespace korv
