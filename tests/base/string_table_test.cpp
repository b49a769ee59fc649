#include "base/string_table.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
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

// How many pairs of the texts have the same last bits of their hash, which choose the slot.
size_t Meetings(const std::vector<std::string>& texts, uint64_t seed, uint64_t mask) {
  std::unordered_map<uint64_t, size_t> slots;
  size_t meetings = 0;
  for (const std::string& text : texts) meetings += slots[HashBytes(text, seed) & mask]++;
  return meetings;
}

std::vector<std::string> Words(size_t size) {
  std::vector<std::string> words;
  for (uint32_t k = 0; words.size() < size; ++k) {
    std::string word;
    for (uint32_t rest = k; rest > 0 || word.size() < 3; rest /= 26)
      word += static_cast<char>('a' + rest % 26);
    words.push_back(word);
  }
  return words;
}

TEST(HashBytes, SpreadsWordsEvenlyUnderEverySeed) {
  constexpr uint64_t kMask = 0xFFFF;
  const std::vector<std::string> words = Words(20'000);
  // 20,000 words in 65,536 slots: 3,051 pairs meet by chance, give or take 55.
  for (const uint64_t seed :
       {uint64_t{0}, uint64_t{1}, uint64_t{1} << 32, ~uint64_t{0}, uint64_t{0x5EED5EED5EED}})
    EXPECT_NEAR(static_cast<double>(Meetings(words, seed, kMask)), 3051, 400) << seed;
}

TEST(HashBytes, KeepsWordsApartThatWereChosenToMeetUnderAnotherSeed) {
  constexpr uint64_t kMask = 0x3FF;
  std::vector<std::string> chosen;
  for (std::string& word : Words(600'000))
    if ((HashBytes(word, 1) & kMask) == 0) chosen.push_back(std::move(word));
  ASSERT_GT(chosen.size(), 400U);
  const double all = static_cast<double>(chosen.size() * (chosen.size() - 1)) / 2;
  EXPECT_EQ(Meetings(chosen, 1, kMask), static_cast<size_t>(all));
  for (const uint64_t seed : {2, 77, 4'000'000})
    EXPECT_LT(static_cast<double>(Meetings(chosen, seed, kMask)), all / 200);
}

TEST(HashBytes, TellsLongTextsApartByAnyOfTheirBytes) {
  const std::string text(40, 'w');
  for (size_t at = 0; at < text.size(); ++at) {
    std::string other = text;
    other[at] = 'v';
    EXPECT_NE(HashBytes(text, 1), HashBytes(other, 1)) << at;
  }
}

TEST(StringTable, GivesTheSameNumbersUnderEverySeed) {
  StringTable one(1);
  StringTable other(2);
  StringTable random;
  for (const std::string& word : Words(5'000)) {
    const uint32_t number = one.Number(word);
    EXPECT_EQ(other.Number(word), number);
    EXPECT_EQ(random.Number(word), number);
  }
}

TEST(HashBytes, DependsOnEveryByteAndOnTheLengthAndOnTheSeed) {
  constexpr uint64_t kSeed = 0x0000'0003'0000'0005;
  constexpr uint64_t kOther = 0x0000'0007'0000'000B;
  for (size_t length = 0; length <= 40; ++length) {
    const std::string text(length, 'a');
    std::set<uint64_t> hashes{HashBytes(text, kSeed), HashBytes(text, kOther), HashBytes(text + "a", kSeed)};
    for (size_t at = 0; at < length; ++at) {
      std::string other = text;
      other[at] = 'b';
      hashes.insert(HashBytes(other, kSeed));
      other[at] = '\0';
      hashes.insert(HashBytes(other, kSeed));
    }
    EXPECT_EQ(hashes.size(), 3 + 2 * length) << length;
  }
}

}  // namespace
}  // namespace korv
