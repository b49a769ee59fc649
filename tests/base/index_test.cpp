#include "base/index.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace korv {
namespace {

enum class Shelf : uint32_t {};
enum class Book : uint32_t {};

}  // namespace

template <>
inline constexpr bool kIsIndex<Shelf> = true;
template <>
inline constexpr bool kIsIndex<Book> = true;

namespace {

TEST(Index, OfOneKindIsNoneOfAnother) {
  EXPECT_FALSE((std::is_convertible_v<Shelf, Book>));
  EXPECT_FALSE((std::is_convertible_v<uint32_t, Book>));
  EXPECT_FALSE((std::is_convertible_v<Book, uint32_t>));
  EXPECT_EQ(sizeof(Book), sizeof(uint32_t));
}

TEST(Index, CountsAndMovesAndCompares) {
  Book book{5};
  EXPECT_EQ(ValueOf(++book), 6u);
  EXPECT_EQ(ValueOf(--book), 5u);
  EXPECT_EQ(book + 3, Book{8});
  EXPECT_EQ(book - 3, Book{2});
  EXPECT_EQ(Book{9} - book, 4u);
  EXPECT_LT(book, Book{6});
}

std::vector<uint32_t> Values(IndexRange<Book> books) {
  std::vector<uint32_t> values;
  for (const Book book : books) values.push_back(ValueOf(book));
  return values;
}

TEST(IndexRange, GoesFromTheFirstToTheLast) {
  EXPECT_EQ(Values({Book{1}, Book{3}}), (std::vector<uint32_t>{1, 2, 3}));
  EXPECT_EQ(Values({Book{4}, Book{4}}), (std::vector<uint32_t>{4}));
  EXPECT_TRUE(Values({Book{1}, Book{0}}).empty());
}

}  // namespace
}  // namespace korv
