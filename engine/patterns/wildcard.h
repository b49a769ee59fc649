#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korv {

/// An expression "^...$" made of nothing but plain characters, "." and ".*", matched without the engine
/// for regular expressions and with the same result.
///
/// Kept as the characters themselves with two bytes that no UTF-8 text holds for the wildcards.
class Wildcard {
 public:
  static constexpr char kRun = static_cast<char>(0xFF);  ///< ".*"
  static constexpr char kOne = static_cast<char>(0xFE);  ///< "."

  /// `inner` is what stands between "^" and "$". Empty when the expression holds anything that only the
  /// engine can judge: another sign with a meaning, or, where case is not significant, a character with
  /// more than one lower-case form that are one without regard to case.
  static std::optional<Wildcard> FromExpression(std::string_view inner, bool caseSignificant);

  /// `text` as FoldForMatching gave it. Cost: a few steps per character; at worst length times length.
  bool Matches(std::string_view text) const;

  std::string_view Signs() const { return signs_; }
  /// Without wildcards: the one text that it matches.
  bool IsLiteral() const { return signs_.find_first_of("\xFE\xFF") == std::string::npos; }

 private:
  std::string signs_;
};

/// Maps the characters that the regular-expression engine takes as one without regard to case to one
/// character, as far as they have a partner below U+017F; `text` itself where case is significant.
std::string FoldForMatching(std::string_view text, bool caseSignificant);

}  // namespace korv
