#include "platform/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "base/utf8.h"
#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

namespace fs = std::filesystem;
using testing::UnorderedElementsAre;

class FilesTest : public testing::Test {
 protected:
  std::string ReadAll(const fs::path& path) {
    auto file = files->OpenForReading(path);
    if (!file) return "error: " + file.Error().Description;
    std::string all;
    char buffer[7];
    for (;;) {
      const auto got = (*file)->Read(buffer);
      if (!got) return "error: " + got.Error().Description;
      if (*got == 0) return all;
      all.append(buffer, *got);
    }
  }
  FileFault WriteFault(const fs::path& path) {
    auto file = files->OpenForWriting(path);
    EXPECT_FALSE(file);
    return file ? FileFault::Other : file.Error().Fault;
  }
  size_t Entries() const {
    return static_cast<size_t>(
        std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()));
  }

  std::unique_ptr<FileSystem> files = MakeSystemFiles();
  TemporaryFolder folder;
};

TEST_F(FilesTest, ReadsAFileInPiecesAndFromAnyPlace) {
  WriteTestFile(folder / "a.txt", "some more words");
  EXPECT_EQ(ReadAll(folder / "a.txt"), "some more words");
  auto file = files->OpenForReading(folder / "a.txt");
  ASSERT_TRUE(file);
  EXPECT_EQ((*file)->Size(), 15U);
  EXPECT_FALSE((*file)->SeekTo(10));
  char buffer[100];
  const auto got = (*file)->Read(buffer);
  ASSERT_TRUE(got);
  EXPECT_EQ(std::string(buffer, *got), "words");
}

TEST_F(FilesTest, TellsFilesFromFolders) {
  WriteTestFile(folder / "a.txt", "words");
  EXPECT_TRUE(files->FileExists(folder / "a.txt"));
  EXPECT_FALSE(files->FileExists(folder.Path()));
  EXPECT_FALSE(files->FileExists(folder / "b.txt"));
  EXPECT_TRUE(files->FolderExists(folder.Path()));
  EXPECT_FALSE(files->FolderExists(folder / "a.txt"));
  EXPECT_EQ(*files->FileSize(folder / "a.txt"), 5U);
  EXPECT_EQ(files->FileSize(folder / "b.txt").Error().Fault, FileFault::NotFound);
  EXPECT_EQ(files->OpenForReading(folder / "b.txt").Error().Fault, FileFault::NotFound);
  EXPECT_EQ(files->OpenForReading(folder.Path()).Error().Fault, FileFault::IsFolder);
  EXPECT_EQ(files->OpenForReading(folder / "a.txt" / "b.txt").Error().Fault, FileFault::NotAFolder);
}

TEST_F(FilesTest, AFileThatShrinksMeanwhileJustEnds) {
  WriteTestFile(folder / "a.txt", std::string(100, 'a'));
  auto file = files->OpenForReading(folder / "a.txt");
  ASSERT_TRUE(file);
  fs::resize_file(folder / "a.txt", 10);
  char buffer[100];
  EXPECT_EQ(*(*file)->Read(buffer), 10U);
  EXPECT_EQ(*(*file)->Read(buffer), 0U);
}

TEST_F(FilesTest, AFileThatGrowsMeanwhileEndsWhereItEnded) {
  WriteTestFile(folder / "a.txt", "words");
  auto file = files->OpenForReading(folder / "a.txt");
  ASSERT_TRUE(file);
  WriteTestFile(folder / "a.txt", "words and more words");
  char buffer[100];
  EXPECT_EQ(*(*file)->Read(buffer), 5U);
  EXPECT_EQ(*(*file)->Read(buffer), 0U);
}

TEST_F(FilesTest, AnOutputAppearsWhenItIsComplete) {
  const fs::path target = folder / "out.txt";
  auto file = files->OpenForWriting(target);
  ASSERT_TRUE(file);
  EXPECT_FALSE((*file)->Replaces());
  EXPECT_FALSE((*file)->Write("one "));
  EXPECT_FALSE((*file)->Write("two"));
  EXPECT_FALSE(fs::exists(target));
  EXPECT_FALSE((*file)->Commit());
  EXPECT_EQ(ReadTestFile(target), "one two");
  file->reset();
  EXPECT_EQ(Entries(), 1U);
}

