#include "sources/folders/folder_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using Strings = std::vector<std::string>;

template <typename... Names>
Strings In(const Names&... names) {
  return {Below("/in", names)...};
}

class FolderWalkTest : public testing::Test {
 protected:
  Strings Paths(const std::string& folder = "/in", bool subfolders = true, FileSelection selection = {}) {
    FolderWalk walk(files, yielder, std::move(selection), subfolders);
    Strings paths;
    FolderEvents events;
    events.Wanted = [&](const std::filesystem::path& path) { paths.push_back(PathToText(path)); };
    events.Unreadable = [&](const std::filesystem::path& path, const FileError& error) {
      unreadable.push_back(UnreadableFolderText(path, error));
    };
    totals = walk.ProcessFolder(folder, WalkMode::Reading, events);
    EXPECT_EQ(totals.Files, paths.size());
    return paths;
  }

  FakeFiles files;
  NoYielder yielder;
  FolderTotals totals;
  Strings unreadable;
};

TEST_F(FolderWalkTest, GivesFilesByNameThenSubfoldersByName) {
  for (const char* path :
       {"/in/b.txt", "/in/A.txt", "/in/a.txt", "/in/C.txt", "/in/Zoo/x.txt", "/in/apes/z.txt",
        "/in/apes/deep/q.txt", "/in/apes/\xC3\x89.txt", "/in/apes/f.txt", "/in/\xC3\xA9.txt"})
    files.Add(PathFromText(path), "words");
  EXPECT_EQ(Paths(), In("A.txt", "a.txt", "b.txt", "C.txt", "\xC3\xA9.txt", "apes/f.txt", "apes/z.txt",
                        "apes/\xC3\x89.txt", "apes/deep/q.txt", "Zoo/x.txt"));
  EXPECT_EQ(totals.Folders, 4U);
}

TEST_F(FolderWalkTest, WithoutSubfoldersStaysInTheFolder) {
  files.Add("/in/a.txt", "words");
  files.Add("/in/sub/b.txt", "words");
  EXPECT_EQ(Paths("/in", false), In("a.txt"));
  EXPECT_EQ(totals.Folders, 1U);
}

TEST_F(FolderWalkTest, NeverEntersRecycleBinsAndExtractedTexts) {
  for (const char* path :
       {"/in/$RECYCLE.BIN/a.txt", "/in/sub/$Recycle.Bin/a.txt", "/in/my recycle.bin folder/a.txt",
        "/in/extracted_text/a.txt", "/in/sub/Extracted_Text/a.txt", "/in/extracted_texts/a.txt"})
    files.Add(path, "words");
  EXPECT_EQ(Paths(), In("extracted_texts/a.txt"));
  EXPECT_EQ(totals.Folders, 3U);
}

TEST_F(FolderWalkTest, TheChosenFolderIsEnteredWhateverItsName) {
  files.Add("/extracted_text/a.txt", "words");
  EXPECT_EQ(Paths("/extracted_text"), Strings{Below("/extracted_text", "a.txt")});
}

TEST_F(FolderWalkTest, GivesOnlyWantedFiles) {
  files.Add("/in/a.txt", "words");
  files.Add("/in/b.js", "words");
  files.Add("/in/c.md", "words");
  files.Add("/in/d.bak.txt", "words");
  EXPECT_EQ(Paths("/in", true, {{"*.txt", "*.js"}, {"bak"}}), In("a.txt"));
}

TEST_F(FolderWalkTest, AnEmptyFolderHasNoFiles) {
  files.AddFolder("/in");
  EXPECT_EQ(Paths(), Strings{});
  EXPECT_EQ(totals.Folders, 1U);
}

TEST_F(FolderWalkTest, AFolderThatCannotBeReadIsToldOfAndSkipped) {
  files.Add("/in/a.txt", "words");
  files.Add("/in/closed/b.txt", "words");
  files.Add("/in/open/c.txt", "words");
  files.Refuse("/in/closed", FileFault::PermissionDenied);
  EXPECT_EQ(Paths(), In("a.txt", "open/c.txt"));
  EXPECT_EQ(unreadable, Strings{"Folder " + Below("/in", "closed") + " cannot be read (Permission denied)."});
  EXPECT_EQ(totals.Folders, 2U) << "a folder that was not entered is not counted";
}

TEST_F(FolderWalkTest, TellsOfAnUnreadableFolderOnceAlthoughItWalksTwice) {
  files.Add("/in/closed/b.txt", "words");
  files.Refuse("/in/closed", FileFault::PermissionDenied);
  FolderWalk walk(files, yielder, {}, true);
  int told = 0;
  FolderEvents events;
  events.Unreadable = [&](const auto&, const auto&) { ++told; };
  walk.ProcessFolder("/in", WalkMode::Counting, events);
  walk.ProcessFolder("/in", WalkMode::Reading, events);
  EXPECT_EQ(told, 1);
}

