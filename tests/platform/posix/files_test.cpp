#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/files.h"
#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

constexpr uid_t kNobody = 65534;

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
  WriteTestFile(folder / "out", "old");
  ASSERT_EQ(::chmod((folder / "out").c_str(), 0444), 0);
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0777), 0);
  EXPECT_EXIT(
      {
        // The superuser may write to every file.
        if (::geteuid() == 0 && ::setresuid(kNobody, kNobody, kNobody) != 0) ::_exit(1);
        const auto file = files->OpenForWriting(folder / "out");
        ::_exit(!file && file.Error().Fault == FileFault::PermissionDenied ? 0 : 2);
      },
      testing::ExitedWithCode(0), "");
  EXPECT_EQ(ReadTestFile(folder / "out"), "old");
}

TEST_F(PosixFilesTest, WhatIsBeingWrittenIsNotSeen) {
  WriteTestFile(folder / "out", "old");
  for (const char* name : {"out", "new"}) {
    auto file = files->OpenForWriting(folder / name);
    ASSERT_TRUE(file);
    (*file)->Write("secret");
    for (const auto& entry : fs::directory_iterator(folder.Path())) EXPECT_EQ(entry.path().filename(), "out");
  }
}

TEST_F(PosixFilesTest, AReplacedFileKeepsItsExtendedAttributes) {
  WriteTestFile(folder / "out", "old");
  if (::setxattr((folder / "out").c_str(), "user.korv", "value", 5, 0) != 0)
    GTEST_SKIP() << "the file system has no such attributes";
  EXPECT_EQ(Write(folder / "out", "new"), "");
  char value[8] = {};
  EXPECT_EQ(::getxattr((folder / "out").c_str(), "user.korv", value, sizeof value), 5);
  EXPECT_STREQ(value, "value");
}

TEST_F(PosixFilesTest, AllNamesOfAFileGetTheNewContent) {
  WriteTestFile(folder / "out", "the old content");
  fs::create_hard_link(folder / "out", folder / "other");
  EXPECT_EQ(Write(folder / "out", "new"), "");
  EXPECT_EQ(ReadTestFile(folder / "out"), "new");
  EXPECT_EQ(ReadTestFile(folder / "other"), "new");
  EXPECT_EQ(fs::hard_link_count(folder / "out"), 2U);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 2) << "the copy is gone";
}

TEST_F(PosixFilesTest, AFileOfSeveralNamesThatIsGivenUpStaysAsItWas) {
  WriteTestFile(folder / "out", "old");
  fs::create_hard_link(folder / "out", folder / "other");
  {
    auto file = files->OpenForWriting(folder / "out");
    ASSERT_TRUE(file);
    EXPECT_TRUE((*file)->Replaces());
    (*file)->Write("new content");
  }
  EXPECT_EQ(ReadTestFile(folder / "out"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 2);
}

// The size limit stands for a disk that fails while the old content is written over.
TEST_F(PosixFilesTest, AFileThatCannotBeWrittenOverIsKeptAsACopyThatTheErrorNames) {
  WriteTestFile(folder / "out", "old");
  fs::create_hard_link(folder / "out", folder / "other");
  EXPECT_EXIT(
      {
        auto file = files->OpenForWriting(folder / "out");
        (*file)->Write(std::string(5000, 'n'));
        ::signal(SIGXFSZ, SIG_IGN);
        rlimit few{};
        few.rlim_cur = few.rlim_max = 100;
        ::setrlimit(RLIMIT_FSIZE, &few);
        const auto fault = (*file)->Commit();
        const std::string mark = "; the file as it was: ";
        const size_t at = fault ? fault->Description.find(mark) : std::string::npos;
        if (at == std::string::npos || fault->Fault != FileFault::NoSpace) ::_exit(1);
        ::_exit(ReadTestFile(fault->Description.substr(at + mark.size())) == "old" ? 0 : 2);
      },
      testing::ExitedWithCode(0), "");
}

// A file that the user may write to, in folders where the user may make no file or take no name away.
TEST_F(PosixFilesTest, AWritableFileIsWrittenInFoldersThatAreNot) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser can try it as somebody else";
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
  for (const mode_t mode : {0755U, 01777U}) {
    const fs::path inside = folder / std::to_string(mode);
    WriteTestFile(inside / "out", "the old content");
    ASSERT_EQ(::chmod((inside / "out").c_str(), 0666), 0);
    ASSERT_EQ(::chmod(inside.c_str(), mode), 0);
    EXPECT_EXIT(
        {
          if (::setresuid(kNobody, kNobody, kNobody) != 0) ::_exit(1);
          ::_exit(Write(inside / "out", "new").empty() ? 0 : 2);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(ReadTestFile(inside / "out"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(inside), {}), 1);
  }
}

// ---- What killed programs leave

void MakeOld(const fs::path& path) {
  const timespec old[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), old, 0), 0);
}

