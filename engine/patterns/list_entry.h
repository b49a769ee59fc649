#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// The wildcards of list entries: any run of characters, which may be empty, and exactly one character.
inline constexpr char kAnyRun = '~';
inline constexpr char kAnyChar = '?';

/// Whether an entry is a pattern by itself: it holds a wildcard or an angle bracket.
bool HoldsPattern(std::string_view entry);

/// Whether byte `at` is the "<" of a part in angle brackets. The part ends at the next ">", whose offset is
/// stored in `close`. An opening bracket that is never closed is an ordinary character.
bool OpensBrackets(std::string_view text, size_t at, size_t& close);

/// Cuts `text` at every `separator` outside angle brackets. Empty pieces are kept.
std::vector<std::string_view> SplitOutsideBrackets(std::string_view text, char separator);

/// Folds the case of what stands outside angle brackets.
std::string FoldOutsideBrackets(std::string_view entry);

}  // namespace korv
