// What became of the files of a finished run.

#include "app/run/changed_sources.h"

#include <gmock/gmock.h>

#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_yielder.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ChangedSourcesOfARun : testing::Test {
  void Counted(const char* path, uint64_t size) {
    CorpusSource source{path, 1, 0, {}};
    source.Origin.Size = size;
    source.Origin.Modified = ModifiedOf(path);
    Text.Sources.push_back(source);
  }
  int64_t ModifiedOf(const char* path) {
    const auto file = Files.OpenForReading(path);
    return file ? (*file)->Modified() : 0;
  }
  ChangedSources Look() {
    ChangedSources sources;
    AddChangedSources(Text, Files, Yielder, sources);
    return sources;
  }

  FakeFiles Files;
  FakeYielder Yielder;
  Corpus Text;
};

TEST_F(ChangedSourcesOfARun, AreNoneWhereNothingHappened) {
  Files.Add("a.txt", "four");
  Counted("a.txt", 4);
  Counted("", 9);
  EXPECT_THAT(Look().Changed, IsEmpty());
  EXPECT_THAT(Look().Gone, IsEmpty());
}

TEST_F(ChangedSourcesOfARun, AreThoseOfAnotherSizeAndThoseThatAreGone) {
  Files.Add("a.txt", "four");
  Files.Add("b.txt", "four");
  Counted("a.txt", 4);
  Counted("b.txt", 5);
  Counted("c.txt", 4);
  EXPECT_THAT(Look().Changed, ElementsAre("b.txt"));
  EXPECT_THAT(Look().Gone, ElementsAre("c.txt"));
}

TEST_F(ChangedSourcesOfARun, AreNamedOnceThoughTwoRunsReadThem) {
  Files.Add("b.txt", "four");
  Counted("b.txt", 5);
  ChangedSources sources;
  AddChangedSources(Text, Files, Yielder, sources);
  AddChangedSources(Text, Files, Yielder, sources);
  EXPECT_THAT(sources.Changed, ElementsAre("b.txt"));
}

}  // namespace
}  // namespace korv
