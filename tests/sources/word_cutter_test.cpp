#include "sources/scan/word_cutter.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/sources/recorded_words.h"

namespace korv {
namespace {

std::string Cut(std::string_view text, WordRules rules, std::string_view extension = "txt",
                bool linesAreBlocks = false) {
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  RecordedWords words;
  WordCutter cutter(rules, words);
  LineScanner<WordCutter> scanner(rules, MarkersOf(extension), cutter);
  cutter.BeginSource(linesAreBlocks);
  scanner.BeginSource();
  for (size_t begin = 0; begin <= text.size();) {
    const size_t end = std::min(text.find('\n', begin), text.size());
    scanner.ScanLine(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return words.Line();
}

WordRules Sentences() {
  WordRules rules = LettersOnly();
  rules.TerminateAtSentence = true;
  rules.AllowApostrophes = rules.AllowHyphens = rules.AllowNumerals = true;
  return rules;
}

WordRules Segmented(Segmentation segment) {
  WordRules rules = LettersOnly();
  rules.Segment = segment;
  return rules;
}

struct Case {
  const char* Text;
  const char* Words;
};

TEST(WordCutter, IsNeededForWhatNoScannerDoes) {
  EXPECT_FALSE(WordCutter::IsNeeded(WordRules{}));
  EXPECT_TRUE(WordCutter::IsNeeded(Sentences()));
  EXPECT_TRUE(WordCutter::IsNeeded(Segmented(Segmentation::Auto)));
  WordRules rules;
  rules.TerminateAtBlock = true;
  EXPECT_TRUE(WordCutter::IsNeeded(rules));
  rules = {};
  rules.UnicodeWords = true;
  EXPECT_TRUE(WordCutter::IsNeeded(rules));
}

TEST(WordCutter, HandsOnWhatTheScannerFindsUnderOtherRules) {
  WordRules rules;
  EXPECT_EQ(Cut("One two. Three\tfour", rules), "One two | Three | four");
}

TEST(WordCutter, EndsPhrasesAtSentencesBracketsAndQuotes) {
  const Case cases[] = {
      {"One two. Three", "One two | Three"},
      {"one 3.14 two", "one 3 14 two"},
      {"one e.g. two", "one e g two"},
      {"one two? three", "one two | three"},
      {"one two\n. Three", "one two | Three"},
      {"one two.\nThree", "one two | Three"},
      {"one two.\nthree", "one two three"},
      {"one two\nthree", "one two three"},
      {"one (two three) four", "one | two three | four"},
      {"one \u201Ctwo\" three", "one | two | three"},
      {"one \u00ABtwo\u00BB three", "one | two | three"},
      {"one \u300Ctwo\u300D three", "one | two | three"},
      {"don't o'clock 'quoted' words", "don't o'clock quoted words"},
      {"one\n\ntwo", "one | two"},
      {"in 1990. 12 of", "in 1990 12 of"},
      {"in 1990. 12 Of", "in 1990 | 12 Of"},
      {"in 1990. 12\nof", "in 1990 | 12 of"},
      {"one\u3002two \u0964 three", "one | two | three"},
  };
  for (const Case& c : cases) EXPECT_EQ(Cut(c.Text, Sentences()), c.Words) << c.Text;
}

TEST(WordCutter, RegionsAreNoTextOfSentences) {
  EXPECT_EQ(Cut("One two.</b> Three", Sentences(), "html"), "One two | Three");
  EXPECT_EQ(Cut("One<a title=\"Is. It (so)?\">two</a> three", Sentences(), "html"), "One two three");
}

TEST(WordCutter, EndsPhrasesAtBlocks) {
  WordRules rules = LettersOnly();
  rules.TerminateAtBlock = true;
  const Case cases[] = {
      {"one\ntwo", "one two"},
      {"one\n\ntwo", "one | two"},
      {"one\n \t\ntwo", "one | two"},
      {"One. Two (three)", "One Two three"},
  };
  for (const Case& c : cases) EXPECT_EQ(Cut(c.Text, rules), c.Words) << c.Text;
  EXPECT_EQ(Cut("one\ntwo", rules, "txt", true), "one | two |");
}

TEST(WordCutter, CutsIdeographsAndKanaOneByOne) {
  const Case cases[] = {
      {"\u5317\u4EAC abc", "\u5317 \u4EAC abc"},
      {"abc\u5317\u4EACdef", "abc \u5317 \u4EAC def"},
      {"\u304B\u3099\u304D", "\u304B\u3099 \u304D"},
      {"\u0E44\u0E17\u0E22", "\u0E44\u0E17\u0E22"},
  };
  for (const Case& c : cases) EXPECT_EQ(Cut(c.Text, Segmented(Segmentation::Characters)), c.Words) << c.Text;
}

TEST(WordCutter, SignsOfThoseScriptsEndPhrasesWherePeriodsAndCommasDo) {
  WordRules rules = Segmented(Segmentation::Characters);
  EXPECT_EQ(Cut("\u5317\u3002\u4EAC\uFF0C\u5317", rules), "\u5317 \u4EAC \u5317");
  rules.TerminateAtPeriod = true;
  EXPECT_EQ(Cut("\u5317\u3002\u4EAC\uFF0C\u5317", rules), "\u5317 | \u4EAC \u5317");
  rules.TerminateAtComma = true;
  EXPECT_EQ(Cut("\u5317\u3002\u4EAC\uFF0C\u5317", rules), "\u5317 | \u4EAC | \u5317");
  rules.Segment = Segmentation::Off;
  EXPECT_EQ(Cut("\u5317\u3002\u4EAC\uFF0C\u5317", rules), "\u5317 \u4EAC \u5317");
}

TEST(WordCutter, CutsByDictionaryWhereThereIsOne) {
  if (!Segmenter::IsThere()) GTEST_SKIP() << "built without the library";
  const Case cases[] = {
      {"\u6211\u4EEC\u5728\u5317\u4EAC", "\u6211\u4EEC \u5728 \u5317\u4EAC"},
      {"in\u5317\u4EAC", "in \u5317\u4EAC"},
      {"\u0E20\u0E32\u0E29\u0E32\u0E44\u0E17\u0E22", "\u0E20\u0E32\u0E29\u0E32 \u0E44\u0E17\u0E22"},
      {"other words stay", "other words stay"},
      {"\u00C9t\u00E9 \u039B\u03CC\u03B3\u03BF\u03C2", "\u00C9t\u00E9 \u039B\u03CC\u03B3\u03BF\u03C2"},
  };
  for (const Segmentation segment : {Segmentation::Auto, Segmentation::Words})
    for (const Case& c : cases) EXPECT_EQ(Cut(c.Text, Segmented(segment)), c.Words) << c.Text;
}

TEST(WordCutter, LeavesLinesThatAreCutAlready) {
  if (!Segmenter::IsThere()) GTEST_SKIP() << "built without the library";
  // Six words, the first of which the dictionary would cut in two.
  const std::string line = "\u56FE\u4E66\u9986 \u6211\u4EEC \u5728 \u5317\u4EAC \u5B66\u4E60 \u4F60\u597D";
  EXPECT_EQ(Cut(line, Segmented(Segmentation::Auto)), line);
  EXPECT_NE(Cut(line, Segmented(Segmentation::Words)), line);
  EXPECT_NE(Cut("\u56FE\u4E66\u9986", Segmented(Segmentation::Auto)), "\u56FE\u4E66\u9986");
}

TEST(WordCutter, CutsByUnicodesRules) {
  if (!Segmenter::IsThere()) GTEST_SKIP() << "built without the library";
  WordRules rules = LettersOnly();
  rules.UnicodeWords = true;
  const Case cases[] = {
      {"don't l'eau", "don't l'eau"},    {"3.14 1,000", "3.14 1,000"},   {"foo_bar can:t", "foo_bar can t"},
      {"co-operate", "co operate"},      {"a;b a:b:", "a b a b"},        {"'quoted' end.", "quoted end"},
      {"U.S.A. 3.Next", "U.S.A 3 Next"}, {"B2B covid19", "B2B covid19"},
  };
  for (const Case& c : cases) EXPECT_EQ(Cut(c.Text, rules), c.Words) << c.Text;
}

TEST(WordCutter, ALineInPiecesIsCutAsAWhole) {
  const std::string text = "One two. (Three) \u5317\u4EAC\u3002four 5.6 \"seven\"? Eight";
  WordRules rules = Sentences();
  rules.Segment = Segmentation::Characters;
  const std::string whole = Cut(text, rules);
  SetAllowedExtraChars(rules);
  for (size_t parted = 1; parted < text.size(); ++parted) {
    if ((static_cast<unsigned char>(text[parted]) & 0xC0) == 0x80) continue;
    RecordedWords words;
    WordCutter cutter(rules, words);
    LineScanner<WordCutter> scanner(rules, {}, cutter);
    cutter.BeginSource(false);
    scanner.BeginSource();
    scanner.ScanLine(std::string_view(text).substr(0, parted), true, false);
    scanner.ScanLine(std::string_view(text).substr(parted), false, true);
    EXPECT_EQ(words.Line(), whole) << "parted at " << parted;
  }
}

TEST(WordCutter, HoldsBackWhereASentenceMayEnd) {
  WordRules rules = Sentences();
  SetAllowedExtraChars(rules);
  struct Held {
    const char* Line;
    bool HoldsBack;
  };
  for (const Held& held : {Held{"One two", false}, Held{"One two.", true}, Held{"One two. 5", false},
                           Held{"One (two)", false}, Held{"", false}}) {
    RecordedWords words;
    WordCutter cutter(rules, words);
    LineScanner<WordCutter> scanner(rules, {}, cutter);
    cutter.BeginSource(false);
    scanner.BeginSource();
    scanner.ScanLine(held.Line);
    EXPECT_EQ(cutter.HoldsBack(), held.HoldsBack) << held.Line;
  }
}

}  // namespace
}  // namespace korv
