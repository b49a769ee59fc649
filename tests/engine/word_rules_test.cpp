#include "engine/text/word_rules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace korv {
namespace {

std::string Sorted(std::string text) {
  std::sort(text.begin(), text.end());
  return text;
}

WordRules Nothing() {
  WordRules rules;
  rules.AllowHyphens = false;
  return rules;
}

std::string Derived(WordRules rules) {
  rules.AllowedExtraChars = "left over";
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  return Sorted(rules.AllowedExtraChars);
}

TEST(AllowedExtraChars, HoldWhatEachOptionAdmits) {
  struct Row {
    bool WordRules::*Option;
    const char* Characters;
  };
  constexpr Row kTable[] = {{&WordRules::AllowHyphens, "-"},           {&WordRules::AllowApostrophes, "'"},
                            {&WordRules::AllowUnderscores, "_"},       {&WordRules::AllowColons, ":"},
                            {&WordRules::AllowBackslashes, "\\"},      {&WordRules::AllowForwardslashes, "/"},
                            {&WordRules::AllowPeriods, "."},           {&WordRules::AllowAtSigns, "@"},
                            {&WordRules::AllowNumerals, "0123456789"}, {&WordRules::AllowParentheses, "()"},
                            {&WordRules::AllowAmpersands, "&"},        {&WordRules::AllowCommas, ","}};
  std::string all;
  WordRules everything = Nothing();
  for (const Row& row : kTable) {
    WordRules rules = Nothing();
    rules.*row.Option = true;
    EXPECT_EQ(Derived(rules), row.Characters);
    everything.*row.Option = true;
    all += row.Characters;
  }
  EXPECT_EQ(Derived(everything), Sorted(all));
  EXPECT_EQ(Derived(Nothing()), "");
}

TEST(AllowedExtraChars, FirstStepStartsAnew) {
  WordRules rules;
  rules.AllowCommas = true;
  SetAllowedExtraChars(rules);
  EXPECT_EQ(rules.AllowedExtraChars, "-");
  SetAllowedExtraChars2(rules);
  EXPECT_EQ(Sorted(rules.AllowedExtraChars), Sorted("-,"));
}

}  // namespace
}  // namespace korv
