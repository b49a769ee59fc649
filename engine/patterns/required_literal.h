#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// A piece of text that every match of a pattern holds, for telling quickly which of many patterns a word
/// could match at all.
struct RequiredLiteral {
  enum class Position { Anywhere, Beginning, End };
  std::string Text;  ///< As FoldForMatching would give it; empty: nothing is known to be needed.
  Position Where = Position::Anywhere;
};

/// The longest piece that a wildcard's signs (Wildcard::Signs) need.
RequiredLiteral RequiredLiteralOfWildcard(std::string_view signs);

/// Pieces of which every match of a regular expression holds one, the longest of each alternative. Empty:
/// nothing is known to be needed, as of any expression that holds something out of the ordinary. Where case
/// is not significant only ASCII is looked for.
std::vector<RequiredLiteral> RequiredLiteralsOfExpression(std::string_view expression, bool caseSignificant);

/// Whether a valid expression means the same as one alternative of a larger one: it refers to no group, sets
/// no option and holds nothing else that reaches beyond it. Read conservatively, too.
bool CanStandInAlternation(std::string_view expression);

}  // namespace korv
