#include "report/error_text.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

class AdviceTexts final : public ProgramText {
 public:
  std::string Get(int number) const override {
    return number == 93 ? "" : "Advice " + std::to_string(number);
  }
};

TEST(UnexpectedError, NamesPlaceNumberAndDescription) {
  EXPECT_EQ(UnexpectedErrorText("ListWords", 57, "Input/output error"),
            "At ListWords error # 57.\nDescription: Input/output error");
}

TEST(ListingAdvice, IsTheProgramsTextsThatThereAre) {
  EXPECT_EQ(ListingAdvice(nullptr), "");
  const AdviceTexts texts;
  EXPECT_EQ(ListingAdvice(&texts), "\nAdvice 92\nAdvice 94\nAdvice 95\nAdvice 96");
}

TEST(ErrorNumber, TellsDeniedPermissionFromTheRest) {
  EXPECT_EQ(ErrorNumber(FileFault::PermissionDenied), 70);
  for (const FileFault fault : {FileFault::NotFound, FileFault::IsFolder, FileFault::NotAFolder,
                                FileFault::NoSpace, FileFault::Other})
    EXPECT_NE(ErrorNumber(fault), 70);
}

}  // namespace
}  // namespace korv
