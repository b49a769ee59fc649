#include "platform/windows/shell_launcher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

TEST(ShellLauncher, KnowsWhatTheShellAnswers) {
  struct Row {
    int answer;
    LaunchFault fault;
  };
  for (const Row& row : {Row{0, LaunchFault::OutOfMemory}, Row{8, LaunchFault::OutOfMemory},
                         Row{27, LaunchFault::NoAssociation}, Row{31, LaunchFault::NoAssociation},
                         Row{2, LaunchFault::Other}, Row{3, LaunchFault::Other}, Row{5, LaunchFault::Other},
                         Row{26, LaunchFault::Other}, Row{32, LaunchFault::Other}}) {
    const LaunchResult result = LaunchResultOf(row.answer);
    EXPECT_EQ(result.fault, row.fault) << row.answer;
    EXPECT_EQ(result.code, row.answer);
  }
  for (const int answer : {33, 42}) {
    EXPECT_EQ(LaunchResultOf(answer).fault, LaunchFault::None) << answer;
    EXPECT_EQ(LaunchResultOf(answer).code, 0) << answer;
  }
}

TEST(ShellLauncher, AFileThatIsNotThereCannotBeOpened) {
  const TemporaryFolder folder;
  const LaunchResult result = MakeShellLauncher()->Open(PathToText(folder / "missing.txt"));
  EXPECT_EQ(result.fault, LaunchFault::Other);
  EXPECT_EQ(result.code, 2);
}

TEST(ShellLauncher, AFileOfNoKnownKindHasNoAssociation) {
  const TemporaryFolder folder;
  WriteTestFile(folder / "a.korv-no-such-kind", "words");
  const LaunchResult result = MakeShellLauncher()->Open(PathToText(folder / "a.korv-no-such-kind"));
  EXPECT_EQ(result.fault, LaunchFault::NoAssociation);
  EXPECT_EQ(result.code, 31);
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
