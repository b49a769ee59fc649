#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korv::reference {

/// What the bytes of a text are, one decision after the other and everything held whole.
struct DecodedText {
  std::vector<std::string> Lines;  ///< UTF-8, as the program works on them.
  bool IsUtf8 = false;
  uint64_t IllFormed = 0;  ///< Sequences of UTF-8 that became U+FFFD.
};

/// The bytes of each line, without their ends.
std::vector<std::string_view> BytesOfLines(std::string_view bytes);
/// The characters that bytes stand for, nothing replaced but what is ill-formed.
std::u32string RawCharacters(std::string_view bytes, bool isUtf8);
/// What is made of them but for NFC.
std::u32string WithReplacements(const std::u32string& characters, bool isUtf8);

/// Whether a text that nothing tells the encoding of is UTF-8, by what stands from its first byte above 127
/// on.
bool TakesForUtf8(std::string_view bytes);
DecodedText DecodeBytes(std::string_view bytes, bool isUtf8);

/// UTF-8 (any bytes) with what is replaced replaced and what is dropped dropped, in NFC.
std::string Clean(std::string_view text);

}  // namespace korv::reference
