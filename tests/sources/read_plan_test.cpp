#include "sources/read/read_plan.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

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
  /// Plans several paths; those that end in "/" are folders.
  bool PlanTogether(const std::vector<std::string>& paths, bool subfolders = true) {
    std::vector<SourcePath> sources;
    for (const std::string& path : paths) {
      using Kind = SourcePath::Kind;
      const bool folder = path.ends_with('/');
      sources.push_back({folder ? path.substr(0, path.size() - 1) : path, path == "-" ? Kind::StandardInput
                                                                          : folder    ? Kind::Folder
                                                                                      : Kind::File});
    }
    FolderWalk walk(Files, Yielder, Selection, subfolders);
    return Planned.AddTogether(sources, Files, walk, Events);
  }

  FileSelection Selection;
  FolderEvents Events;

  /// "1 /t/a.txt, 3 /t/x/b.txt": how many folders were met by then, and the path of each document.
  std::string Documents() const {
    std::string text;
    for (size_t i = 0; i < Planned.Documents(); ++i) {
      const PlannedDocument document = Planned.Document(i);
      text += (i == 0 ? "" : ", ") + std::to_string(document.Folders) + " " + document.Path.generic_string();
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
  EXPECT_EQ(world.Documents(), "1 /t/a.txt, 1 /t/b.txt, 3 /t/m/e/d.txt, 5 /t/x/c.txt");
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

TEST(ReadPlan, ReadsTextsAsItIsTold) {
  ReadPlan plan("php");
  for (const char* name : {"a.txt", "b", "d.docx"}) plan.AddFile(PathFromText(name));
  EXPECT_TRUE(plan.HasProgramComments());
  EXPECT_EQ(plan.Document(0).Reader, &ReaderOfName("x.php"));
  EXPECT_EQ(plan.Document(1).Reader, &ReaderOfName("x.php"));
  EXPECT_EQ(plan.Document(2).Reader, &ReaderOfName("x.docx")) << "a document is what it is";
  EXPECT_EQ(&ReaderOfName("page.html", "txt"), &ReaderOfName("x.txt"));
  EXPECT_EQ(MarkersOfFile("notes.md", "html").Language, MarkupLanguage::Html);
  EXPECT_EQ(MarkersOfFile({}, "xml").Language, MarkupLanguage::Xml);
  EXPECT_EQ(MarkersOfFile("page.html", "txt").Language, MarkupLanguage::None);
}

TEST(ReadPlan, ChoosesTheReaderByTheName) {
  ReadPlan plan;
  for (const char* name : {"a.txt", "b.html", "c.docx", "d.c"}) plan.AddFile(PathFromText(name));
  for (size_t i = 0; i < plan.Documents(); ++i)
    EXPECT_EQ(plan.Document(i).Reader, &ReaderOfName(plan.Document(i).Path));
}

TEST(ReadPlan, HoldsSeveralPathsInTheirOrderEachFileAndFolderOnce) {
  struct Row {
    std::vector<std::string> Paths;
    const char* Documents;
    size_t Folders;
  };
  for (const Row& row : {Row{{"/t/b.txt", "/t/a.txt"}, "1 /t/b.txt, 1 /t/a.txt", 1},
                         {{"/t/b.txt", "/u/c.txt", "/t/a.txt"}, "1 /t/b.txt, 2 /u/c.txt, 2 /t/a.txt", 2},
                         {{"/t/b.txt", "/t/b.txt"}, "1 /t/b.txt", 1},
                         {{"/t/b.txt", "/link/b.txt"}, "1 /t/b.txt", 1},
                         {{"/link/b.txt", "/t/b.txt"}, "1 /link/b.txt", 1},
                         {{"/t/b.txt", "/t/"}, "1 /t/b.txt, 1 /t/a.txt, 2 /t/x/d.txt", 2},
                         {{"/t/", "/t/b.txt"}, "1 /t/a.txt, 1 /t/b.txt, 2 /t/x/d.txt", 2},
                         {{"/t/x/", "/t/", "/u/"}, "1 /t/x/d.txt, 2 /t/a.txt, 2 /t/b.txt, 3 /u/c.txt", 3},
                         {{"/link/", "/t/"}, "1 /link/a.txt, 1 /link/b.txt, 2 /link/x/d.txt", 2},
                         {{"/u/e.js"}, "1 /u/e.js", 1},
                         {{"/u/", "/u/e.js", "/u/f.dat"}, "1 /u/c.txt, 1 /u/e.js, 1 /u/f.dat", 1},
                         {{"-"}, "0 ", 0},
                         {{"/t/a.txt", "-", "/u/c.txt"}, "1 /t/a.txt, 1 , 2 /u/c.txt", 2},
                         {{"/none.txt", "/t/a.txt"}, "0 /none.txt, 1 /t/a.txt", 1},
                         {{"/empty/", "/t/a.txt"}, "2 /t/a.txt", 2},
                         {{}, "", 0}}) {
    PlanWorld world;
    for (const char* path : {"/t/b.txt", "/t/a.txt", "/t/x/d.txt", "/u/c.txt", "/u/e.js", "/u/f.dat"})
      world.Files.Add(path, "words");
    world.Files.AddFolder("/empty");
    for (const char* name : {"a.txt", "b.txt", "x/d.txt"})
      world.Files.AddAlias(std::filesystem::path("/link") / name, std::filesystem::path("/t") / name);
    world.Files.AddFolderLink("/link", "/t");
    world.Selection.Patterns = {"*.txt"};
    EXPECT_TRUE(world.PlanTogether(row.Paths));
    EXPECT_EQ(world.Documents(), row.Documents);
    EXPECT_EQ(world.Planned.Folders(), row.Folders) << row.Documents;
  }
}

TEST(ReadPlan, TwoNamesInAFolderAreTwoFilesAlsoWhereOneIsALink) {
  PlanWorld world;
  world.Files.Add("/t/a.txt", "words");
  world.Files.AddAlias("/t/link.txt", "/t/a.txt");
  world.PlanTogether({"/t/a.txt", "/t/link.txt"});
  EXPECT_EQ(world.Documents(), "1 /t/a.txt, 1 /t/link.txt") << "as a walk has it";
}

TEST(ReadPlan, NamesThatDifferInCaseAreOneFileWhereTheDiskSaysSo) {
  PlanWorld world;
  world.Files.Add("/t/a.txt", "words");
  world.Files.AddAlias("/t/A.TXT", "/t/a.txt");
  world.Files.Add("/u/b.txt", "words");
  world.Files.Add("/u/B.txt", "other words");
  world.PlanTogether({"/t/A.TXT", "/t/a.txt", "/u/b.txt", "/u/B.txt"});
  EXPECT_EQ(world.Documents(), "1 /t/A.TXT, 2 /u/b.txt, 2 /u/B.txt");
}

TEST(ReadPlan, TellsOfEachDocumentOnceAndEndsWhereItIsStopped) {
  PlanWorld world;
  for (const char* path : {"/t/a.txt", "/t/b.txt", "/u/c.txt"}) world.Files.Add(path, "words");
  std::string told;
  world.Events.Wanted = [&](const std::filesystem::path& path) { told += path.generic_string() + ";"; };
  EXPECT_TRUE(world.PlanTogether({"/t/b.txt", "/t/", "/t/b.txt", "-"}));
  EXPECT_EQ(told, "/t/b.txt;/t/a.txt;-;");
  world.Yielder.RequestStop();
  EXPECT_FALSE(world.PlanTogether({"/u/"}));
}

}  // namespace
}  // namespace korv
