#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace korv {

/// The kinds of byte sequences in a text that claims to be UTF-8.
enum class Utf8Kind {
  WellFormed,  ///< One character.
  IllFormed,   ///< Bytes that begin no character.
  CutOff,      ///< The text ends inside a sequence that is well-formed so far.
};

struct Utf8Sequence {
  Utf8Kind Kind;
  size_t Length;  ///< In bytes, at least 1; of an ill-formed sequence its longest well-formed beginning.
};

/// The sequence at byte `at`, which must be inside `text`. The ranges are those of table 3-7 of the Unicode
/// Standard: no overlong forms, no surrogates, nothing above U+10FFFF.
Utf8Sequence Utf8SequenceAt(std::string_view text, size_t at);

/// Makes well-formed UTF-8: sequences that are ill-formed or cut off become U+FFFD.
std::string MendedUtf8(std::string_view text);

}  // namespace korv
