#include "platform/windows/shell_launcher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

TEST(ShellLauncher, KnowsWhatTheShellAnswers) {
  struct Row {
    int Answer;
    LaunchFault Fault;
  };
  for (const Row& row : {Row{0, LaunchFault::OutOfMemory}, Row{8, LaunchFault::OutOfMemory},
                         Row{27, LaunchFault::NoAssociation}, Row{31, LaunchFault::NoAssociation},
                         Row{2, LaunchFault::Other}, Row{3, LaunchFault::Other}, Row{5, LaunchFault::Other},
                         Row{26, LaunchFault::Other}, Row{32, LaunchFault::Other}}) {
    const LaunchResult result = LaunchResultOf(row.Answer);
    EXPECT_EQ(result.Fault, row.Fault) << row.Answer;
    EXPECT_EQ(result.Code, row.Answer);
  }
  for (const int answer : {33, 42}) {
    EXPECT_EQ(LaunchResultOf(answer).Fault, LaunchFault::None) << answer;
    EXPECT_EQ(LaunchResultOf(answer).Code, 0) << answer;
  }
}

TEST(ShellLauncher, AFileThatIsNotThereCannotBeOpened) {
  const TemporaryFolder folder;
  const LaunchResult result = MakeShellLauncher()->Open(PathToText(folder / "missing.txt"));
  EXPECT_EQ(result.Fault, LaunchFault::Other);
  EXPECT_EQ(result.Code, 2);
}

TEST(ShellLauncher, AFileOfNoKnownKindHasNoAssociation) {
  const TemporaryFolder folder;
  WriteTestFile(folder / "a.korv-no-such-kind", "words");
  const LaunchResult result = MakeShellLauncher()->Open(PathToText(folder / "a.korv-no-such-kind"));
  EXPECT_EQ(result.Fault, LaunchFault::NoAssociation);
  EXPECT_EQ(result.Code, 31);
}

TEST(ShellLauncher, SeeksTheClipboardViewerOnTheSystemsDrive) {
  EXPECT_THAT(ClipboardViewerPlaces(L'D'),
              testing::ElementsAre(LR"(D:\windows\clipbrd.exe)", LR"(D:\windows\system32\clipbrd.exe)"));
}

TEST(ShellLauncher, ASystemWithoutAClipboardViewerShowsNone) {
  for (const std::filesystem::path& place : ClipboardViewerPlaces(L'C'))
    if (MakeSystemFiles()->FileExists(place)) GTEST_SKIP() << "this system has one";
  EXPECT_FALSE(MakeShellLauncher()->OpenClipboardViewer());
}

}  // namespace
}  // namespace korv
