// What the desktop program makes of its arguments.

#include "app/desktop_arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/files.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using Kind = DesktopArguments::Kind;

DesktopArguments Read(const std::vector<std::string>& arguments) {
  return ReadDesktopArguments(arguments, "1.2.3");
}

std::string Here(const char* name) {
  return PathToText(std::filesystem::current_path() / PathFromText(name));
}

TEST(DesktopArguments, OpenNothingWithoutAny) {
  EXPECT_EQ(Read({}).What, Kind::Open);
  EXPECT_THAT(Read({}).Paths, IsEmpty());
  EXPECT_THAT(Read({""}).Paths, IsEmpty());
}

TEST(DesktopArguments, AreMadeAbsolutePaths) {
  const std::pair<const char*, const char*> cases[] = {{"a.txt", "a.txt"},
                                                       {"./a.txt", "a.txt"},
                                                       {"sub/../a.txt", "a.txt"},
                                                       {"texts/", "texts"},
                                                       {"B\xC3\xA4r & Co.txt", "B\xC3\xA4r & Co.txt"}};
  for (const auto& [argument, path] : cases) {
    const DesktopArguments read = Read({argument});
    EXPECT_EQ(read.What, Kind::Open) << argument;
    EXPECT_THAT(read.Paths, ElementsAre(Here(path))) << argument;
  }
  EXPECT_THAT(Read({Here("a.txt"), "b"}).Paths, ElementsAre(Here("a.txt"), Here("b")));
  const std::string root = PathToText(std::filesystem::current_path().root_path());
  EXPECT_THAT(Read({root}).Paths, ElementsAre(root));
}

TEST(DesktopArguments, MayLookLikeOptionsAfterTwoHyphens) {
  EXPECT_THAT(Read({"--", "--help", "-x"}).Paths, ElementsAre(Here("--help"), Here("-x")));
}

TEST(DesktopArguments, TellHelpAndVersion) {
  for (const char* option : {"--help", "-h"}) {
    const DesktopArguments read = Read({"a.txt", option});
    EXPECT_EQ(read.What, Kind::Tell);
    EXPECT_THAT(read.Text, StartsWith("Usage: korv [FILE | FOLDER]...\n"));
    EXPECT_EQ(read.Text.back(), '\n');
    EXPECT_THAT(read.Paths, IsEmpty());
  }
  EXPECT_EQ(Read({"--version"}).What, Kind::Tell);
  EXPECT_EQ(Read({"--version"}).Text, "korv 1.2.3\n");
}

TEST(DesktopArguments, RefuseOtherOptions) {
  for (const char* option : {"--quiet", "-x", "-", "-style", "--helpp"}) {
    const DesktopArguments read = Read({option});
    EXPECT_EQ(read.What, Kind::Wrong) << option;
    EXPECT_THAT(read.Text, StartsWith(std::string("korv: There is no option ") + option + ".\n"));
    EXPECT_THAT(read.Text, HasSubstr("Usage: korv [FILE | FOLDER]...\n"));
  }
}

}  // namespace
}  // namespace korv
