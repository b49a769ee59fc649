#pragma once

#include <string>
#include <string_view>

#include "engine/text/word_rules.h"

namespace korv {

/// A word rule that is on or off, with a text in which it makes a difference.
struct RuleExample {
  bool WordRules::*Rule;
  const char* What;       ///< What the rule does, in a sentence; marked with TrLater().
  std::string_view Text;  ///< May hold the marks of rules_sample.h.
};

/// The sentence, the text, and what is counted of it with and without the rule, one a line. The words are
/// found by the scanner itself, under rules by which nothing else happens to them.
std::string RuleTip(const RuleExample& example);

}  // namespace korv
