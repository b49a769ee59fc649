#include "base/utf8.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace korv {
namespace {

/// By the definition: six bits to a byte behind the first one.
std::string Encoded(uint32_t c) {
  const auto tail = [c](int shift) { return static_cast<char>(0x80 | (c >> shift & 0x3F)); };
  if (c < 0x80) return {static_cast<char>(c)};
  if (c < 0x800) return {static_cast<char>(0xC0 | c >> 6), tail(0)};
  if (c < 0x10000) return {static_cast<char>(0xE0 | c >> 12), tail(6), tail(0)};
  return {static_cast<char>(0xF0 | c >> 18), tail(12), tail(6), tail(0)};
}

/// Every character, and every beginning of one.
struct AllCharacters {
  AllCharacters() {
    for (uint32_t c = 0; c <= 0x10FFFF; ++c) {
      if (c >= 0xD800 && c <= 0xDFFF) continue;
      // Of the last bytes of long characters some are enough.
      if (c >= 0x1000 && (c & 0x3F) != 0 && (c & 0x3F) != 0x3F) continue;
      const std::string text = Encoded(c);
      Whole.insert(text);
      for (size_t k = 1; k < text.size(); ++k) Begun.insert(text.substr(0, k));
    }
  }
  std::set<std::string> Whole;
  std::set<std::string> Begun;
};

Utf8Sequence Expected(const AllCharacters& all, const std::string& text) {
  for (size_t k = 1; k <= text.size(); ++k) {
    if (all.Whole.contains(text.substr(0, k))) return {Utf8Kind::WellFormed, k};
    if (!all.Begun.contains(text.substr(0, k))) return {Utf8Kind::IllFormed, k == 1 ? 1 : k - 1};
  }
  return {Utf8Kind::CutOff, text.size()};
}

TEST(Utf8Sequence, IsWhatTheDefinitionSaysOfEveryBeginning) {
  const AllCharacters all;
  std::set<std::string> texts;
  for (int first = 0; first < 256; ++first) {
    texts.insert({static_cast<char>(first)});
    for (int second = 0; second < 256; ++second)
      texts.insert({static_cast<char>(first), static_cast<char>(second)});
  }
  for (const std::string& begun : all.Begun)
    for (const int next : {0x00, 0x7F, 0x80, 0xBF, 0xC0, 0xFF}) texts.insert(begun + static_cast<char>(next));
  for (const std::string& text : texts) {
    const Utf8Sequence expected = Expected(all, text);
    const Utf8Sequence found = Utf8SequenceAt(text, 0);
    ASSERT_EQ(found.Kind, expected.Kind) << testing::PrintToString(text);
    ASSERT_EQ(found.Length, expected.Length) << testing::PrintToString(text);
    const Utf8Sequence inside = Utf8SequenceAt("ab" + text, 2);
    ASSERT_EQ(inside.Kind, expected.Kind) << testing::PrintToString(text);
    ASSERT_EQ(inside.Length, expected.Length) << testing::PrintToString(text);
  }
}

TEST(MendedUtf8, PutsOneSignInPlaceOfWhatIsNoCharacter) {
  struct Case {
    std::string Text;
    const char* Mended;
  };
  for (const Case& c : {Case{"", ""},
                        {"a\u00E4\u20AC\U0001F600z", "a\u00E4\u20AC\U0001F600z"},
                        {"a\xFFz", "a\uFFFDz"},
                        {"\xE2\x82", "\uFFFD"},
                        {"\xE2\x82z", "\uFFFDz"},
                        {"\xC0\xAF", "\uFFFD\uFFFD"},
                        {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
                        {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}})
    EXPECT_EQ(MendedUtf8(c.Text), c.Mended) << testing::PrintToString(c.Text);
}

}  // namespace
}  // namespace korv
