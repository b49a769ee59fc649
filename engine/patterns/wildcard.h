#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korv {

/// An expression "^...$" of plain characters, "." and ".*" alone. It is matched without the library for
/// regular expressions, with the same results.
///
/// It is kept as its characters, with two bytes for the wildcards that no UTF-8 text holds.
class Wildcard {
 public:
  static constexpr char kRun = static_cast<char>(0xFF);  ///< ".*"
  static constexpr char kOne = static_cast<char>(0xFE);  ///< "."

  /// `inner` is what stands between "^" and "$". Nothing when only the library can match the expression: it
  /// holds another sign with a meaning, or, where case is not significant, a character that FoldForMatching()
  /// does not fold as the library does.
  static std::optional<Wildcard> FromExpression(std::string_view inner, bool caseSignificant);

  /// "*" stands for any characters and "?" for one; all others are plain.
  static Wildcard FromText(std::string_view text);

  /// `text` as FoldForMatching() gives it. A few steps per character; at worst the product of both lengths.
  bool Matches(std::string_view text) const;

  std::string_view Signs() const { return signs_; }
  /// Whether it has no wildcard. Signs() is then the one text that it matches.
  bool IsLiteral() const { return signs_.find_first_of("\xFE\xFF") == std::string::npos; }

 private:
  std::string signs_;
};

/// Maps characters that are equal without regard to case, as the library for regular expressions has it, to
/// one of them. Only characters with a partner up to U+017F are mapped. Returns `text` where case is
/// significant.
std::string FoldForMatching(std::string_view text, bool caseSignificant);

}  // namespace korv
