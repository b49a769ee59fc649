#include "sources/read/read_plan.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "sources/read/document_readers.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_yielder.h"

namespace korv {
namespace {

struct PlanWorld {
  FakeFiles Files;
  FakeYielder Yielder;
  ReadPlan Planned;

  FolderTotals Plan(FileSelection selection, const FolderEvents& events = {}) {
    FolderWalk walk(Files, Yielder, std::move(selection), true);
    return Planned.AddFolder(walk, PathFromText("/t"), events);
  }
  /// "0 /t/a.txt, 2 /t/x/b.txt": the index of its folder and the path of each document.
  std::string Documents() const {
    std::string text;
    for (size_t i = 0; i < Planned.Documents(); ++i) {
      const PlannedDocument document = Planned.Document(i);
      text += (i == 0 ? "" : ", ") + std::to_string(document.Folder) + " " + document.Path.generic_string();
    }
    return text;
  }
};

TEST(ReadPlan, HoldsTheWantedFilesInOrderWithTheirFolders) {
  PlanWorld world;
  for (const char* path : {"/t/b.txt", "/t/a.txt", "/t/x/c.txt", "/t/m/e/d.txt", "/t/n/f.dat"})
    world.Files.Add(path, "words");
  const FolderTotals found = world.Plan({.Patterns = {"*.txt"}, .Exclusions = {}});
  EXPECT_EQ(found.Files, 4u);
  EXPECT_EQ(world.Documents(), "0 /t/a.txt, 0 /t/b.txt, 2 /t/m/e/d.txt, 4 /t/x/c.txt");
  EXPECT_EQ(world.Planned.Folders(), 5u) << "those without wanted files too";
}

TEST(ReadPlan, HoldsASingleFileByAnyPath) {
  for (const char* path : {"a.txt", "/x/a.txt", "x//./a.txt"}) {
    ReadPlan plan;
    plan.AddFile(PathFromText(path));
    EXPECT_EQ(plan.Documents(), 1u);
    EXPECT_EQ(plan.Document(0).Path, PathFromText(path));
    EXPECT_FALSE(plan.HasProgramComments());
  }
}

TEST(ReadPlan, TellsOfTheWalkAsItGoesOn) {
  PlanWorld world;
  world.Files.Add("/t/a.txt", "words");
  world.Files.Add("/t/x/b.txt", "words");
  std::string told;
  FolderEvents events;
  events.Wanted = [&](const std::filesystem::path& path) { told += "file " + path.generic_string() + ";"; };
  events.Entered = [&](const std::filesystem::path& path) {
    told += "folder " + path.generic_string() + ";";
  };
  world.Plan({}, events);
  EXPECT_EQ(told, "folder /t;file /t/a.txt;folder /t/x;file /t/x/b.txt;");
}

TEST(ReadPlan, KnowsWhetherCommentsOfProgramsCanOccur) {
  struct Row {
    const char* Path;
    bool Comments;
  };
  for (const Row& row : {Row{"/t/a.txt", false},
                         {"/t/a.html", false},
                         {"/t/a.docx", false},
                         {"/t/a.C", true},
                         {"/t/a.cpp", true},
                         {"/t/a.php", true},
                         {"/t/a.h", false}}) {
    ReadPlan plan;
    plan.AddFile(PathFromText("/t/first.txt"));
    plan.AddFile(PathFromText(row.Path));
    EXPECT_EQ(plan.HasProgramComments(), row.Comments) << row.Path;
  }
}

TEST(ReadPlan, ChoosesTheReaderByTheName) {
  ReadPlan plan;
  for (const char* name : {"a.txt", "b.html", "c.docx", "d.c"}) plan.AddFile(PathFromText(name));
  for (size_t i = 0; i < plan.Documents(); ++i)
    EXPECT_EQ(plan.Document(i).Reader, &ReaderOfName(plan.Document(i).Path));
}

}  // namespace
}  // namespace korv
