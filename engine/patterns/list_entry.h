#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// The characters that stand for others in list entries: any run of characters (also none), and exactly
/// one character.
inline constexpr char kAnyRun = '~';
inline constexpr char kAnyChar = '?';

/// Whether an entry is a pattern by itself: it holds a wildcard or an angle bracket.
bool HoldsPattern(std::string_view entry);

/// Whether byte `at` is the "<" of a part in angle brackets, which ends at the next ">"; an opening
/// bracket that is never closed is an ordinary character. `close` is the place of that ">".
bool OpensBrackets(std::string_view text, size_t at, size_t& close);

/// The pieces of `text` between the characters `separator` that stand outside angle brackets. Empty
/// pieces are kept; text inside angle brackets is never looked at.
std::vector<std::string_view> SplitOutsideBrackets(std::string_view text, char separator);

/// Folds the case of what stands outside angle brackets.
std::string FoldOutsideBrackets(std::string_view entry);

}  // namespace korv
