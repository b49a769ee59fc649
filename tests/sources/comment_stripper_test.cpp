#include "sources/scan/comment_stripper.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

TEST(CommentStripper, ReplacesEveryCommentByOneBlank) {
  struct LineCase {
    const char* Line;
    const char* Stripped;
  };
  // In order: a comment goes on from line to line.
  const LineCase cases[] = {
      {"plain", "plain"}, {"a/*b*/c", "a c"}, {"a//b", "a "}, {"//", " "},
      {"/**/", " "},      {"/*/", " "},       {"b", " "},     {"*/c", " c"},
      {"a/*b//c", "a "},  {"*///d", "  "},    {"", ""},       {"a / b * c", "a / b * c"},
  };
  CommentStripper stripper;
  for (const LineCase& c : cases) EXPECT_EQ(stripper.Strip(c.Line), c.Stripped) << c.Line;
}

}  // namespace
}  // namespace korv
