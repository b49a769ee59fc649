#include <gtest/gtest.h>

#include <numeric>
#include <span>
#include <utility>
#include <vector>

#include "base/growing_array.h"
#include "base/raw_vector.h"
#include "base/zeroed_array.h"

namespace korv {
namespace {

TEST(GrowingArray, HoldsWhatIsAppendedHoweverOftenItGrows) {
  GrowingArray<int> array;
  EXPECT_EQ(array.size(), 0u);
  EXPECT_EQ(array.begin(), array.end());
  for (int i = 0; i < 100'000; ++i) {
    array.push_back(i);
    ASSERT_EQ(array.back(), i);
  }
  ASSERT_EQ(array.size(), 100'000u);
  EXPECT_EQ(std::accumulate(array.begin(), array.end(), int64_t{0}), int64_t{99'999} * 50'000);
}

TEST(GrowingArray, AppendsManyElementsAtOnce) {
  GrowingArray<int> array;
  array.append({});
  EXPECT_EQ(array.size(), 0u);
  std::vector<int> expected;
  for (int size = 1; size < 300; ++size) {
    const std::vector<int> part(static_cast<size_t>(size), size);
    array.append(part);
    expected.insert(expected.end(), part.begin(), part.end());
  }
  EXPECT_EQ(std::vector<int>(array.begin(), array.end()), expected);
}

TEST(GrowingArray, IsEmptyAfterItWasMovedFrom) {
  GrowingArray<int> array;
  array.push_back(7);
  GrowingArray<int> other = std::move(array);
  EXPECT_EQ(other.size(), 1u);
  EXPECT_EQ(array.size(), 0u);  // NOLINT(bugprone-use-after-move): that is what is tested
  array.push_back(8);
  other = std::move(array);
  EXPECT_EQ(other.back(), 8);
}

TEST(ZeroedArray, BeginsAsZeros) {
  const ZeroedArray<uint64_t> none;
  EXPECT_TRUE(none.Empty());
  for (const size_t size : {size_t{0}, size_t{1}, size_t{100'000}}) {
    ZeroedArray<uint64_t> array(size);
    EXPECT_EQ(array.Size(), size);
    for (size_t i = 0; i < size; ++i) ASSERT_EQ(array[i], 0u);
    if (size == 0) continue;
    array[size - 1] = 5;
    const ZeroedArray<uint64_t> moved = std::move(array);
    EXPECT_EQ(moved[size - 1], 5u);
  }
}

TEST(RawVector, KeepsItsElementsWhenItIsResized) {
  RawVector<int> vector(3, 9);
  vector.resize(100'000);
  EXPECT_EQ(vector[0] + vector[1] + vector[2], 27);
  vector.push_back(4);
  EXPECT_EQ(vector.back(), 4);
}

}  // namespace
}  // namespace korv
