#include "base/line_ends.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

TEST(WithLineEnds, EndsEachLineAsAsked) {
  EXPECT_EQ(WithLineEnds("a\n\nb\n", kCrLf), "a\r\n\r\nb\r\n");
  EXPECT_EQ(WithLineEnds("a\n\nb\n", "\n"), "a\n\nb\n");
}

TEST(WithLineEnds, LeavesTheRestAlone) {
  EXPECT_EQ(WithLineEnds("", kCrLf), "");
  EXPECT_EQ(WithLineEnds("a b\tc\xC3\xA4", kCrLf), "a b\tc\xC3\xA4");
}

}  // namespace
}  // namespace korv