TEST_F(FolderWalkTest, AFolderThatVanishesMeanwhileIsToldOf) {
  files.Add("/in/a.txt", "words");
  files.Add("/in/b/b.txt", "words");
  files.Add("/in/c/c.txt", "words");
  files.BeforeListing = [this](const std::filesystem::path& path) {
    if (path == "/in/b") files.Erase("/in/b");
  };
  EXPECT_EQ(Paths(), In("a.txt", "c/c.txt"));
  EXPECT_EQ(unreadable.size(), 1U);
}

TEST_F(FolderWalkTest, CountsBeforeItReads) {
  files.Add("/in/a.txt", "words");
  files.Add("/in/b/b.txt", "words");
  FolderWalk walk(files, yielder, {}, true);
  Strings said;
  FolderEvents events;
  events.Say = [&](const std::string& text) { said.push_back(text); };
  totals = walk.ProcessFolder("/in", WalkMode::Counting, events);
  EXPECT_EQ(totals.Files, 2U);
  EXPECT_EQ(totals.Folders, 2U);
  EXPECT_EQ(said, Strings{"Counting files . . ."});
  said.clear();
  walk.ProcessFolder("/in", WalkMode::Reading, events);
  EXPECT_EQ(said, Strings{});
}

TEST_F(FolderWalkTest, AStopEndsTheCountingWithItsMessage) {
  for (int k = 0; k < 9; ++k) files.Add("/in/" + std::to_string(k) + ".txt", "words");
  files.Add("/in/sub/x.txt", "words");
  FolderWalk walk(files, yielder, {}, true);
  Strings said;
  int wanted = 0;
  FolderEvents events;
  events.Say = [&](const std::string& text) { said.push_back(text); };
  events.Wanted = [&](const auto&) {
    if (++wanted == 4) yielder.RequestStop();
  };
  totals = walk.ProcessFolder("/in", WalkMode::Counting, events);
  EXPECT_TRUE(totals.Stopped);
  EXPECT_EQ(totals.Files, 4U);
  EXPECT_EQ(said, (Strings{"Counting files . . .", "Stopped while counting files (so far: 4)."}));
}

TEST_F(FolderWalkTest, AStopBetweenFilesEndsTheReading) {
  for (int k = 0; k < 9; ++k) files.Add("/in/sub" + std::to_string(k) + "/a.txt", "words");
  FolderWalk walk(files, yielder, {}, true);
  int wanted = 0;
  FolderEvents events;
  events.Wanted = [&](const auto&) {
    if (++wanted == 3) yielder.RequestStop();
  };
  totals = walk.ProcessFolder("/in", WalkMode::Reading, events);
  EXPECT_TRUE(totals.Stopped);
  EXPECT_EQ(wanted, 3);
}

TEST_F(FolderWalkTest, NamesThatAreNoTextAreShownMended) {
  using std::filesystem::path;
  using Unit = path::value_type;
  // A byte that is no UTF-8, or half a character where names are UTF-16.
  constexpr auto kNoText = static_cast<Unit>(sizeof(Unit) == 1 ? 0xFF : 0xD800);
  files.Add(path("/in/bad").concat(path::string_type(1, kNoText)).concat("name.txt"), "words");
  EXPECT_EQ(Paths(), In("bad\xEF\xBF\xBDname.txt"));
}

TEST_F(FolderWalkTest, ListFilesAbbreviatesTheFolder) {
  files.Add("/in/b.txt", "words");
  files.Add("/in/a b.txt", "words");
  files.Add("/in/sub/c.txt", "words");
  FolderWalk walk(files, yielder, {}, true);
  std::string listing;
  totals = ListFiles(walk, "/in", {}, [&](const std::string& line) { listing += line; });
  EXPECT_EQ(listing, WithNativePaths(
                         "{Folder} = /in\r\n{Folder}/a b.txt\r\n{Folder}/b.txt\r\n{Folder}/sub/c.txt\r\n"));
  EXPECT_EQ(totals.Files, 3U);
}

TEST(FolderTexts, PutAWordInPlaceOfTheFolder) {
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"texts/a.txt", "texts", "{Folder}/a.txt"},
      {"/a.txt", "/", "{Folder}/a.txt"},
      {"C:\\a.txt", "C:\\", "{Folder}\\a.txt"},
      {"/other/a.txt", "/in", "/other/a.txt"},
  };
  for (const auto& [path, folder, shown] : cases) EXPECT_EQ(FolderAbbreviated(path, folder), shown);
}

TEST(FolderTexts, AnnounceTheFiles) {
  const NumberFormat format;
  EXPECT_EQ(WillBeScannedText(0, format), "No files will be scanned.");
  EXPECT_EQ(WillBeScannedText(1, format), "1 file will be scanned.");
  EXPECT_EQ(WillBeScannedText(1234, format), "1,234 files will be scanned.");
}

}  // namespace
}  // namespace korv
