#include "sources/folders/expand_pattern.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;

FakeFiles Disk() {
  FakeFiles files;
  for (const char* path : {"/t/b.txt", "/t/A.TXT", "/t/c.md", "/t/sub/d.txt", "/t/txt.txt/e.txt"})
    files.Add(path, "words");
  return files;
}

TEST(ExpandPattern, NamesFilesAndSubfoldersByName) {
  FakeFiles files = Disk();
  EXPECT_THAT(ExpandPattern("/t/*.txt", files),
              ElementsAre(Below("/t", "A.TXT"), Below("/t", "b.txt"), Below("/t", "txt.txt")));
  EXPECT_THAT(ExpandPattern("/t/?.md", files), ElementsAre(Below("/t", "c.md")));
  EXPECT_THAT(ExpandPattern("/t/S*", files), ElementsAre(Below("/t", "sub")));
}

TEST(ExpandPattern, LeavesEverythingElseAsItIs) {
  FakeFiles files = Disk();
  for (const char* path : {"/t/b.txt", "/t/*.pdf", "/none/*.txt", "/*/b.txt", "-", "", "/t/"})
    EXPECT_THAT(ExpandPattern(path, files), ElementsAre(path));
}

}  // namespace
}  // namespace korv
