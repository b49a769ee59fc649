#pragma once

#include <cstddef>
#include <string_view>

namespace korv {

inline unsigned char LowerAscii(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + 32) : byte;
}

/// Whether `marker`, in lower case, stands at byte `at` of `line`, ASCII case aside.
inline bool MarkerStandsAt(std::string_view line, size_t at, std::string_view marker) {
  if (line.size() - at < marker.size()) return false;
  for (size_t k = 0; k < marker.size(); ++k)
    if (LowerAscii(line[at + k]) != static_cast<unsigned char>(marker[k])) return false;
  return true;
}

/// Where `marker`, in lower case and not empty, stands next from byte `from` on; npos if nowhere. Linear.
inline size_t FindMarker(std::string_view line, size_t from, std::string_view marker) {
  const char first = marker[0];
  const bool isLetter = first >= 'a' && first <= 'z';
  const char both[] = {first, static_cast<char>(first - ('a' - 'A'))};
  for (size_t at = from;; ++at) {
    at = isLetter ? line.find_first_of({both, 2}, at) : line.find(first, at);
    if (at == std::string_view::npos || MarkerStandsAt(line, at, marker)) return at;
  }
}

}  // namespace korv
