#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// A literal that every text which matches a pattern holds. With it, patterns that a word cannot match are
/// rejected without a match.
struct RequiredLiteral {
  enum class Position { Anywhere, Beginning, End };
  std::string Text;  ///< As FoldForMatching() gives it. Empty: none is known.
  Position Where = Position::Anywhere;
};

/// The longest literal that the signs of a wildcard (Wildcard::Signs()) require.
RequiredLiteral RequiredLiteralOfWildcard(std::string_view signs);

/// Literals of which every text that matches a regular expression holds one: the longest of each alternative.
/// Empty: none is known. That is so for every expression with a construct that the reader does not know.
/// Where case is not significant, only ASCII characters are taken.
std::vector<RequiredLiteral> RequiredLiteralsOfExpression(std::string_view expression, bool caseSignificant);

/// Whether a valid expression means the same as one alternative of a larger one: it refers to no group, sets
/// no option and has no other effect beyond itself. False where a construct is not known.
bool CanStandInAlternation(std::string_view expression);

}  // namespace korv
