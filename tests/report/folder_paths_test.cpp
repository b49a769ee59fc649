#include "report/folder_paths.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

TEST(AbbreviatePath, PutsAWordInPlaceOfTheFolder) {
  struct PathCase {
    const char* Path;
    const char* Folder;
    const char* Shown;
  };
  const PathCase cases[] = {
      {"/home/a/texts/one.txt", "/home/a/texts", "{Folder}/one.txt"},
      {"/home/a/texts/sub/one.txt", "/home/a/texts", "{Folder}/sub/one.txt"},
      {"C:\\texts\\one.txt", "C:\\texts", "{Folder}\\one.txt"},
      {"/one.txt", "/", "{Folder}/one.txt"},
      {"C:\\one.txt", "C:\\", "{Folder}\\one.txt"},
      {"/home/a/texts2/one.txt", "/home/a/texts", "/home/a/texts2/one.txt"},
      {"/other/one.txt", "/home", "/other/one.txt"},
      {"one.txt", "", "one.txt"},
      {"./one.txt", ".", "{Folder}/one.txt"},
      {"/home/texts", "/home/texts", "{Folder}"},
  };
  for (const PathCase& c : cases) EXPECT_EQ(AbbreviatePath(c.Path, c.Folder), c.Shown) << c.Path;
}

TEST(AbbreviatePath, ShowsTheFolderOfEveryPathOfAList) {
  const std::filesystem::path folder = "texts";
  EXPECT_EQ(AbbreviatePaths({folder / "é.txt"}, "texts").front().substr(0, 8), "{Folder}");
}

TEST(ShownPath, MendsWhatIsNoText) {
  EXPECT_EQ(ShownPath("caf\xE9/texts"), "caf\uFFFD/texts");
  EXPECT_EQ(ShownPath("café"), "café");
}

}  // namespace
}  // namespace korv
