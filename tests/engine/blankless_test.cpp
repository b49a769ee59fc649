#include "engine/text/blankless.h"

#include <gtest/gtest.h>

#include "engine/text/word_form.h"

namespace korv {
namespace {

TEST(JoinBlankless, TakesOutBlanksBetweenWordsOfSuchScriptsAlone) {
  struct Case {
    const char* Phrase;
    const char* Shown;
  };
  const Case cases[] = {
      {"one two", "one two"},
      {"\u6211\u4EEC \u5728 \u5317\u4EAC", "\u6211\u4EEC\u5728\u5317\u4EAC"},
      {"in \u5317\u4EAC \u5728 one", "in \u5317\u4EAC\u5728 one"},
      {"\u0E20\u0E32\u0E29\u0E32 \u0E44\u0E17\u0E22", "\u0E20\u0E32\u0E29\u0E32\u0E44\u0E17\u0E22"},
      {"\u30AB\u30FC \u306E", "\u30AB\u30FC\u306E"},
      {"\u00E9t\u00E9 \u00E9t\u00E9", "\u00E9t\u00E9 \u00E9t\u00E9"},
      {"", ""},
  };
  for (const Case& c : cases) {
    std::string phrase = c.Phrase;
    JoinBlankless(phrase);
    EXPECT_EQ(phrase, c.Shown);
  }
}

TEST(DroppedByForm, KeepsShortWordsThatWereFoundInScriptsWithoutBlanks) {
  WordRules rules;
  EXPECT_EQ(DroppedByForm("\u5728", rules), DropReason::Short);
  rules.Segment = Segmentation::Auto;
  EXPECT_EQ(DroppedByForm("\u5728", rules), std::nullopt);
  EXPECT_EQ(DroppedByForm("in", rules), DropReason::Short);
}

TEST(FoldedWord, GoesByTheRules) {
  WordRules rules;
  EXPECT_EQ(FoldedWord("Stra\u00DFE", rules), "stra\u00DFe");
  rules.FoldCaseFully = true;
  EXPECT_EQ(FoldedWord("Stra\u00DFE", rules), "strasse");
  EXPECT_EQ(FoldedWord("\u039F\u0394\u039F\u03A3", rules), FoldedWord("\u03BF\u03B4\u03BF\u03C2", rules));
  EXPECT_EQ(FoldedWord("ABC", rules), "abc");
  rules.CaseSignificant = true;
  EXPECT_EQ(FoldedWord("Stra\u00DFE", rules), "Stra\u00DFE");
}

}  // namespace
}  // namespace korv
