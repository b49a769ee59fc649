#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

#include "platform/files.h"
#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

class PosixFilesTest : public testing::Test {
 protected:
  // The error of writing and committing; empty when all went well.
  std::string Write(const fs::path& path, const std::string& content) {
    auto file = files->OpenForWriting(path);
    if (!file) return file.Error().Description;
    if (auto fault = (*file)->Write(content)) return fault->Description;
    if (auto fault = (*file)->Commit()) return fault->Description;
    return {};
  }
  mode_t ModeOf(const fs::path& path) {
    struct stat facts {};
    EXPECT_EQ(::stat(path.c_str(), &facts), 0);
    return facts.st_mode & 07777;
  }

  std::unique_ptr<FileSystem> files = MakeSystemFiles();
  TemporaryFolder folder;
};

TEST_F(PosixFilesTest, TheTemporaryFolderIsForItsOwnerOnly) {
  EXPECT_EQ(ModeOf(folder.Path()), 0700U);
}

TEST_F(PosixFilesTest, AReplacedFileKeepsItsPermissions) {
  for (const mode_t mode : {0600U, 0640U, 0666U, 0755U}) {
    WriteTestFile(folder / "out", "old");
    ASSERT_EQ(::chmod((folder / "out").c_str(), mode), 0);
    EXPECT_EQ(Write(folder / "out", "new"), "");
    EXPECT_EQ(ReadTestFile(folder / "out"), "new");
    EXPECT_EQ(ModeOf(folder / "out"), mode);
  }
}

TEST_F(PosixFilesTest, ANewFileHasTheUsualPermissions) {
  WriteTestFile(folder / "usual", "x");
  EXPECT_EQ(Write(folder / "out", "new"), "");
  EXPECT_EQ(ModeOf(folder / "out"), ModeOf(folder / "usual"));
}

TEST_F(PosixFilesTest, AReadOnlyFileIsNotReplaced) {
  if (::geteuid() == 0) GTEST_SKIP() << "the superuser may write to every file";
  WriteTestFile(folder / "out", "old");
  ASSERT_EQ(::chmod((folder / "out").c_str(), 0400), 0);
  EXPECT_EQ(files->OpenForWriting(folder / "out").Error().Fault, FileFault::PermissionDenied);
  EXPECT_EQ(ReadTestFile(folder / "out"), "old");
}

TEST_F(PosixFilesTest, ALinkStaysALink) {
  WriteTestFile(folder / "real" / "out", "old");
  fs::create_symlink("real/out", folder / "link");
  fs::create_symlink("link", folder / "second");
  EXPECT_EQ(Write(folder / "second", "new"), "");
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_TRUE(fs::is_symlink(folder / "second"));
  EXPECT_EQ(ReadTestFile(folder / "real" / "out"), "new");
}

TEST_F(PosixFilesTest, ALinkThatLeadsNowhereGetsItsFile) {
  fs::create_symlink("new", folder / "link");
  EXPECT_EQ(Write(folder / "link", "words"), "");
  EXPECT_TRUE(fs::is_symlink(folder / "link"));
  EXPECT_EQ(ReadTestFile(folder / "new"), "words");
}

TEST_F(PosixFilesTest, ALoopOfLinksIsAnError) {
  fs::create_symlink("b", folder / "a");
  fs::create_symlink("a", folder / "b");
  EXPECT_FALSE(files->FileExists(folder / "a"));
  EXPECT_FALSE(files->OpenForReading(folder / "a"));
  EXPECT_FALSE(files->OpenForWriting(folder / "a"));
  EXPECT_FALSE(files->FileSize(folder / "a"));
}

TEST_F(PosixFilesTest, AFullDeviceIsAnError) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no such device here";
  auto file = files->OpenForWriting("/dev/full");
  ASSERT_TRUE(file);
  const auto fault = (*file)->Write("words");
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->Fault, FileFault::NoSpace);
  EXPECT_TRUE((*file)->Commit()) << "what was not written cannot be committed";
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(PosixFilesTest, ADeviceIsWrittenDirectly) {
  EXPECT_EQ(Write("/dev/null", "words"), "");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(PosixFilesTest, AnOpenFileOfTheProcessIsAddedTo) {
  if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "the system does not name open files";
  const fs::path target = folder / "redirected";
  WriteTestFile(target, "before ");
  const int number = ::open(target.c_str(), O_WRONLY);
  ASSERT_GE(number, 0);
  EXPECT_EQ(Write("/proc/self/fd/" + std::to_string(number), "after"), "");
  ::close(number);
  EXPECT_EQ(ReadTestFile(target), "before after");
}

TEST_F(PosixFilesTest, PipesNeverMakeItWait) {
  const fs::path pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_TRUE(files->FileExists(pipe));
  EXPECT_FALSE(files->FileSize(pipe));
  EXPECT_FALSE(files->OpenForWriting(pipe)) << "nobody reads it";
  auto file = files->OpenForReading(pipe);
  ASSERT_TRUE(file);
  EXPECT_EQ((*file)->Size(), 0U);
  EXPECT_TRUE((*file)->SeekTo(0)) << "a pipe cannot go back";
  char buffer[10];
  EXPECT_EQ(*(*file)->Read(buffer), 0U) << "nobody writes to it";
}

TEST_F(PosixFilesTest, APipeIsReadToItsEnd) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ASSERT_EQ(::write(ends[1], "words", 5), 5);
  const fs::path name = "/dev/fd/" + std::to_string(ends[0]);
  auto file = files->OpenForReading(name);
  ::close(ends[1]);
  ASSERT_TRUE(file);
  char buffer[10];
  EXPECT_EQ(*(*file)->Read(buffer), 5U);
  EXPECT_EQ(*(*file)->Read(buffer), 0U);
  ::close(ends[0]);
}

TEST_F(PosixFilesTest, ListsLinksToFilesButNotToFolders) {
  WriteTestFile(folder / "sub" / "a.txt", "words");
  fs::create_symlink("sub/a.txt", folder / "link to file");
  fs::create_symlink("sub", folder / "link to folder");
  fs::create_symlink("..", folder / "sub" / "loop");
  fs::create_symlink("missing", folder / "link to nothing");
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  const auto listing = files->ListFolder(folder.Path());
  ASSERT_TRUE(listing);
  EXPECT_THAT(listing->Files, UnorderedElementsAre(fs::path("link to file"), fs::path("link to nothing")));
  EXPECT_THAT(listing->Subfolders, UnorderedElementsAre(fs::path("sub")));
}

TEST_F(PosixFilesTest, NamesMayHoldAnyByte) {
  const std::string name = "bad\xFF\nname\\ \xC3\xA9.txt";
  WriteTestFile(folder / name, "words");
  const auto listing = files->ListFolder(folder.Path());
  ASSERT_TRUE(listing);
  ASSERT_EQ(listing->Files.size(), 1U);
  EXPECT_EQ(listing->Files[0].native(), name);
  EXPECT_EQ(PathToText(listing->Files[0]), "bad\xEF\xBF\xBD\nname\\ \xC3\xA9.txt");
  EXPECT_TRUE(files->OpenForReading(folder / listing->Files[0]));
  EXPECT_EQ(PathFromText(name).native(), name) << "bytes that came from the system go back as they are";
}

TEST_F(PosixFilesTest, CanonicalPathsFollowLinks) {
  fs::create_directories(folder / "real" / "sub");
  fs::create_symlink("real", folder / "link");
  EXPECT_EQ(files->CanonicalPath(folder / "link" / "sub" / "new.txt"),
            fs::canonical(folder.Path()) / "real" / "sub" / "new.txt");
}

}  // namespace
}  // namespace korv
