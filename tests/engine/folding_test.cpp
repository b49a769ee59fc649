#include "engine/text/folding.h"

#include <gtest/gtest.h>

#include <string_view>

namespace korv {
namespace {

struct Row {
  std::string_view Text;
  std::string_view Folded;
};

TEST(FoldAccents, TakesTheOneToOneTableFirst) {
  constexpr Row kTable[] = {
      {"ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝ", "SYAAAAAACEEEEIIIIDNOOOOOOUUUUY"},
      {"šÿàáâãäåçèéêëìíîïñòóôõöøùúûüý", "syaaaaaaceeeeiiiinoooooouuuuy"},
      {"ÄÖÜäöü", "AOUaou"},
  };
  for (const Row& row : kTable) EXPECT_EQ(FoldAccents(row.Text), row.Folded);
}

TEST(FoldAccents, WritesLigaturesAndSharpSAsTwoLetters) {
  EXPECT_EQ(FoldAccents("ŒuvreÆsopœufæßx"), "OeuvreAesopoeufaessx");
}

TEST(FoldAccents, LeavesEverythingElse) {
  for (const std::string_view text : {"", "plain Text-1", "ðÞþ", "×÷", "ŁłŽž", "кошка", "漢"}) {
    EXPECT_EQ(FoldAccents(text), text);
  }
}

TEST(FoldKey, LowersAccentedCapitalsToTheirPartners) {
  EXPECT_EQ(FoldKey("ŠŸÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝ"), "šÿàáâãäåçèéêëìíîïðñòóôõöøùúûüý");
}

TEST(FoldKey, LowersEverythingElseToo) {
  EXPECT_EQ(FoldKey("ABC xyz ÞŁ КОШКА 1"), "abc xyz þł кошка 1");
}

TEST(FoldKey, AndFoldAccentsMakeTheKey) {
  EXPECT_EQ(FoldKey(FoldAccents("Éric's CŒUR Ðe Straße")), "eric's coeur de strasse");
}

}  // namespace
}  // namespace korv
