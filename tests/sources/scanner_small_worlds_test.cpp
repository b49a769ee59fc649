#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/reference/naive_scanner.h"
#include "tests/sources/recorded_words.h"

// Every text of a few signs, cut by the scanner and by the naive model.

namespace korv {
namespace {

#ifdef NDEBUG
constexpr size_t kLongest = 7;
#else
constexpr size_t kLongest = 5;
#endif

using Signs = std::vector<std::string_view>;
const Signs kOfText = {"a", "b", " ", "-", "'", ".", "\n"};
/// A letter, one with a composed form, marks of which one composes, a joiner, and what can stand around them.
const Signs kOfScripts = {"\u0645", "s", "\u0323", "\uFE0F", "\u200C", "'", "-"};

struct RuleSet {
  const char* Name;
  std::string_view Extra;
  bool EndsPhrases;
  const Signs& Alphabet = kOfText;
};

class SmallWorlds : public testing::TestWithParam<RuleSet> {
 protected:
  SmallWorlds() : rules_(WithExtra(GetParam().Extra)) {
    rules_.TerminateAtPeriod = GetParam().EndsPhrases;
    rules_.TerminateAtEndOfLine = GetParam().EndsPhrases;
  }

  void Compare(std::string_view text) {
    RecordedWords words;
    LineScanner<WordSink> scanner(rules_, CommentMarkers{}, words);
    reference::Scanner model(rules_, "None");
    for (size_t begin = 0; begin <= text.size();) {
      const size_t end = std::min(text.find('\n', begin), text.size());
      scanner.ScanLine(text.substr(begin, end - begin));
      model.ScanLine(text.substr(begin, end - begin));
      begin = end + 1;
    }
    ASSERT_EQ(words.Found(), model.Found()) << testing::PrintToString(text);
  }

  WordRules rules_;
};

TEST_P(SmallWorlds, AreCutLikeTheModel) {
  // Counts up in base signs.size(), one text per number.
  const Signs& signs = GetParam().Alphabet;
  for (size_t length = 0; length <= kLongest; ++length) {
    std::vector<size_t> digits(length, 0);
    for (;;) {
      std::string text;
      for (const size_t digit : digits) text += signs[digit];
      ASSERT_NO_FATAL_FAILURE(Compare(text));
      size_t at = 0;
      while (at < length && ++digits[at] == signs.size()) digits[at++] = 0;
      if (at == length) break;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Rules, SmallWorlds,
                         testing::Values(RuleSet{"LettersOnly", "", true}, RuleSet{"Hyphens", "-", true},
                                         RuleSet{"HyphensAndPeriods", "-.", true},
                                         RuleSet{"ApostrophesAndPeriods", "'.", false},
                                         RuleSet{"MarksAndJoiners", "", false, kOfScripts},
                                         RuleSet{"MarksAndJoinersWithHyphens", "-", false, kOfScripts}),
                         [](const auto& row) { return std::string(row.param.Name); });

}  // namespace
}  // namespace korv
