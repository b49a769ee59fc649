#include "base/string_table.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace korv {
namespace {

TEST(StringTable, NumbersStringsInTheOrderOfTheirFirstAppearance) {
  StringTable table;
  EXPECT_EQ(table.Size(), 0u);
  EXPECT_EQ(table.Number("cat"), 0u);
  EXPECT_EQ(table.Number(""), 1u);
  EXPECT_EQ(table.Number(std::string("\0x", 2)), 2u);
  EXPECT_EQ(table.Number("cat"), 0u);
  EXPECT_EQ(table.Number(""), 1u);
  EXPECT_EQ(table.Text(0), "cat");
  EXPECT_EQ(table.Text(1), "");
  EXPECT_EQ(table.Text(2), std::string_view("\0x", 2));
  EXPECT_EQ(table.Size(), 3u);
}

// Strings that were there before the table grew are looked up while its slots move, too.
TEST(StringTable, AgreesWithAMapWhileItGrows) {
  StringTable table;
  std::unordered_map<std::string, uint32_t> model;
  std::mt19937 random(1);
  for (int i = 0; i < 100'000; ++i) {
    const std::string text = std::to_string(random() % (static_cast<unsigned>(i) + 1));
    const auto number = model.try_emplace(text, static_cast<uint32_t>(model.size())).first->second;
    ASSERT_EQ(table.Number(text), number) << text;
  }
  ASSERT_EQ(table.Size(), model.size());
  for (const auto& [text, number] : model) ASSERT_EQ(table.Text(number), text);
}

TEST(StringTable, FindsEveryStringAfterEachThatIsAdded) {
  StringTable table;
  for (uint32_t size = 1; size <= 1100; ++size) {
    ASSERT_EQ(table.Number(std::to_string(size)), size - 1);
    // The table grows at 513 strings.
    if (size < 510) continue;
    for (uint32_t before = 1; before <= size; before += 7)
      ASSERT_EQ(table.Number(std::to_string(before)), before - 1) << size;
  }
}

}  // namespace
}  // namespace korv
