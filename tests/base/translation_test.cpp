#include "base/translation.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

// The numbered texts are in every catalogue.
constexpr const char* kKnown = "Words to ignore";

TEST(Translation, IsEnglishUntilACatalogueIsLookedFor) {
  EXPECT_STREQ(Tr(kKnown), kKnown);
  EXPECT_EQ(TranslationLanguage(), "");
}

TEST(Translation, ComesFromTheCatalogueOfTheUsersLanguage) {
  UseTranslations(KORV_PSEUDO_LOCALE);
  EXPECT_STREQ(Tr(kKnown), "⟦Words to ignore⟧");
  EXPECT_EQ(TranslationLanguage(), "qps");
}

TEST(Translation, IsTheEnglishWhereTheCatalogueHasNone) {
  UseTranslations(KORV_PSEUDO_LOCALE);
  EXPECT_STREQ(Tr("in no catalogue"), "in no catalogue");
  EXPECT_STREQ(TrCount("one nowhere", "more nowhere", 1), "one nowhere");
  EXPECT_STREQ(TrCount("one nowhere", "more nowhere", 0), "more nowhere");
}

TEST(Translation, OfNothingIsNothing) {
  // A catalogue has facts of its own under the empty text.
  UseTranslations(KORV_PSEUDO_LOCALE);
  EXPECT_STREQ(Tr(""), "");
}

}  // namespace
}  // namespace korv
