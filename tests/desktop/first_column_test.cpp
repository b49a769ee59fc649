// Where a phrase occurs first, as one column says it.

#include "desktop/results/table/first_column.h"

#include <algorithm>
#include <string>
#include <vector>

#include "tests/desktop/view_test.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

class FirstColumnTest : public ViewTest {
 protected:
  FirstColumnTest() { world.UseLengths(2, 2, 1); }
  static std::string First(const std::shared_ptr<const CountedRun>& run, const char* phrase) {
    for (const PhraseIndex i : run->Table.All())
      if (run->Table.Text(i) == phrase) return FirstPlace(*run, i);
    return "no such phrase";
  }
};

TEST_F(FirstColumnTest, NamesFileAndLineBelowTheFolder) {
  world.Files.Add("/t/a.txt", "Nothing here.\n\nAn old ship.\n");
  world.Files.Add("/t/b/c.txt", "An old ship.\n\n\nThe red sea.\nThe red sea.\n");
  const auto run = CountFolder();
  struct Case {
    const char* Phrase;
    const char* Place;
  };
  for (const Case& c : {Case{"nothing here", "a.txt:1"}, {"old ship", "a.txt:3"}, {"red sea", "b/c.txt:4"}}) {
    EXPECT_EQ(First(run, c.Phrase), Native(c.Place)) << c.Phrase;
  }
}

TEST_F(FirstColumnTest, NamesTheClipboard) {
  world.UseClipboard("one\nold ship\n");
  EXPECT_EQ(First(Counted(), "old ship"), "Clipboard:2");
}

TEST_F(FirstColumnTest, OrdersByTheText) {
  world.Files.Add("/t/a.txt", "Red sea. Old ship.\n");
  world.Files.Add("/t/b.txt", "Big cat. Red sea. Old ship.\n");
  const auto run = CountFolder();
  const ColumnSource source{run->Table, run->Facts};
  std::vector<std::pair<double, std::string>> phrases;
  for (const PhraseIndex i : run->Table.All())
    phrases.emplace_back(FirstColumn().OrderKey(source, i), run->Table.Text(i));
  std::ranges::sort(phrases);
  ASSERT_EQ(phrases.size(), 3);
  EXPECT_EQ(phrases[0].second, "red sea");
  EXPECT_EQ(phrases[1].second, "old ship");
  EXPECT_EQ(phrases[2].second, "big cat");
}

}  // namespace
}  // namespace korv
