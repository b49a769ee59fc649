#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <type_traits>

namespace korv {

/// Appends a number, the lowest byte first.
template <std::integral Number>
void AppendNumber(Number number, std::string& bytes) {
  using Unsigned = std::make_unsigned_t<Number>;
  char buffer[sizeof(Number)];
  for (size_t k = 0; k < sizeof(Number); ++k)
    buffer[k] = static_cast<char>(static_cast<Unsigned>(number) >> (8 * k));
  bytes.append(buffer, sizeof(Number));
}

/// The number in the first bytes of `bytes`, of which there are enough.
template <std::integral Number>
Number NumberIn(const char* bytes) {
  using Unsigned = std::make_unsigned_t<Number>;
  Unsigned number = 0;
  for (size_t k = 0; k < sizeof(Number); ++k)
    number = static_cast<Unsigned>(number | static_cast<Unsigned>(static_cast<unsigned char>(bytes[k]))
                                                << (8 * k));
  return static_cast<Number>(number);
}

/// Appends the length of a text and its bytes.
inline void AppendBytes(std::string_view text, std::string& bytes) {
  AppendNumber(static_cast<uint32_t>(text.size()), bytes);
  bytes += text;
}
inline void AppendBool(bool value, std::string& bytes) {
  bytes += static_cast<char>(value ? 1 : 0);
}

/// A path in the bytes of the system, or as UTF-8 where it has none. Nothing of it is lost.
std::string BytesOfPath(const std::filesystem::path& path);
std::filesystem::path PathOfBytes(std::string_view bytes);

}  // namespace korv
