#include "engine/patterns/regex.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace korv {
namespace {

struct Case {
  const char* Expression;
  const char* Text;
  bool CaseSignificant;
  bool Matches;
};

TEST(Regex, FollowsTheRulesOfEcmaScript) {
  const Case cases[] = {
      {"ing$", "counting", true, true},
      {"ing", "ingot", true, true},
      {"^ing$", "counting", true, false},
      {"T$", "CAT", true, true},
      {"T$", "cat", true, false},
      {"T$", "cat", false, true},
      {"É", "café", false, true},
      {"É", "café", true, false},
      // The end of the text alone, not a place before a line end.
      {"a$", "a\n", true, false},
      {"^.$", "é", true, true},
      {"^..$", "é", true, false},
      {"^a.b$", "a\nb", true, false},
      {"\\u00e9$", "café", true, true},
      {"\\x65", "e", true, true},
      // \u without four digits is a plain u.
      {"^\\uw$", "uw", true, true},
      {"^(a)?\\1b$", "b", true, true},
      {"^[]$", "a", true, false},
      {"^[^]$", "a", true, true},
      {"\\bcat\\b", "cat", true, true},
      {"^\\w+$", "café", true, false},
      {"^\\d$", "٣", true, false},
      {"colou?r", "color", true, true},
      {"^(?=.*a)(?=.*b)", "xbya", true, true},
      {"", "", true, true},
      {"^$", "", true, true},
  };
  for (const Case& c : cases)
    EXPECT_EQ(Regex(c.Expression, c.CaseSignificant).Matches(c.Text), c.Matches)
        << c.Expression << " on " << c.Text;
}

TEST(Regex, InvalidExpressionsMatchNothing) {
  for (const char* expression :
       {"(", "[a", "*", "a{2,1}", "(?<n", "\\", "\\C", "(?P<", "a**", "\xFF", "(*"}) {
    const Regex regex(expression, true);
    EXPECT_FALSE(regex.Valid()) << expression;
    EXPECT_FALSE(regex.Matches("a")) << expression;
    EXPECT_FALSE(regex.Matches("")) << expression;
  }
  EXPECT_FALSE(Regex(std::string(Regex::kMostExpressionBytes + 1, 'a'), true).Valid());
}

TEST(Regex, IllFormedTextIsNoMatch) {
  EXPECT_FALSE(Regex(".", true).Matches("\xC3"));
}

TEST(Regex, ExplodingExpressionsMatchNothingAndEnd) {
  const std::string word(60, 'a');
  for (const char* expression : {"^(a+)+$", "^(a|aa)+$", "^(a*)*b", "^(?:(?:a+)+)+b"})
    EXPECT_FALSE(Regex(expression, true).Matches(word + "!")) << expression;
  // Endless recursion, and recursion deeper than the small stack of compiled matching.
  EXPECT_FALSE(Regex("(?R)a", true).Matches(word));
  EXPECT_FALSE(Regex("^(a(?1)?b)$", true).Matches(std::string(60'000, 'a') + std::string(60'000, 'b')));
}

TEST(Regex, IsMatchedFromSeveralThreadsAtOnce) {
  const Regex regex("^(c|d)o[nu]+.*ing$", false);
  std::vector<std::thread> threads;
  std::vector<int> wrong(4, 0);
  for (size_t t = 0; t < wrong.size(); ++t) {
    threads.emplace_back([&regex, &wrong, t] {
      for (int i = 0; i < 2000; ++i) {
        if (!regex.Matches("Counting")) ++wrong[t];
        if (regex.Matches("ingot")) ++wrong[t];
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

TEST(Regex, CanBeMoved) {
  Regex a("a", true);
  Regex b(std::move(a));
  a = Regex("b", true);
  EXPECT_TRUE(b.Matches("a"));
  EXPECT_TRUE(a.Matches("b"));
}

}  // namespace
}  // namespace korv
