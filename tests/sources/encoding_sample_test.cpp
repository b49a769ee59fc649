#include "sources/detect/encoding_sample.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace korv {
namespace {

std::string Times(int count, std::string_view text) {
  std::string all;
  for (int k = 0; k < count; ++k) all += text;
  return all;
}

struct Case {
  const char* About;
  std::string Bytes;
  bool Expected;
};

TEST(LooksLikeUtf8, NeedsAWellFormedSequenceAndAtMostOneIllFormedInTwenty) {
  const Case kCases[] = {
      {"nothing", "", false},
      {"ASCII", "plain words", false},
      {"one well-formed", "\xC3\xA9t\xC3\xA9", true},
      {"four bytes", "\xF0\x9F\x98\x80", true},
      {"ANSI", "\xE9t\xE9", false},
      {"one stray byte among 18", Times(18, "\xD0\xB6 ") + "\xFF", false},
      {"one stray byte among 19", Times(19, "\xD0\xB6 ") + "\xFF", true},
      {"a stray byte first", "\xFF" + Times(19, "\xD0\xB6"), true},
      {"two stray bytes among 37", Times(37, "\xD0\xB6") + "\xFF\xFF", false},
      {"two stray bytes among 38", Times(38, "\xD0\xB6") + "\xFF\xFF", true},
      {"a broken sequence of three bytes is one fault", Times(19, "\xD0\xB6") + "\xE2\x80z", true},
      {"an overlong form is two faults", Times(37, "\xD0\xB6") + "\xC0\xAF", false},
      {"a surrogate is three faults", Times(56, "\xD0\xB6") + "\xED\xA0\x80", false},
      {"beyond the last character, four faults", Times(76, "\xD0\xB6") + "\xF4\x90\x80\x80", true},
      {"cut by the end, nothing before", "\xD0", false},
      {"cut by the end is no fault", "\xD0\xB6\xE2\x80", true},
      {"cut by the end makes up for nothing", Times(18, "\xD0\xB6") + "\xFF\xE2\x80", false},
      {"ASCII counts for nothing", Times(18, "\xD0\xB6") + Times(500, "word ") + "\xFF", false},
  };
  for (const Case& c : kCases) EXPECT_EQ(LooksLikeUtf8(c.Bytes), c.Expected) << c.About;
}

}  // namespace
}  // namespace korv
