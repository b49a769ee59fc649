#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "engine/patterns/list_entry.h"
#include "engine/patterns/regex.h"
#include "engine/patterns/required_literal.h"
#include "engine/patterns/wildcard.h"

namespace korv {

/// A list entry as a pattern for one word, or for one whole phrase, compiled once for many matches.
///
/// Between angle brackets ("<" first, ">" last) it is a regular expression, which is searched anywhere in the
/// text. An empty or invalid one matches nothing. Any other entry must match the whole text; `anyRun` and
/// `anyChar` stand for ".*" and ".", and all other characters go to the regular expression as they are, so
/// that "." matches any character too. Const members may be called from several threads at once.
class Pattern {
 public:
  Pattern(std::string_view pattern, bool caseSignificant, char anyRun = kAnyRun, char anyChar = kAnyChar);

  bool Matches(std::string_view text) const {
    return MatchesFolded(text, NeedsFolding() ? FoldForMatching(text, caseSignificant_) : std::string());
  }
  /// The same for callers that match one text with many patterns: `folded` is FoldForMatching() of the text.
  bool MatchesFolded(std::string_view text, std::string_view folded) const;

  /// Literals of which every text that matches holds one, after FoldForMatching(). Empty: none is known.
  std::vector<RequiredLiteral> RequiredLiterals() const;
  /// Whether it matches one text alone: `literal`, after FoldForMatching(). The view lasts as long as the
  /// pattern.
  bool IsLiteral(std::string_view& literal) const;
  /// Its regular expression where it has one that CanStandInAlternation(), else empty.
  std::string_view Alternative() const;
  bool MatchesNothing() const { return std::holds_alternative<Nothing>(form_); }

 private:
  struct Nothing {};
  struct Everything {};
  struct Expression {
    std::string Source;
    Regex Compiled;
  };

  bool NeedsFolding() const { return std::holds_alternative<Wildcard>(form_); }
  void Compile(std::string expression);

  bool caseSignificant_;
  std::variant<Nothing, Everything, Wildcard, Expression> form_;
};

}  // namespace korv
