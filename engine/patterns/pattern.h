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

/// One list entry as a pattern for one word (or one whole phrase), compiled once and asked often.
///
/// Between angle brackets ("<" first, ">" last) it is a regular expression, searched anywhere in the text;
/// an empty or invalid one matches nothing. Otherwise the characters `anyRun` and `anyChar` stand for
/// ".*" and ".", all others go to the regular expression as they are (so "." matches any character, too),
/// and the whole text must match. Asking is const and may be done from several threads at once.
class Pattern {
 public:
  Pattern(std::string_view pattern, bool caseSignificant, char anyRun = kAnyRun, char anyChar = kAnyChar);

  bool Matches(std::string_view text) const {
    return MatchesFolded(text, NeedsFolding() ? FoldForMatching(text, caseSignificant_) : std::string());
  }
  /// For whoever asks many patterns of one text: `folded` is FoldForMatching of it.
  bool MatchesFolded(std::string_view text, std::string_view folded) const;

  /// A text that holds none of these (after FoldForMatching) is not worth asking for. Empty: any may be.
  std::vector<RequiredLiteral> RequiredLiterals() const;
  /// Whether it is one text and no pattern at all; `literal` is that text after FoldForMatching.
  bool IsLiteral(std::string_view& literal) const;
  /// The regular expression that decides, where one does and it can stand in an alternation with others.
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
