#include "app/texts/rule_examples.h"

#include "app/texts/rules_sample.h"
#include "base/translation.h"

namespace korv {

namespace {

/// Under these nothing happens to a text of plain words and numbers but what an example turns on.
WordRules PlainRules() {
  WordRules rules;
  rules.AllowHyphens = false;
  rules.CaseSignificant = true;
  rules.IgnoreShortWords = false;
  rules.IgnoreNoLetter = false;
  rules.IgnoreRepetitions = false;
  rules.TerminateAtPeriod = false;
  rules.TerminateAtDoubleQuote = false;
  rules.TerminateAtTab = false;
  return rules;
}

std::string WordsWith(const RuleExample& example, bool on) {
  WordRules rules = PlainRules();
  // The rule about letters needs words that have none.
  rules.AllowNumerals = example.Rule == &WordRules::IgnoreNoLetter;
  rules.*example.Rule = on;
  return WordsOfSample(example.Text, rules);
}

}  // namespace

std::string RuleTip(const RuleExample& example) {
  return Fill(Tr("%1\nExample: %2\nchecked: %3\nunchecked: %4"),
              {Tr(example.What), example.Text, WordsWith(example, true), WordsWith(example, false)});
}

}  // namespace korv
