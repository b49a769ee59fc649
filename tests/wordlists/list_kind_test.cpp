// What the windows and messages call the two kinds of lists.

#include "wordlists/list_kind.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

constexpr ListKind kIgnore = ListKind::WordsToIgnore;
constexpr ListKind kCount = ListKind::CountOnly;

TEST(TheListOfFiles, SaysHowAFileComesIntoIt) {
  EXPECT_EQ(FilesListHint(kIgnore),
            "To specify (or add) a file containing words to ignore, click on the button labelled "
            "'Words-to-ignore files'.");
  EXPECT_EQ(FilesListHint(kCount),
            "To specify (or add) a file containing count-only words, click on the button labelled "
            "'Count-only words files'.");
}

TEST(TheStateOfAList, NamesItsFileAndHowManyEntriesWereTyped) {
  struct Case {
    ListKind Kind;
    const char* File;
    size_t Typed;
    const char* Label;
  };
  const Case cases[] = {
      {kIgnore, "", 0, "The list is empty: no word is ignored."},
      {kIgnore, "a.txt", 0, "In the list: a.txt"},
      {kIgnore, "", 1, "In the list: one extra word"},
      {kIgnore, "a.txt", 2, "In the list: a.txt and 2 extra words"},
      {kCount, "", 0, "The list is empty: every phrase is counted."},
      {kCount, "b.txt", 0, "In the list: b.txt"},
      {kCount, "", 1, "In the list: one extra entry"},
      {kCount, "b.txt", 12, "In the list: b.txt and 12 extra entries"},
  };
  for (const auto& [kind, file, typed, label] : cases) EXPECT_EQ(ListStateLabel(kind, file, typed), label);
}

}  // namespace
}  // namespace korv
