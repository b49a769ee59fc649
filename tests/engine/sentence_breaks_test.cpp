#include "engine/text/sentence_breaks.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/utf8.h"
#include "engine/text/unicode.h"

#ifdef KORV_ICU
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <random>
#endif

namespace korv {
namespace {

/// The text with "|" where a sentence is told to have ended, at the character that tells.
std::string Marked(std::string_view text) {
  SentenceBreaks sentences;
  std::string marked;
  for (size_t at = 0; at < text.size();) {
    const size_t begin = at;
    if (sentences.Feed(NextCharacter(text, at))) marked += '|';
    marked += text.substr(begin, at - begin);
  }
  return marked;
}

TEST(SentenceBreaks, EndWhereUnicodeHasThem) {
  struct Case {
    const char* Text;
    const char* Marked;
  };
  const Case cases[] = {
      {"One. Two", "One. |Two"},
      {"Pi is 3.14 here", "Pi is 3.14 here"},
      {"as in e.g. this", "as in e.g. this"},
      {"the U.S.A. is", "the U.S.A. is"},
      {"What? no", "What? |no"},
      {"No! (Yes.) \"So.\" he", "No! |(Yes.) \"|So.\" he"},
      {"end.) Next", "end.) |Next"},
      {"etc., and", "etc., and"},
      {"in 1990. 12 of", "in 1990. 12 of"},
      {"in 1990. 12 Of", "in 1990. 12 |Of"},
      {"end.Next", "end.Next"},
      {"3.Next", "3.|Next"},
      {"well... then", "well... then"},
      {"well... Then", "well... |Then"},
      {"好。好", "好。|好"},
      {"क्या। हाँ", "क्या। |हाँ"},
      {"a.\u0301 B", "a.\u0301 |B"},
      {"a\u2029b", "a|\u2029b"},
  };
  for (const Case& c : cases) EXPECT_EQ(Marked(c.Text), c.Marked) << c.Text;
}

TEST(SentenceBreaks, ASettledDoubtEndsNothingLater) {
  SentenceBreaks sentences;
  for (const char c : std::string_view("end. 5")) EXPECT_FALSE(sentences.Feed(static_cast<char32_t>(c)));
  EXPECT_TRUE(sentences.InDoubt());
  EXPECT_FALSE(sentences.IsFresh());
  sentences.Settle();
  EXPECT_TRUE(sentences.IsFresh());
  EXPECT_FALSE(sentences.Feed(U'A'));
}

#ifdef KORV_ICU

TEST(SentenceBreaks, EveryCharacterHasTheClassOfUnicode) {
  const auto classOf = [](UChar32 c) {
    switch (u_getIntPropertyValue(c, UCHAR_SENTENCE_BREAK)) {
      case U_SB_ATERM:
        return SentenceClass::ATerm;
      case U_SB_CLOSE:
        return SentenceClass::Close;
      case U_SB_FORMAT:
        return SentenceClass::Format;
      case U_SB_LOWER:
        return SentenceClass::Lower;
      case U_SB_NUMERIC:
        return SentenceClass::Numeric;
      case U_SB_OLETTER:
        return SentenceClass::OLetter;
      case U_SB_SEP:
      case U_SB_CR:
      case U_SB_LF:
        return SentenceClass::Sep;
      case U_SB_SP:
        return SentenceClass::Sp;
      case U_SB_STERM:
        return SentenceClass::STerm;
      case U_SB_UPPER:
        return SentenceClass::Upper;
      case U_SB_EXTEND:
        return SentenceClass::Extend;
      case U_SB_SCONTINUE:
        return SentenceClass::SContinue;
      default:
        return SentenceClass::Other;
    }
  };
  std::vector<UChar32> wrong;
  for (UChar32 c = 0; c <= 0x10FFFF; ++c)
    if (SentenceClassOf(static_cast<char32_t>(c)) != classOf(c)) wrong.push_back(c);
  EXPECT_TRUE(wrong.empty()) << wrong.size() << " characters, the first " << wrong.front();
}

/// Letters between which a sentence ends, by the index of the second one.
std::vector<size_t> EndsByModel(const std::string& text, UBreakIterator* breaks) {
  UErrorCode status = U_ZERO_ERROR;
  UText* const input = utext_openUTF8(nullptr, text.data(), static_cast<int64_t>(text.size()), &status);
  ubrk_setUText(breaks, input, &status);
  EXPECT_TRUE(U_SUCCESS(status));
  std::vector<size_t> ends;
  size_t letter = 0;
  bool ended = false;
  for (size_t at = 0; at < text.size();) {
    const size_t begin = at;
    const char32_t c = NextCharacter(text, at);
    ended = (begin > 0 && ubrk_isBoundary(breaks, static_cast<int32_t>(begin))) || ended;
    if (!IsUnicodeLetter(c)) continue;
    if (ended) ends.push_back(letter);
    ended = false;
    ++letter;
  }
  utext_close(input);
  return ends;
}

std::vector<size_t> EndsByProgram(const std::string& text) {
  SentenceBreaks sentences;
  std::vector<size_t> ends;
  size_t letter = 0;
  bool ended = false;
  for (size_t at = 0; at < text.size();) {
    const char32_t c = NextCharacter(text, at);
    ended = sentences.Feed(c) || ended;
    if (!IsUnicodeLetter(c)) continue;
    if (ended) ends.push_back(letter);
    ended = false;
    ++letter;
  }
  return ends;
}

TEST(SentenceBreaks, EndsBetweenLettersAreThoseOfTheLibrary) {
  const std::u32string signs = U"aB\u597D5.?!\"'() ,:-*\u3002\u0301\u00AD\u00AB\u2029";
  std::mt19937 random(2026);
  UErrorCode status = U_ZERO_ERROR;
  UBreakIterator* const breaks = ubrk_open(UBRK_SENTENCE, "", nullptr, 0, &status);
  ASSERT_TRUE(U_SUCCESS(status));
  for (int round = 0; round < 20000; ++round) {
    std::string text;
    const size_t length = random() % 14;
    for (size_t i = 0; i < length; ++i) AppendCharacter(signs[random() % signs.size()], text);
    ASSERT_EQ(EndsByProgram(text), EndsByModel(text, breaks)) << text;
  }
  ubrk_close(breaks);
}

#endif

}  // namespace
}  // namespace korv
