#include "sources/scan/line_scanner.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/sources/recorded_words.h"

namespace korv {
namespace {

struct Case {
  const char* Name;
  std::string Text;
  std::string Extra;  ///< What may stand in a word beside letters.
  std::string Extension;
  std::string Found;
};

void PrintTo(const Case& c, std::ostream* out) {
  *out << c.Name;
}

std::string NameOf(const testing::TestParamInfo<Case>& info) {
  return info.param.Name;
}

class Cutting : public testing::TestWithParam<Case> {};

TEST_P(Cutting, FindsTheWords) {
  const Case& c = GetParam();
  EXPECT_EQ(Scanned(c.Text, WithExtra(c.Extra), c.Extension), c.Found);
}

const std::vector<Case> kPlain = {
    {"LettersOfManyScripts", "naïve Žluťoučký кошка οδός tiếng", "", "txt",
     "naïve Žluťoučký кошка οδός tiếng"},
    {"TimesAndDivisionSignsEndAWord", "a×b c÷d éa", "", "txt", "a b c d éa"},
    {"DigitsSeparateUnlessAllowed", "x1y", "", "txt", "x y"},
    {"AllowedDigits", "x1y 42", "0123456789", "txt", "x1y 42"},
    {"ReplacementCharacterSeparates", "a\uFFFDb", "", "txt", "a b"},
    {"MarksFollowLetters", "x\u0323y \u0301a -\u0301b", "-", "txt", "x\u0323y a b"},
    {"VariationSelectorBehindASignIsNoWord", "a \u2764\uFE0F b", "", "txt", "a b"},
    {"MarkBehindADigitSeparates", "x7\u0301y", "0123456789", "txt", "x7 y"},
    {"JoinerBetweenLetters", "\u0645\u06CC\u200C\u062E\u0648 a\u200Db", "", "txt",
     "\u0645\u06CC\u200C\u062E\u0648 a\u200Db"},
    {"JoinerBehindAMark", "\u0915\u094D\u200D\u0937", "", "txt", "\u0915\u094D\u200D\u0937"},
    {"JoinersElsewhereSeparate", "a\u200C \u200Cb c\u200C\u200Dd e\u200C-f 1\u200Cg", "-", "txt",
     "a b c d e f g"},
    {"JoinerBehindAnAllowedSignSeparates", "a-\u200Cb", "-", "txt", "a b"},
    {"ApostropheSBeforeAMark", "Tom't\u0323 Tom's\u0323", "", "txt", "Tom t\u0323 Tom s\u0323"},
    {"ApostropheSBeforeAJoiner", "Tom's\u200Ca Tom's\u200C", "", "txt", "Tom s\u200Ca Tom's"},
    {"HyphenInsideAWord", "well-known -a- --", "-", "txt", "well-known a"},
    {"DoubleHyphensSeparate", "well--known", "-", "txt", "well known"},
    {"DoubleHyphensAtTheFirstTwoCharactersStay", "a--b", "-", "txt", "a--b"},
    {"TheFirstTwoCharactersAreNoBytes", "é--b", "-", "txt", "é--b"},
    {"ApostropheS", "Tom's hat TOM'S", "", "txt", "Tom's hat TOM'S"},
    {"ApostropheSBeforeALetterIsNone", "Tom'sa", "", "txt", "Tom sa"},
    {"ApostropheSBeforePunctuationOfWords", "Tom's. Tom's-hat", ".-", "txt", "Tom's Tom's hat"},
    {"ApostropheSBeforeAnAllowedSign", "Tom's_x", "_", "txt", "Tom s_x"},
    {"ApostropheTAfterAStem", "isn't WASN'T don't couldn't", "", "txt", "isn't WASN'T don t couldn't"},
    {"ApostropheTAfterTheTailOfAStem", "n't en't", "", "txt", "n't en't"},
    {"ApostropheTAfterPunctuationOnly", "-'t", "-", "txt", "'t"},
    {"ApostropheTAfterPunctuationAndAStem", "-isn't", "-", "txt", "isn't"},
    {"ApostropheAloneSeparates", "'s rock'n'roll", "", "txt", "s rock n roll"},
    {"AllowedApostrophesStayInside", "'quoted' rock'n'roll dogs'", "'", "txt", "quoted rock'n'roll dogs"},
    {"ApostropheSKeepsHyphensBeforeIt", "-dash-'s", "-", "txt", "dash-'s"},
    {"PunctuationIsCutOffBothEnds", ".a.b. ,c, ...", ".,", "txt", "a.b c"},
    {"UnderscoresAreNotCutOff", "_a_", "_", "txt", "_a_"},
    {"ParenthesisStaysWithItsPartner", "word(s) (word) (word words)", "()", "txt",
     "word(s) (word) word words"},
    {"ParenthesesPairByNesting", "((a) b)) (c))", "()", "txt", "(a) b (c)"},
    {"ParenthesisAfterPunctuation", "(a). .(b) (c.)", "().", "txt", "(a) (b) (c.)"},
    {"CrossedParenthesesAreLone", ")a( b)(c", "()", "txt", "a b)(c"},
    {"EmptyParenthesesAreAWord", "() a", "()", "txt", "() a"},
    {"AmpersandIsNoMarkerInPlainText", "a &amp; b", "&", "txt", "a &amp b"},
    {"WildcardsInWordLists", "th~ b?d", "~?", "txt", "th~ b?d"},
    {"NoMarkersInPlainText", "<b>a</b> /* c */ // d", "", "txt", "b a b c d"},
};
INSTANTIATE_TEST_SUITE_P(PlainText, Cutting, testing::ValuesIn(kPlain), NameOf);

const std::vector<Case> kProgram = {
    {"BlockComment", "a /* b */ c", "", "c", "a c"},
    {"BlockCommentOverLines", "a /* b\nc\nd */ e", "", "cpp", "a e"},
    {"LineComment", "a // b\nc", "", "c", "a c"},
    {"UnclosedComment", "a /* b\nc", "", "c", "a"},
    {"MarkerEndsARun", "a/*b*/c//d\ne", "/", "c", "a c e"},
    {"OverlappingMarkers", "a /*/ b */ c", "", "c", "a c"},
    {"NoTags", "<a> b", "", "c", "a b"},
    {"ApostropheSBeforeAMarker", "Tom's/*x*/ y", "/", "c", "Tom's y"},
    {"HeaderFilesAreText", "a // b", "", "h", "a b"},
};
INSTANTIATE_TEST_SUITE_P(Programs, Cutting, testing::ValuesIn(kProgram), NameOf);

const std::vector<Case> kMarkup = {
    {"TagsSeparate", "a<b>c</b>d", "", "html", "a c d"},
    {"TagOverLines", "a <b\nhref=x>c", "", "html", "a c"},
    {"ScriptAndStyle", "a <script>b < c</script> d <style x>e</style> f", "", "htm", "a d f"},
    {"NoScript", "a <noscript>b</noscript> c", "", "htm", "a c"},
    {"MarkersIgnoreCase", "a <SCRIPT>b</Script> c", "", "html", "a c"},
    {"Comment", "a <!-- b > c --> d", "", "html", "a d"},
    {"CommentOfNothing", "aa<!---->b", "", "html", "aa b"},
    {"ShortCommentGoesOn", "a <!--> b --> c", "", "html", "a c"},
    {"UnclosedRegionHidesTheRest", "a <b\nc", "", "html", "a"},
    {"NamedEntitiesBecomeLetters", "caf&eacute; &amp; bar", "", "html", "café bar"},
    {"EntityApostrophe", "Tom&rsquo;s", "", "html", "Tom's"},
    {"UnknownEntityIsARegion", "a&unknown;b &#233; c", "", "html", "a b c"},
    {"NumericEntityReachesToTheNextSemicolon", "a &#x b c; d", "", "html", "a d"},
    {"EntityWithABlankIsNone", "a &x y; b", "", "html", "a x y b"},
    {"EntityAtTheVeryEndNeedsFourCharacters", "b &a;", "", "html", "b a"},
    {"AmpersandWithoutSemicolonIsOrdinary", "a &b c", "", "html", "a b c"},
    {"AllowedAmpersandOutsideEntities", "R&D a&b;c", "&", "html", "R&D a c"},
    {"EntitiesAreNotReplacedTwice", "a &amp;lt;b", "", "html", "a b"},
    {"CdataIsText", "<![CDATA[a < b > c]]> d", "", "xml", "a c d"},
    {"CdataIgnoresCase", "a<![cdata[b]]>c", "", "html", "a b c"},
    {"XmlDeclaration", "<?xml version='1.0' x>y?> a <b> c", "", "xml", "a c"},
    {"XmlHasNoEntityRegions", "a &lt; b", "", "xml", "a lt b"},
    {"XmlKnowsNoScript", "<script>a</script>", "", "xml", "a"},
    {"PhpEndsWithItsLetters", "<?php echo 1; ?> Hello php world", "", "php", "world"},
    {"PhpEndIgnoresCase", "<?PHP a PHP b", "", "php", "b"},
    {"PhpComments", "a /* b */ c // d\ne", "", "php", "a c e"},
    {"PhpScriptBeforePhp", "<script><?php</script> a", "", "php", "a"},
    {"NoPhpInHtml", "<?php echo 1; ?> a", "", "html", "a"},
    {"DoubleHyphensBesideComments", "ab <!-- x --> c--d", "-", "html", "ab c d"},
};
INSTANTIATE_TEST_SUITE_P(Markup, Cutting, testing::ValuesIn(kMarkup), NameOf);

struct TerminatorCase {
  const char* Name;
  std::string Text;
  std::string Extra;
  std::string Extension;
  std::string Found;
};

void PrintTo(const TerminatorCase& c, std::ostream* out) {
  *out << c.Name;
}

class Terminators : public testing::TestWithParam<TerminatorCase> {};

TEST_P(Terminators, EndPhrases) {
  const TerminatorCase& c = GetParam();
  WordRules rules = WithExtra(c.Extra);
  rules.TerminateAtPeriod = true;
  rules.TerminateAtComma = true;
  rules.TerminateAtDoubleQuote = true;
  rules.TerminateAtTab = true;
  EXPECT_EQ(Scanned(c.Text, rules, c.Extension), c.Found);
}

const std::vector<TerminatorCase> kTerminators = {
    {"PeriodRightAfterAWord", "a. b", "", "txt", "a | b"},
    {"PeriodAfterABlankIsNone", "a . b", "", "txt", "a b"},
    {"PeriodInsideAnAllowedWord", "a.b c", ".", "txt", "a.b c"},
    {"PeriodCutOffAWord", "a. b .c", ".", "txt", "a | b c"},
    {"PeriodAfterOtherPunctuationCutOff", "a-. b", ".-", "txt", "a b"},
    {"PeriodBeforeOtherPunctuationCutOff", "a.- b", ".-", "txt", "a | b"},
    {"PeriodAfterApostropheS", "Tom's. b", ".", "txt", "Tom's | b"},
    {"PeriodAfterARegion", "a<b>. c", "", "html", "a c"},
    {"Comma", "a, b ,c", "", "txt", "a | b c"},
    {"SemicolonIsNone", "a; b", "", "txt", "a b"},
    {"QuoteAnywhere", "a \" b \"c\"", "", "txt", "a | b | c |"},
    {"QuoteInsideATagIsNone", "a <b c=\"d\"> e", "", "html", "a e"},
    {"QuoteEntity", "a &quot;b", "", "html", "a | b"},
    {"TabAnywhere", "a\tb \t c", "", "txt", "a | b | c"},
    {"LineEndIsNone", "a\nb", "", "txt", "a b"},
    {"BeforeTheFirstWord", "\"a b", "", "txt", "| a b"},
};
INSTANTIATE_TEST_SUITE_P(Table, Terminators, testing::ValuesIn(kTerminators),
                         [](const auto& row) { return std::string(row.param.Name); });

TEST(LineScanner, EndsNoPhraseWhereTheRulesAreOff) {
  EXPECT_EQ(Scanned("a. b, c\" d\te\nf", LettersOnly(), "txt"), "a b c d e f");
}

TEST(LineScanner, EndsPhrasesBeforeEveryLineWhenAsked) {
  WordRules rules = LettersOnly();
  rules.TerminateAtEndOfLine = true;
  EXPECT_EQ(Scanned("a b\nc\n\nd", rules, "txt"), "| a b | c | d");
}

TEST(LineScanner, TakesPiecesOfALineAsOneLine) {
  WordRules rules = WithExtra("-");
  rules.TerminateAtEndOfLine = true;
  RecordedWords words;
  LineScanner<WordSink> scanner(rules, MarkersOf("txt"), words);
  scanner.BeginSource();
  scanner.ScanLine("a b ");
  scanner.ScanLine("c--d ", false);
  scanner.ScanLine("--e", false);
  EXPECT_EQ(words.Line(), "| a b c d e");
}

TEST(LineScanner, LeavesAnOpenRegionAtTheNextSource) {
  RecordedWords words;
  LineScanner<WordSink> scanner(LettersOnly(), MarkersOf("html"), words);
  scanner.BeginSource();
  scanner.ScanLine("a <!-- b");
  scanner.BeginSource();
  scanner.ScanLine("c");
  EXPECT_EQ(words.Line(), "a c");
}

TEST(LineScanner, CountsTheBytesThatAreNoMarkUp) {
  struct Row {
    std::string_view Lines;
    std::string_view Extension;
    uint64_t Bytes;
  };
  for (const Row& row : std::vector<Row>{{"one two", "txt", 7},
                                         {"<b>one</b> two", "html", 7},
                                         {"one <!-- gone\ngone --> two", "html", 8},
                                         {"one <![CDATA[two]]>", "xml", 7},
                                         {"caf&eacute;&#233;", "html", 5},
                                         {"one // gone", "c", 4}}) {
    RecordedWords words;
    LineScanner<WordSink> scanner(LettersOnly(), MarkersOf(row.Extension), words);
    scanner.BeginSource();
    for (size_t begin = 0; begin <= row.Lines.size();) {
      const size_t end = std::min(row.Lines.find('\n', begin), row.Lines.size());
      scanner.ScanLine(row.Lines.substr(begin, end - begin));
      begin = end + 1;
    }
    EXPECT_EQ(scanner.TextBytes(), row.Bytes) << row.Lines;
  }
}

TEST(LineScanner, CutsAWordAfter65000Characters) {
  for (const std::string letter : {"a", "é", "я", "漢"}) {
    std::string text;
    for (int k = 0; k < 65001; ++k) text += letter;
    RecordedWords words;
    LineScanner<WordSink> scanner(LettersOnly(), MarkersOf("txt"), words);
    scanner.ScanLine(text + " b");
    ASSERT_EQ(words.Found().size(), 3U);
    EXPECT_EQ(words.Found()[0].size(), 65000 * letter.size());
    EXPECT_EQ(words.Found()[1], letter);
    EXPECT_EQ(words.Found()[2], "b");
  }
}

TEST(LineScanner, CutsALongRunIntoPartsWhereverItBegins) {
  for (const size_t blanks : {0u, 1u, 23u, 24u, 25u, 63u, 64u}) {
    RecordedWords words;
    LineScanner<WordSink> scanner(LettersOnly(), MarkersOf("txt"), words);
    scanner.ScanLine(std::string(blanks, ' ') + std::string(3 * 65000 + 7, 'a') + ". b");
    std::vector<size_t> sizes;
    for (const std::string& found : words.Found()) sizes.push_back(found.size());
    EXPECT_EQ(sizes, (std::vector<size_t>{65000, 65000, 65000, 7, 1})) << blanks;
  }
}

TEST(LineScanner, LeavesAWordOf65000CharactersWhole) {
  RecordedWords words;
  LineScanner<WordSink> scanner(LettersOnly(), MarkersOf("txt"), words);
  scanner.ScanLine(std::string(65000, 'a') + "'s b");
  ASSERT_EQ(words.Found().size(), 2U);
  EXPECT_EQ(words.Found()[0].size(), 65002U);
}

/// The scanner looks at 64 bytes at a time; nothing may depend on where they begin.
TEST(LineScanner, FindsTheSameWhereverALineIsDivided) {
  WordRules rules = WithExtra("-");
  rules.TerminateAtPeriod = true;
  for (size_t blanks = 0; blanks < 130; ++blanks) {
    for (const size_t letters : {1, 3, 62, 63, 64, 65, 127, 128, 129}) {
      const std::string word(letters, 'x');
      const std::string text = std::string(blanks, ' ') + word + ". " + word + "é " + word + "-b Tom's";
      const std::string found = word + " | " + word + "é " + word + "-b Tom's";
      ASSERT_EQ(Scanned(text, rules, "txt"), found) << blanks << " " << letters;
    }
  }
}

/// Takes minutes when any step looks at the rest of the line again.
TEST(LineScanner, StaysLinearOnHostileLines) {
  constexpr size_t kLength = 1 << 16;
  for (const std::string unit :
       {"&", "&a", "&#", "<", "-", "(", ")", "()", "'t", "]]", "<!", "a/", "\xCC\x81"}) {
    std::string line;
    while (line.size() < kLength) line += unit;
    for (const char* extension : {"php", "xml", "html", "c", "txt"}) {
      RecordedWords words;
      LineScanner<WordSink> scanner(WithExtra("&/()-'."), MarkersOf(extension), words);
      scanner.ScanLine(line);
      scanner.ScanLine(line + ";");
    }
  }
}

/// The words of one HTML line handed over in one piece, and in two parted behind `parted` bytes.
std::vector<std::string> InOneAndInTwo(const std::string& line, size_t parted, std::string_view extra) {
  std::vector<std::string> found;
  for (const size_t cut : {line.size(), parted}) {
    RecordedWords words;
    LineScanner<WordSink> scanner(WithExtra(std::string(extra)), MarkersOf("html"), words);
    scanner.ScanLine(std::string_view(line).substr(0, cut), true, cut == line.size());
    if (cut < line.size()) scanner.ScanLine(std::string_view(line).substr(cut), false, true);
    std::string joined;
    for (const std::string& word : words.Found()) joined += word.size() > 20 ? "... " : word + " ";
    found.push_back(joined);
  }
  return found;
}

TEST(Entities, EndAtMost65000CharactersAway) {
  // Behind "&#" stand words, which are only found where it begins no region. Either is two characters.
  for (const std::string word : {"x ", "\u00E9 "}) {
    for (const int distance : {64999, 65000, 65001, 65002, 130000}) {
      std::string words;
      for (int k = 3; k < distance; k += 2) words += word;
      const std::string inside = distance % 2 == 0 ? words : " " + words;
      const std::string line = "one &#" + inside + ";two three";
      std::string expected = "one ";
      if (distance > 65000) expected += words;
      expected += "two three ";
      for (const size_t parted : {size_t{4}, 6 + 100 * word.size(), inside.size()})
        for (const std::string& found : InOneAndInTwo(line, parted, ""))
          EXPECT_TRUE(found == expected) << distance << ' ' << parted << ' ' << found.size();
    }
  }
}

TEST(Entities, OfManyPiecesAreKeptNoLongerThanTheyMayBe) {
  RecordedWords words;
  LineScanner<WordSink> scanner(WithExtra(""), MarkersOf("html"), words);
  for (int k = 0; k < 100; ++k)
    scanner.ScanLine(k == 0 ? "&# " + std::string(2000, 'x') + " " : "y &# ", k == 0, false);
  EXPECT_TRUE(words.Found().empty()) << "its end may yet come";
  scanner.ScanLine(std::string(65000, ' '), false, false);
  EXPECT_EQ(words.Found().size(), 100U) << "it is too far away now";
  scanner.ScanLine("; z", false, true);
  EXPECT_EQ(words.Found().back(), "z");
}

TEST(Entities, WaitForTheRestOfTheirLine) {
  struct Row {
    const char* First;
    const char* Second;
    const char* Extra;
    const char* Found;
  };
  for (const Row& row :
       {Row{"a &# ", "b; c", "", "a c "}, Row{"a &# ", "b c", "", "a b c "},
        Row{"a x&# ", "b; c", "&", "a x c "}, Row{"a x&# ", "b c", "&#", "a x&# b c "},
        Row{"a &b\t", "c; d", "", "a d "}, Row{"a &b\t", "c d", "", "a b c d "},
        Row{"a &lt ", "b; &amp;lt; c", "", "a lt b c "}, Row{"a &x ", "&eacute;t", "", "a x t "}}) {
    const std::string line = std::string(row.First) + row.Second;
    for (const std::string& found : InOneAndInTwo(line, std::string_view(row.First).size(), row.Extra))
      EXPECT_EQ(found, row.Found) << line;
  }
}

}  // namespace
}  // namespace korv
