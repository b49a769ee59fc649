#pragma once

#include <span>
#include <string>

namespace korv {

/// Two lower-case hexadecimal digits a byte.
inline std::string HexText(std::span<const unsigned char> bytes) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text;
  for (const unsigned char byte : bytes) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

}  // namespace korv