TEST_F(PosixFilesTest, AKilledProgramLeavesNothingThatTheNextOneDoesNotSweep) {
  WriteTestFile(folder / "out", "old");
  EXPECT_EXIT(
      {
        auto file = files->OpenForWriting(folder / "out");
        (*file)->Write(std::string(100'000, 'n'));
        ::raise(SIGKILL);
      },
      testing::KilledBySignal(SIGKILL), "");
  for (const auto& entry : fs::directory_iterator(folder.Path())) MakeOld(entry.path());
  EXPECT_EQ(Write(folder / "out", "new"), "");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);
}

TEST_F(PosixFilesTest, SweepsTemporaryFilesThatNobodyHasAndNoOthers) {
  for (const char* name :
       {".korv-abcdefgh.tmp", ".korv-locked22.tmp", ".korv-notes.txt", "korv-abcdefgh.tmp"}) {
    WriteTestFile(folder / name, "x");
    MakeOld(folder / name);
  }
  WriteTestFile(folder / ".korv-freshnew.tmp", "x");
  const int locked = ::open((folder / ".korv-locked22.tmp").c_str(), O_RDONLY);
  ASSERT_EQ(::flock(locked, LOCK_EX), 0);
  EXPECT_EQ(Write(folder / "out", "new"), "");
  ::close(locked);
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder.Path())) names.push_back(entry.path().filename());
  EXPECT_THAT(names, UnorderedElementsAre(".korv-locked22.tmp", ".korv-notes.txt", "korv-abcdefgh.tmp",
                                          ".korv-freshnew.tmp", "out"));
}

TEST_F(PosixFilesTest, LooksForSuchFilesOnceInEachFolder) {
  const fs::path left = folder / ".korv-abcdefgh.tmp";
  EXPECT_EQ(Write(folder / "out", "new"), "");
  WriteTestFile(left, "x");
  MakeOld(left);
  EXPECT_EQ(Write(folder / "out", "newer"), "");
  EXPECT_TRUE(fs::exists(left));
  files = MakeSystemFiles();
  EXPECT_EQ(Write(folder / "out", "newest"), "");
  EXPECT_FALSE(fs::exists(left));
}

TEST_F(PosixFilesTest, SweepsTemporaryFoldersThatNobodyHasAndNoOthers) {
  const auto make = [&](const char* name, mode_t mode) {
    WriteTestFile(folder / name / "inner" / "text", "x");
    ASSERT_EQ(::chmod((folder / name).c_str(), mode), 0);
    MakeOld(folder / name);
  };
  make("korv-run-abcdef", 0700);
  make("korv-run-locked", 0700);
  make("korv-run-shared", 0755);
  make("korv-run-longer-name", 0700);
  make("korv-master", 0700);
  WriteTestFile(folder / "korv-run-newone" / "text", "x");
  const int locked = ::open((folder / "korv-run-locked").c_str(), O_RDONLY | O_DIRECTORY);
  ASSERT_EQ(::flock(locked, LOCK_EX), 0);
  ::setenv("TMPDIR", folder.Path().c_str(), 1);
  const auto made = files->CreatePrivateTemporaryFolder();
  ::unsetenv("TMPDIR");
  ::close(locked);
  ASSERT_TRUE(made);
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder.Path())) names.push_back(entry.path().filename());
  EXPECT_THAT(names, UnorderedElementsAre("korv-run-locked", "korv-run-shared", "korv-run-longer-name",
                                          "korv-master", "korv-run-newone", made->filename().native()));
  // As long as this program has it, nobody else takes it for left.
  const int mine = ::open(made->c_str(), O_RDONLY | O_DIRECTORY);
  EXPECT_NE(::flock(mine, LOCK_EX | LOCK_NB), 0);
  ::close(mine);
  EXPECT_FALSE(files->Remove(*made));
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
