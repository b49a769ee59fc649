#include "engine/text/clean_text.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korv {
namespace {

struct Row {
  std::string_view From;
  std::string_view To;
};

TEST(CleanText, ReplacesDropsMendsAndComposes) {
  constexpr Row kTable[] = {
      {"", ""},
      {"plain", "plain"},
      {"\u2018a\u2019", "'a'"},
      {"\u201Ca\u201D", "\u201Ca\""},
      {"\u2019\u2019\u2026\u201D", "''\u2026\""},
      {"a\u2010b\u2011c", "a-b-c"},
      {"co\u00ADop \uFEFFx\u2060y", "coop xy"},
      {"a\xE2\x80", "a\uFFFD"},
      {"\x80", "\uFFFD"},
      {"a\x80\xBFz", "a\uFFFD\uFFFDz"},
      {"\xC2", "\uFFFD"},
      {"\xC2z\xDFz", "\uFFFDz\uFFFDz"},
      {"\xC3\xFF\xE0z", "\uFFFD\uFFFD\uFFFDz"},
      {"cafe\u00AD\u0301", "caf\u00E9"},
      {"\u0646\u200C\u0645", "\u0646\u200C\u0645"},
  };
  for (const Row& row : kTable) {
    EXPECT_EQ(CleanText(row.From), row.To);
    EXPECT_EQ(CleanText(row.To), row.To);
  }
}

TEST(CleanText, HandsOutTheTextItselfWhereNothingChanges) {
  std::string buffer;
  for (const std::string_view text : {"plain", "caf\u00E9", "\u043A\u043E\u0448\u043A\u0430", "\u6F22"})
    EXPECT_EQ(CleanText(text, buffer).data(), text.data());
}

}  // namespace
}  // namespace korv