TEST_F(FilesTest, AnOutputThatIsGivenUpLeavesTheOldFile) {
  const fs::path target = folder / "out.txt";
  WriteTestFile(target, "old");
  auto file = files->OpenForWriting(target);
  ASSERT_TRUE(file);
  EXPECT_FALSE((*file)->Write("new"));
  EXPECT_EQ(ReadTestFile(target), "old");
  file->reset();
  EXPECT_EQ(ReadTestFile(target), "old");
  EXPECT_EQ(Entries(), 1U);
}

TEST_F(FilesTest, AnOutputReplacesTheOldFile) {
  const fs::path target = folder / "out.txt";
  WriteTestFile(target, "old and longer");
  auto file = files->OpenForWriting(target);
  ASSERT_TRUE(file);
  EXPECT_TRUE((*file)->Replaces());
  EXPECT_FALSE((*file)->Write("new"));
  EXPECT_FALSE((*file)->Commit());
  EXPECT_FALSE((*file)->Commit()) << "a second time changes nothing";
  EXPECT_EQ(ReadTestFile(target), "new");
}

TEST_F(FilesTest, LibrariesOpenFilesOfAnyName) {
  for (const char* name : {"a.txt", "caf\u00E9", "\u65E5\u672C.txt"}) {
    const std::filesystem::path path = folder / PathFromText(name);
    WriteTestFile(path, "text");
    std::FILE* const file = std::fopen(PathForLibraries(path).c_str(), "rb");
    ASSERT_NE(file, nullptr) << name;
    char content[5] = {};
    EXPECT_EQ(std::fread(content, 1, 4, file), 4u);
    EXPECT_STREQ(content, "text");
    std::fclose(file);
  }
}

TEST_F(FilesTest, AnOutputMayBeEmpty) {
  auto file = files->OpenForWriting(folder / "out.txt");
  ASSERT_TRUE(file);
  EXPECT_FALSE((*file)->Commit());
  EXPECT_TRUE(fs::exists(folder / "out.txt"));
}

TEST_F(FilesTest, AnOutputThatCannotBeIsRefusedAtOnce) {
  WriteTestFile(folder / "a.txt", "words");
  EXPECT_EQ(WriteFault(folder.Path()), FileFault::IsFolder);
  EXPECT_EQ(WriteFault(folder / "missing" / "out.txt"), FileFault::NotFound);
  EXPECT_EQ(WriteFault(folder / "a.txt" / "out.txt"), FileFault::NotAFolder);
  EXPECT_EQ(WriteFault(""), FileFault::NotFound);
  EXPECT_EQ(Entries(), 1U);
}

TEST_F(FilesTest, ListsNamesOfFilesAndSubfolders) {
  WriteTestFile(folder / "a.txt", "words");
  WriteTestFile(folder / "sub" / "b.txt", "words");
  const auto listing = files->ListFolder(folder.Path());
  ASSERT_TRUE(listing);
  EXPECT_THAT(listing->Files, UnorderedElementsAre(fs::path("a.txt")));
  EXPECT_THAT(listing->Subfolders, UnorderedElementsAre(fs::path("sub")));
  EXPECT_EQ(files->ListFolder(folder / "missing").Error().Fault, FileFault::NotFound);
  EXPECT_EQ(files->ListFolder(folder / "a.txt").Error().Fault, FileFault::NotAFolder);
}

TEST_F(FilesTest, CreatesAndRemoves) {
  EXPECT_FALSE(files->CreateFolder(folder / "sub"));
  EXPECT_FALSE(files->CreateFolder(folder / "sub")) << "there already";
  WriteTestFile(folder / "sub" / "a.txt", "words");
  EXPECT_TRUE(files->Remove(folder / "sub")) << "not empty";
  EXPECT_TRUE(files->CreateFolder(folder / "sub" / "a.txt")) << "a file has the name";
  EXPECT_FALSE(files->Remove(folder / "sub" / "a.txt"));
  EXPECT_FALSE(files->Remove(folder / "sub"));
  EXPECT_EQ(files->Remove(folder / "sub")->Fault, FileFault::NotFound);
}

