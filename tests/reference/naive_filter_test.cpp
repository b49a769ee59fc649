#include "tests/reference/naive_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korv::reference {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NaiveFilterWords, AreLowerCasedAndCutAtEverythingElse) {
  EXPECT_THAT(FilterWords("  CAT, the;ÉTÉ "), ElementsAre("cat", "the", "été"));
  EXPECT_THAT(FilterWords("cat,"), ElementsAre("cat"));
  EXPECT_THAT(FilterWords("don't well-known -x- '90"), ElementsAre("don't", "well-known", "-x-", "'90"));
  EXPECT_THAT(FilterWords(" ., "), IsEmpty());
}

TEST(NaiveFilter, PassesByMode) {
  struct Case {
    const char* Filter;
    FilterMode Mode;
    const char* Phrase;
    bool Passes;
  };
  const auto all = FilterMode::AllWords, ordered = FilterMode::AllWordsInSameOrder,
             run = FilterMode::Subphrase;
  const Case cases[] = {
      {"the cat", run, "saw the cat", true},
      {"the cat", run, "the cats", false},
      {"the cat", run, "cat the", false},
      {"a a", run, "aa a a", true},
      {"cat the", all, "the cat sat", true},
      {"cat the", ordered, "the cat sat", false},
      {"the sat", ordered, "the cat sat", true},
      {"CAT", all, "a cat", true},
      {"cat", all, "a CAT", true},
      {"cat", all, "cats and cat", true},
      {"cat", all, "cats", false},
      {"cate", all, "caté a", false},
      {"a-a", all, "a-a-a a-a", true},
      // The order is looked for among any occurrences.
      {"at the", ordered, "cat the at", true},
      {"the he", ordered, "the he", true},
      {"he the", ordered, "the he", false},
      {"the the", ordered, "the cat", false},
      {"the the", all, "the cat", true},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(PassesFilter(c.Phrase, FilterWords(c.Filter), c.Mode), c.Passes)
        << c.Filter << " in " << c.Phrase << ", mode " << static_cast<int>(c.Mode);
  }
}

}  // namespace
}  // namespace korv::reference
