// What is shown of the word rules: the words that they find in a sample, and the tool tips' examples.

#include "app/texts/rules_sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <set>

#include "app/texts/rule_examples.h"
#include "tests/reference/naive_run.h"
#include "tests/reference/naive_scanner.h"
#include "tests/reference/naive_text.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::Not;

struct SampleCase {
  const char* Sample;
  const char* Words;
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

using Rule = bool WordRules::*;
constexpr Rule kRules[] = {
    &WordRules::AllowHyphens,      &WordRules::AllowApostrophes,  &WordRules::AllowUnderscores,
    &WordRules::AllowColons,       &WordRules::AllowBackslashes,  &WordRules::AllowForwardslashes,
    &WordRules::AllowPeriods,      &WordRules::AllowAtSigns,      &WordRules::AllowNumerals,
    &WordRules::AllowParentheses,  &WordRules::AllowAmpersands,   &WordRules::AllowCommas,
    &WordRules::CaseSignificant,   &WordRules::Only7bitASCII,     &WordRules::IgnoreShortWords,
    &WordRules::IgnoreNoLetter,    &WordRules::IgnoreRepetitions, &WordRules::TerminateAtEndOfLine,
    &WordRules::TerminateAtPeriod, &WordRules::TerminateAtComma,  &WordRules::TerminateAtDoubleQuote,
    &WordRules::TerminateAtTab};
/// What the first twelve of them admit.
constexpr std::string_view kAdmitted[] = {"-", "'", "_",          ":",  "\\", "/",
                                          ".", "@", "0123456789", "()", "&",  ","};

/// The same, straight from the rules.
std::string NaiveWordsOf(const std::vector<std::string>& lines, WordRules rules) {
  for (size_t i = 0; i < std::size(kAdmitted); ++i) {
    if (rules.*kRules[i]) rules.AllowedExtraChars += kAdmitted[i];
  }
  reference::Scanner scanner(rules, "None");
  for (const std::string& line : lines) scanner.ScanLine(line);
  std::string words;
  const char* between = " | ";
  for (const std::string& found : scanner.Found()) {
    if (found == reference::Scanner::kBreak) {
      between = " || ";
      continue;
    }
    const std::string word = rules.CaseSignificant ? found : reference::Fold(found);
    const std::u32string characters = reference::Decode(word);
    if (!reference::RulesDrop(found, rules).empty()) continue;
    if (rules.Only7bitASCII &&
        std::any_of(characters.begin(), characters.end(), [](char32_t c) { return c > 127; }))
      continue;
    words += (words.empty() ? "" : between) + word;
    between = " | ";
  }
  return words;
}

RC_GTEST_PROP(TheWordsOfASample, AreThoseOfTheModel, ()) {
  const std::vector<std::string> pieces = {"a",      "cat",
                                           "WASN",   "'t",
                                           "'s",     " ",
                                           " ",      "caf\xC3\xA9",
                                           "grrrrr", "7",
                                           "3D",     "\"",
                                           ".",      ",",
                                           "-",      "--",
                                           "(",      ")",
                                           "&",      "_",
                                           "/",      "\\",
                                           "@",      ":",
                                           "#",      "abcdefghijklmnopqrstuvwxyz",
                                           "T\u0308"};
  WordRules rules;
  for (const Rule rule : kRules) rules.*rule = *rc::gen::arbitrary<bool>();
  rules.ShortWordSize = *rc::gen::inRange(2, 6);
  rules.LongWordSize = 10 * *rc::gen::inRange(2, 5);
  std::vector<std::string> lines(*rc::gen::inRange<size_t>(1, 4));
  std::string sample;
  for (size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) sample += kLineEndMark;
    for (const std::string& piece :
         *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces))) {
      lines[i] += piece;
      sample += piece;
      if (*rc::gen::inRange(0, 20) == 0) {
        lines[i] += '\t';
        sample += kTabMark;
      }
    }
  }
  RC_LOG() << sample << '\n';
  RC_ASSERT(WordsOfSample(sample, rules) == NaiveWordsOf(lines, rules));
}

TEST(TheSample, ShowsEveryRule) {
  for (size_t i = 0; i < std::size(kRules); ++i) {
    WordRules on;
    // Words without a letter come from numerals, and from nothing else.
    on.AllowNumerals = kRules[i] == &WordRules::IgnoreNoLetter;
    WordRules off = on;
    on.*kRules[i] = true;
    off.*kRules[i] = false;
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
