#pragma once

#include <string>
#include <string_view>

namespace korv {

/// A piece of text that every match of a pattern holds, for telling quickly which of many patterns a word
/// could match at all.
struct Fragment {
  enum class Place { Anywhere, Beginning, End };
  std::string Text;  ///< As FoldForMatching would give it; empty: nothing is known to be needed.
  Place Where = Place::Anywhere;
};

/// The longest piece that a wildcard's signs (Wildcard::Signs) need.
Fragment FragmentOfWildcard(std::string_view signs);

/// The longest piece that a regular expression needs, read conservatively: an expression that holds
/// anything out of the ordinary needs nothing. Where case is not significant only ASCII is looked for.
Fragment FragmentOfExpression(std::string_view expression, bool caseSignificant);

/// Whether a valid expression means the same as one alternative of a larger one: it refers to no group, sets
/// no option and holds nothing else that reaches beyond it. Read conservatively, too.
bool CanStandInAlternation(std::string_view expression);

}  // namespace korv
