#include "base/pieces.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/workers.h"

namespace korv {
namespace {

TEST(InPieces, CoversEveryStepOnceAndInOrder) {
  NoYielder yielder;
  for (const size_t n : {size_t{0}, size_t{1}, size_t{65'536}, size_t{200'000}}) {
    size_t next = 0;
    EXPECT_TRUE(InPieces(n, yielder, [&](size_t begin, size_t end) {
      EXPECT_EQ(begin, next);
      EXPECT_LT(begin, end);
      next = end;
    }));
    EXPECT_EQ(next, n);
  }
}

TEST(InPieces, LeavesTheRestAfterAStop) {
  NoYielder yielder;
  size_t done = 0;
  EXPECT_FALSE(InPieces(1'000'000, yielder, [&](size_t, size_t end) {
    done = end;
    if (end > 100'000) yielder.RequestStop();
  }));
  EXPECT_GT(done, 100'000u);
  EXPECT_LT(done, 200'000u);
  EXPECT_FALSE(InPieces(0, yielder, [](size_t, size_t) {}));
}

TEST(RunParts, CoversEveryStepOnce) {
  NoYielder yielder;
  for (const size_t n : {size_t{0}, size_t{1}, size_t{1024}, size_t{10'000}}) {
    std::vector<int> done(n, 0);
    EXPECT_TRUE(RunParts(n, yielder, [&](size_t begin, size_t end) {
      for (size_t i = begin; i < end; ++i) ++done[i];
    }));
    EXPECT_EQ(done, std::vector<int>(n, 1));
  }
}

}  // namespace
}  // namespace korv
