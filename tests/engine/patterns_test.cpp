#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/patterns/matching.h"
#include "engine/patterns/pattern.h"
#include "engine/patterns/pattern_set.h"
#include "engine/patterns/regex.h"
#include "engine/patterns/required_literal.h"
#include "engine/text/unicode.h"

namespace korv {
namespace {

struct Case {
  const char* Pattern;
  const char* Text;
  bool CaseSignificant;
  bool Matches;
};

TEST(MatchPattern, FollowsWildcardsAndExpressions) {
  const Case cases[] = {
      {"~ing", "counting", false, true},
      {"~ing", "ingot", false, false},
      {"?at", "cat", false, true},
      {"?at", "at", false, false},
      {"?at", "éat", false, true},
      {"~", "anything", false, true},
      {"~", "", false, true},
      {"~~", "", false, true},
      {"?~", "", false, false},
      {"c~t", "cat", false, true},
      {"c~t", "ct", false, true},
      {"c~t", "cats", false, false},
      {"~a~b~", "xxaxxbxx", false, true},
      {"~a~b~", "xxbxxaxx", false, false},
      {"~aab", "aaaab", false, true},
      {"~ab?ab", "abcabxab", false, true},
      // Other signs go to the expression as they are.
      {"U.S.", "uxsx", false, true},
      {"a.b~", "axbcd", false, true},
      {"a.b~", "ab", false, false},
      {"colou*r", "color", false, true},
      {"a+", "aaa", false, true},
      {"a|b~", "ax", false, true},
      {"(a~", "(ab", false, false},
      {"~*", "a", false, false},
      {"[ab]?", "bx", false, true},
      {"\\w~", "word", false, true},
      // Case as asked for.
      {"CAT", "cat", false, true},
      {"CAT", "cat", true, false},
      {"caf?", "CAFÉ", false, true},
      {"CAFÉ~", "cafés", false, true},
      {"CAFÉ~", "cafés", true, false},
      {"<^c>", "Cat", false, true},
      {"<^c>", "Cat", true, false},
      {"<T$>", "CAT", true, true},
      // Angle brackets.
      {"<ing>", "ingot", false, true},
      {"<>", "", false, false},
      {"<>", "a", false, false},
      {"<", "<", false, true},
      {"<a", "<a", false, true},
      {"x<a>", "xa", false, false},
      {"<(>", "(", false, false},
      {"<[>", "x", false, false},
      {"<?~>", "x", false, false},
      {"", "", false, true},
      {"", "a", false, false},
      {"\xFF", "a", false, false},
      {"\xFE", "a", true, false},
      {"a\xFF", "ab", true, false},
  };
  for (const Case& c : cases)
    EXPECT_EQ(MatchPattern(c.Text, c.Pattern, '~', '?', c.CaseSignificant), c.Matches)
        << c.Pattern << " on " << c.Text << (c.CaseSignificant ? ", case significant" : "");
}

TEST(MatchPattern, TakesItsWildcardsFromTheCaller) {
  EXPECT_TRUE(MatchPattern("report.txt", "%.t_t", '%', '_', false));
  EXPECT_FALSE(MatchPattern("report.txt", "~.t?t", '%', '_', false));
}

TEST(MatchPattern, InvalidExpressionsMatchNothing) {
  for (const char* pattern : {"<(>", "<[a>", "<*>", "<a{2,1}>", "(~", "~[", "a)?"})
    EXPECT_FALSE(MatchPattern("a", pattern, '~', '?', false)) << pattern;
}

TEST(Wildcard, AgreesWithTheEngineOnAllSmallPatternsAndTexts) {
  const std::vector<std::string> signs = {".", ".*", "a", "B", "é", "ſ"};
  const std::vector<std::string> letters = {"a", "b", "É", "s", "\n"};
  std::vector<std::string> patterns = {""};
  std::vector<std::string> texts = {""};
  const auto extend = [](std::vector<std::string>& all, const std::vector<std::string>& by, int rounds) {
    size_t begin = 0;
    for (int round = 0; round < rounds; ++round) {
      const size_t end = all.size();
      for (size_t i = begin; i < end; ++i)
        for (const std::string& sign : by) all.push_back(all[i] + sign);
      begin = end;
    }
  };
  extend(patterns, signs, 3);
  extend(texts, letters, 3);
  for (const std::string& pattern : patterns) {
    for (const bool caseSignificant : {false, true}) {
      const auto wildcard = Wildcard::FromExpression(pattern, caseSignificant);
      ASSERT_TRUE(wildcard.has_value()) << pattern;
      const Regex engine("^" + pattern + "$", caseSignificant);
      for (const std::string& text : texts)
        ASSERT_EQ(wildcard->Matches(FoldForMatching(text, caseSignificant)), engine.Matches(text))
            << pattern << " on " << text << (caseSignificant ? ", case significant" : "");
    }
  }
}

TEST(Wildcard, TakesCharactersAsOneWithoutCaseExactlyWhereTheEngineDoes) {
  // Every character that a wildcard takes on without case, against every letter that might be one with it.
  std::vector<char32_t> texts;
  for (char32_t c = 1; c < 0x2C00; ++c)
    if (IsUnicodeLetter(c) || IsUnicodeMark(c)) texts.push_back(c);
  for (char32_t p = 'a'; p <= 0x180; ++p) {
    std::string pattern;
    AppendCharacter(p, pattern);
    const auto wildcard = Wildcard::FromExpression(pattern, false);
    if (!wildcard) continue;
    const Regex engine("^" + pattern + "$", false);
    ASSERT_TRUE(engine.Valid()) << pattern;
    for (const char32_t t : texts) {
      std::string text;
      AppendCharacter(t, text);
      ASSERT_EQ(wildcard->Matches(FoldForMatching(text, false)), engine.Matches(text))
          << pattern << " on " << text;
    }
  }
}

TEST(Wildcard, LeavesToTheLibraryWhatOnlyItCanMatch) {
  for (const char* inner : {"a+", "a*", "(a)", "[a]", "a|b", "\\w", "a{2}", "^a", "a$", "a?", "\n"})
    EXPECT_FALSE(Wildcard::FromExpression(inner, true)) << inner;
  // Greek and Cyrillic letters have variants that are one without case; so has the micro sign.
  for (const char* inner : {"σ", "в", "µ"}) {
    EXPECT_FALSE(Wildcard::FromExpression(inner, false)) << inner;
    EXPECT_TRUE(Wildcard::FromExpression(inner, true)) << inner;
  }
}

TEST(Wildcard, ManyRunsDoNotExplode) {
  std::string pattern;
  for (int i = 0; i < 40; ++i) pattern += "a~";
  EXPECT_FALSE(MatchPattern(std::string(5000, 'a') + "b", pattern + "c", '~', '?', false));
  EXPECT_TRUE(MatchPattern(std::string(5000, 'a') + "c", pattern + "c", '~', '?', false));
}

TEST(RequiredLiteral, IsWhatEveryMatchHolds) {
  using Position = RequiredLiteral::Position;
  struct LiteralCase {
    const char* Expression;
    bool CaseSignificant;
    const char* Text;
    Position Where;
  };
  const LiteralCase cases[] = {
      {"^abc", true, "abc", Position::Beginning},
      {"abc$", true, "abc", Position::End},
      {"^abc$", true, "abc", Position::Beginning},
      {"abc", true, "abc", Position::Anywhere},
      {"ABC", false, "abc", Position::Anywhere},
      {"ABC", true, "ABC", Position::Anywhere},
      {"^ab*cde", true, "cde", Position::Anywhere},
      {"^ab?", true, "a", Position::Beginning},
      {"ab+c", true, "ab", Position::Anywhere},
      {"ab{0,3}c$", true, "c", Position::End},
      {"a.bc.d", true, "bc", Position::Anywhere},
      {"[abc]de[^]x", true, "de", Position::Anywhere},
      {"(abc|d)ef", true, "ef", Position::Anywhere},
      {"(?:abc)?ef", true, "ef", Position::Anywhere},
      {"\\bcat\\b", true, "cat", Position::Anywhere},
      {"a\\.b", true, "a.b", Position::Anywhere},
      {"naïve", false, "na", Position::Anywhere},
      {"naïve", true, "naïve", Position::Anywhere},
      {"xé?yy", true, "yy", Position::Anywhere},
      {"big hat", false, "big hat", Position::Anywhere},
      // Out of the ordinary, or nothing needed.
      {"(?i)abc", true, "", Position::Anywhere},
      {"(*ACCEPT)abc", true, "", Position::Anywhere},
      {"\\Qa*b\\E", true, "", Position::Anywhere},
      {"\\u0041bc", true, "", Position::Anywhere},
      {"(a)\\1bc", true, "", Position::Anywhere},
      {"[[:alpha:]]bc", true, "", Position::Anywhere},
      {"a{2", true, "", Position::Anywhere},
      {"abc)", true, "", Position::Anywhere},
      {"abc^", true, "", Position::Anywhere},
      {"ab$c", true, "", Position::Anywhere},
      {"(?:abc", true, "", Position::Anywhere},
      {"[ab", true, "", Position::Anywhere},
      {"a*", true, "", Position::Anywhere},
      {".*", true, "", Position::Anywhere},
      {"", true, "", Position::Anywhere},
  };
  for (const LiteralCase& c : cases) {
    const std::vector<RequiredLiteral> literals =
        RequiredLiteralsOfExpression(c.Expression, c.CaseSignificant);
    if (*c.Text == '\0') {
      EXPECT_TRUE(literals.empty()) << c.Expression;
    } else {
      ASSERT_EQ(literals.size(), 1u) << c.Expression;
      EXPECT_EQ(literals[0].Text, c.Text) << c.Expression;
      EXPECT_EQ(literals[0].Where, c.Where) << c.Expression;
    }
  }
}

TEST(RequiredLiteral, EachAlternativeHasItsOwn) {
  const std::vector<RequiredLiteral> literals = RequiredLiteralsOfExpression("^un|re$|x.*yz", true);
  ASSERT_EQ(literals.size(), 3u);
  EXPECT_EQ(literals[0].Text, "un");
  EXPECT_EQ(literals[0].Where, RequiredLiteral::Position::Beginning);
  EXPECT_EQ(literals[1].Text, "re");
  EXPECT_EQ(literals[1].Where, RequiredLiteral::Position::End);
  EXPECT_EQ(literals[2].Text, "yz");
  EXPECT_EQ(literals[2].Where, RequiredLiteral::Position::Anywhere);
  // One alternative that needs nothing, and nothing is needed.
  for (const char* expression :
       {"abc|", "|abc", "abc|.", "abc|d*", "abc|(?i)d", "a$b|c", "abc{|}def", "abc{1|2}d", "abc{}d"})
    EXPECT_TRUE(RequiredLiteralsOfExpression(expression, true).empty()) << expression;
}

TEST(PatternSet, AgreesWithEachPatternAlone) {
  const std::vector<std::string> patterns = {
      "~ing",
      "c~",
      "?at",
      "a~b~c",
      "~middle~",
      "U.S.",
      "plain",
      "<^co>",
      "<ed$>",
      "<[aeiou]{3}>",
      "<^a.*z$>",
      "<É>",
      "<(ab|cd)ef?g>",
      "~é",
      "naïve",
      "<(>",
      "<>",
      "??????????????",
      "<sto+p>",
      "~veryverylongfragmentatend",
      "verylongbeginning~",
      "<S>",
      "<^un|re$|[xy]{2}q>",
      "a{|n|}b",
      "<q{z|n}>",
      "<^co|ee>",
      "s~ſ",
      "<abc(?=def)def>",
      "<\\.>",
      "~$",
  };
  const std::vector<std::string> words = {
      "",
      "a",
      "at",
      "cat",
      "counting",
      "ing",
      "ingot",
      "abc",
      "axxbxxc",
      "xmiddlex",
      "uxsx",
      "plain",
      "plains",
      "cooperate",
      "queue",
      "ended",
      "a to z",
      "az",
      "café",
      "CAFÉ",
      "abeg",
      "cdefg",
      "naïve",
      "fourteenletter",
      "stop",
      "stoooop",
      "stp",
      "averyverylongfragmentatend",
      "verylongfragmentatend",
      "verylongbeginnings",
      "ſ",
      "abcdef",
      "sſs",
      "ÉTÉ",
  };
  for (const bool caseSignificant : {false, true}) {
    for (const std::string& word : words) {
      bool any = false;
      for (const std::string& pattern : patterns) {
        PatternSet one(caseSignificant);
        one.AddPattern(pattern);
        const bool alone = MatchPattern(word, pattern, '~', '?', caseSignificant);
        EXPECT_EQ(one.Matches(word), alone) << pattern << " on " << word;
        any |= alone;
      }
      PatternSet all(caseSignificant);
      for (const std::string& pattern : patterns) all.AddPattern(pattern);
      EXPECT_EQ(all.Matches(word), any) << word;
      NoYielder yielder;
      all.Prepare(yielder);
      EXPECT_EQ(all.Matches(word), any) << word;
    }
  }
}

TEST(PatternSet, JoinsExpressionsWithoutChangingTheirAnswers) {
  // None of these needs a certain piece of text. More than one alternation holds.
  std::vector<std::string> patterns = {"<^[ab]|[xy]$>", "<^[^a-z]>",      "<(a)\\1>", "<(?i)Q>",
                                       "<[ab]{3}$>",    "<^(un|re)[dt]>", "<^(a+)+$>"};
  for (char c = 'a'; c <= 'z'; ++c)
    for (char d = 'a'; d <= 'e'; ++d) patterns.push_back(std::string("<^[") + c + "][" + d + "]{2}[kw]$>");
  PatternSet set(true);
  for (const std::string& pattern : patterns) set.AddPattern(pattern);
  NoYielder yielder;
  set.Prepare(yielder);
  for (const std::string& word :
       {std::string("apple"), std::string("proxy"), std::string("édit"), std::string("ooaa"),
        std::string("Quit"), std::string("sabb"), std::string("undo"), std::string("reed"),
        std::string("zeek"), std::string("zeej"), std::string("mddw"), std::string("mdew"),
        std::string(40, 'a') + "!", std::string("m"), std::string()}) {
    bool any = false;
    for (const std::string& pattern : patterns) any |= MatchPattern(word, pattern, '~', '?', true);
    EXPECT_EQ(set.Matches(word), any) << word;
  }
}

TEST(PatternSet, AnAlternationThatGivesUpAsksItsMembers) {
  PatternSet set(true);
  set.AddPattern("<^(a+)+$>");  // Explodes on what follows ...
  set.AddPattern("<[!?]$>");    // ... which this one matches.
  NoYielder yielder;
  set.Prepare(yielder);
  EXPECT_TRUE(set.Matches(std::string(60, 'a') + "!"));
  EXPECT_FALSE(set.Matches(std::string(60, 'a') + "."));
}

TEST(RequiredLiteral, OnlyExpressionsOfTheirOwnStandInAlternations) {
  for (const char* expression : {"a|b", "^a$", "(a|b)+c", "[a-z]{2,3}", "\\w+\\b", "(?:a)(?=b)", "x^y$z", ""})
    EXPECT_TRUE(CanStandInAlternation(expression)) << expression;
  for (const char* expression : {"(a)\\1", "(?i)a", "(?<n>a)", "(*ACCEPT)", "a(*COMMIT)b", "\\Qa", "(?R)",
                                 "(?|a)", "\\k<n>", "(?#c)a", "\\u0041"})
    EXPECT_FALSE(CanStandInAlternation(expression)) << expression;
}

TEST(PatternSet, PlainWordsMatchThemselvesAlone) {
  PatternSet set(false);
  set.AddWord("a.b");
  set.AddWord("s");
  EXPECT_TRUE(set.Matches("a.b"));
  EXPECT_FALSE(set.Matches("axb"));
  EXPECT_FALSE(set.Matches("ſ"));
  EXPECT_FALSE(PatternSet(false).Matches("a"));
}

}  // namespace
}  // namespace korv
