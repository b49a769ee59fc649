#include "app/run/rules_text.h"

#include <vector>

namespace korv {

namespace {

/// "a", "a and b", "a, b and c"
std::string Enumerated(const std::vector<std::string>& things) {
  std::string text;
  for (size_t i = 0; i < things.size(); ++i) {
    if (i > 0) text += i + 1 == things.size() ? " and " : ", ";
    text += things[i];
  }
  return text;
}

struct Flag {
  bool WordRules::*Set;
  const char* Name;
};

std::vector<std::string> NamesOf(const std::vector<Flag>& flags, const WordRules& rules) {
  std::vector<std::string> names;
  for (const Flag& flag : flags)
    if (rules.*flag.Set) names.emplace_back(flag.Name);
  return names;
}

std::string Sizes(const WordRules& rules) {
  if (!rules.IgnoreShortWords) return "Words of up to " + std::to_string(rules.LongWordSize) + " letters";
  return "Words of " + std::to_string(rules.ShortWordSize) + " to " + std::to_string(rules.LongWordSize) +
         " letters";
}

}  // namespace

std::string WordRulesText(const WordRules& rules) {
  const std::vector<std::string> extra = NamesOf({{&WordRules::AllowHyphens, "hyphens"},
                                                  {&WordRules::AllowApostrophes, "apostrophes"},
                                                  {&WordRules::AllowUnderscores, "underscores"},
                                                  {&WordRules::AllowColons, "colons"},
                                                  {&WordRules::AllowBackslashes, "backslashes"},
                                                  {&WordRules::AllowForwardslashes, "slashes"},
                                                  {&WordRules::AllowPeriods, "periods"},
                                                  {&WordRules::AllowAtSigns, "at signs"},
                                                  {&WordRules::AllowNumerals, "numerals"},
                                                  {&WordRules::AllowParentheses, "parentheses"},
                                                  {&WordRules::AllowAmpersands, "ampersands"},
                                                  {&WordRules::AllowCommas, "commas"}},
                                                 rules);
  const std::vector<std::string> ends = NamesOf({{&WordRules::TerminateAtEndOfLine, "line ends"},
                                                 {&WordRules::TerminateAtPeriod, "periods"},
                                                 {&WordRules::TerminateAtComma, "commas"},
                                                 {&WordRules::TerminateAtDoubleQuote, "double quotes"},
                                                 {&WordRules::TerminateAtTab, "tabs"}},
                                                rules);
  std::string text = Sizes(rules);
  if (!extra.empty()) text += ", with " + Enumerated(extra);
  text += rules.CaseSignificant ? "; capitals count" : "; case ignored";
  if (rules.Only7bitASCII) text += "; without accents";
  if (!rules.IgnoreNoLetter) text += "; also without a letter";
  if (!rules.IgnoreRepetitions) text += "; also with a letter four times in a row";
  return text + "; phrases end at " + (ends.empty() ? "no sign" : Enumerated(ends));
}

std::string PhrasesText(const RunOptions& options) {
  const std::string least = std::to_string(options.MinWords);
  const std::string lengths =
      options.MinWords == options.MaxWords ? least : least + " to " + std::to_string(options.MaxWords);
  const std::string often = options.MinFrequency == 1 ? "any number of times"
                            : options.MinFrequency == 2
                                ? "at least twice"
                                : "at least " + std::to_string(options.MinFrequency) + " times";
  return (options.MaxWords == 1 ? "Single words" : "Phrases of " + lengths + " words") + " that occur " +
         often;
}

}  // namespace korv
