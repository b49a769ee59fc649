// What is shown of the word rules: the words that they find in a sample, and the tool tips' examples.

#include "app/rules_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "app/rule_examples.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::Not;

struct SampleCase {
  const char* sample;
  const char* words;
};

TEST(TheWordsOfASample, AreThoseOfARunWithTheDefaults) {
  const SampleCase cases[] = {
      {"", ""},
      {"a of 12 --", ""},
      {"don't stop-loss 3D", "don | stop-loss"},
      {"Tom's isn't", "tom's | isn't"},
      {"The WHALE", "the | whale"},
      {"one of two", "one | two"},
      {"At last. He said so", "last || said"},
      {"\xE2\x80\x9Cyes\xE2\x80\x9D she said", "yes || she | said"},
      {"name\xE2\x87\xA5place", "name || place"},
      {"one\xC2\xB6two", "one | two"},
      {"whale grrrr whale", "whale | whale"},
      {"e\xCC\x81t\xC3\xA9 e\xCC\x81te\xCC\x81", "\xC3\xA9t\xC3\xA9 | \xC3\xA9t\xC3\xA9"},
      {"red &amp; green", "red | amp | green"},
  };
  for (const auto& [sample, words] : cases) EXPECT_EQ(WordsOfSample(sample, {}), words) << sample;
}

TEST(TheWordsOfASample, EndPhrasesAtTheEndOfALineWhereTheRulesSaySo) {
  WordRules rules;
  rules.TerminateAtEndOfLine = true;
  EXPECT_EQ(WordsOfSample("one\xC2\xB6two\xC2\xB6\xC2\xB6"
                          "four",
                          rules),
            "one || two || four");
}

TEST(TheSample, ShowsEveryRule) {
  bool WordRules::*const rules[] = {
      &WordRules::AllowHyphens,      &WordRules::AllowApostrophes,  &WordRules::AllowUnderscores,
      &WordRules::AllowColons,       &WordRules::AllowBackslashes,  &WordRules::AllowForwardslashes,
      &WordRules::AllowPeriods,      &WordRules::AllowAtSigns,      &WordRules::AllowNumerals,
      &WordRules::AllowParentheses,  &WordRules::AllowAmpersands,   &WordRules::AllowCommas,
      &WordRules::CaseSignificant,   &WordRules::Only7bitASCII,     &WordRules::IgnoreShortWords,
      &WordRules::IgnoreNoLetter,    &WordRules::IgnoreRepetitions, &WordRules::TerminateAtEndOfLine,
      &WordRules::TerminateAtPeriod, &WordRules::TerminateAtComma,  &WordRules::TerminateAtDoubleQuote,
      &WordRules::TerminateAtTab};
  for (size_t i = 0; i < std::size(rules); ++i) {
    WordRules on;
    // Words without a letter come from numerals, and from nothing else.
    on.AllowNumerals = rules[i] == &WordRules::IgnoreNoLetter;
    WordRules off = on;
    on.*rules[i] = true;
    off.*rules[i] = false;
    EXPECT_NE(WordsOfSample(RulesSample(), on), WordsOfSample(RulesSample(), off)) << i;
  }
}

TEST(TheSample, ShowsTheSizesOfShortWords) {
  std::set<std::string> seen;
  WordRules rules;
  for (rules.ShortWordSize = 2; rules.ShortWordSize <= 6; ++rules.ShortWordSize) {
    seen.insert(WordsOfSample(RulesSample(), rules));
  }
  EXPECT_EQ(seen.size(), 5U);
}

TEST(ATipOfARule, ShowsWhatIsCountedWithAndWithoutIt) {
  EXPECT_EQ(
      RuleTip({&WordRules::AllowHyphens, "A hyphen may stand within a word.", "stop-loss"}),
      "A hyphen may stand within a word.\nExample: stop-loss\nchecked: stop-loss\nunchecked: stop | loss");
  EXPECT_THAT(RuleTip({&WordRules::IgnoreShortWords, "", "an old man"}),
              HasSubstr("\nchecked: old | man\nunchecked: an | old | man"));
  EXPECT_THAT(RuleTip({&WordRules::IgnoreNoLetter, "", "3D in 2024"}),
              HasSubstr("\nchecked: 3D | in\nunchecked: 3D | in | 2024"));
  EXPECT_THAT(RuleTip({&WordRules::TerminateAtComma, "", "at last, he said"}),
              HasSubstr("\nchecked: at | last || he | said\nunchecked: at | last | he | said"));
}

}  // namespace
}  // namespace korv