TEST_F(FilesTest, MakesPathsAbsoluteAndPlain) {
  EXPECT_EQ(files->AbsolutePath(folder / "a" / ".." / "." / "b.txt"), folder / "b.txt");
  EXPECT_EQ(files->AbsolutePath(folder / "a" / ""), folder / "a");
  EXPECT_EQ(files->AbsolutePath("x.txt"), fs::current_path() / "x.txt");
  EXPECT_EQ(files->AbsolutePath(fs::current_path().root_path()), fs::current_path().root_path());
  EXPECT_EQ(files->CanonicalPath(folder / "missing" / ".." / "b.txt"),
            fs::canonical(folder.Path()) / "b.txt");
}

TEST_F(FilesTest, SameFileNeedsAFile) {
  WriteTestFile(folder / "a.txt", "words");
  WriteTestFile(folder / "b.txt", "words");
  fs::create_hard_link(folder / "a.txt", folder / "c.txt");
  EXPECT_TRUE(files->SameFile(folder / "a.txt", folder / "a.txt"));
  EXPECT_TRUE(files->SameFile(folder / "a.txt", folder / "c.txt"));
  EXPECT_FALSE(files->SameFile(folder / "a.txt", folder / "b.txt"));
  EXPECT_FALSE(files->SameFile(folder / "a.txt", folder / "missing"));
  EXPECT_FALSE(files->SameFile(folder / "missing", folder / "missing"));
}

TEST(PathText, GoesToPathsAndBack) {
  EXPECT_EQ(PathToText(PathFromText("caf\xC3\xA9/a b.txt")), "caf\xC3\xA9/a b.txt");
  EXPECT_EQ(PathToText(fs::path()), "");
}

struct Utf8Row {
  std::string Text;
  Utf8Kind Kind;
  size_t Length;
};

TEST(Utf8, KnowsWellFormedSequences) {
  using enum Utf8Kind;
  const std::vector<Utf8Row> rows = {
      {"a", WellFormed, 1},
      {std::string(1, '\0'), WellFormed, 1},
      {"\x7F", WellFormed, 1},
      {"\x80", IllFormed, 1},
      {"\xC1\x80", IllFormed, 1},
      {"\xC2\x80", WellFormed, 2},
      {"\xC2\x7F", IllFormed, 1},
      {"\xC2", CutOff, 1},
      {"\xDF\xBF", WellFormed, 2},
      {"\xE0\x9F\xBF", IllFormed, 1},
      {"\xE0\xA0\x80", WellFormed, 3},
      {"\xE2\x82", CutOff, 2},
      {"\xE2\x82"
       "a",
       IllFormed, 2},
      {"\xED\x9F\xBF", WellFormed, 3},
      {"\xED\xA0\x80", IllFormed, 1},
      {"\xEF\xBF\xBF", WellFormed, 3},
      {"\xF0\x8F\xBF\xBF", IllFormed, 1},
      {"\xF0\x90\x80\x80", WellFormed, 4},
      {"\xF0\x90\x80", CutOff, 3},
      {"\xF0\x90\x80"
       "a",
       IllFormed, 3},
      {"\xF4\x8F\xBF\xBF", WellFormed, 4},
      {"\xF4\x90\x80\x80", IllFormed, 1},
      {"\xF5\x80\x80\x80", IllFormed, 1},
      {"\xFF", IllFormed, 1},
  };
  for (const Utf8Row& row : rows) {
    const Utf8Sequence sequence = Utf8SequenceAt(row.Text, 0);
    EXPECT_EQ(sequence.Kind, row.Kind) << testing::PrintToString(row.Text);
    EXPECT_EQ(sequence.Length, row.Length) << testing::PrintToString(row.Text);
  }
  EXPECT_EQ(MendedUtf8("a\xFF"
                       "b\xE2\x82"
                       "c\xC3\xA9\xC3"),
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD"
            "c\xC3\xA9\xEF\xBF\xBD");
}

}  // namespace
}  // namespace korv
