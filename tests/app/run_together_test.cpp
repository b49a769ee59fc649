// Several files and folders that are counted together.

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "app/run/run.h"
#include "app/run/run_changes.h"
#include "tests/app/run_texts.h"
#include "tests/app/run_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Kind = SourcePath::Kind;

std::vector<std::string> Skipped(const RunWorld& world) {
  std::vector<std::string> skipped;
  for (const SkippedFile& file : world.Run.Facts.SkippedFiles)
    skipped.push_back(file.Path + ": " + file.Reason);
  return skipped;
}

struct TogetherWorld : RunWorld {
  explicit TogetherWorld(std::vector<SourcePath> paths) {
    Files.Add("/t/a.txt", "the big cat");
    Files.Add("/t/b.txt", "the big cat");
    Files.Add("/u/c.txt", "the big dog");
    Files.Add("/u/page.js", "the big dog");
    UseFolder("/elsewhere");
    UseLengths(2, 3);
    Request.Paths = std::move(paths);
  }
};

TEST(RunTogether, CountsFilesAndFoldersLikeTheFilesOfOneFolder) {
  TogetherWorld world({{"/u/page.js", Kind::File}, {"/t", Kind::Folder}, {"/t/b.txt", Kind::File}});
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Listed(), "3 the big, 2 the big cat");
  const RunSummary& facts = world.Run.Facts;
  EXPECT_EQ(facts.Paths, world.Request.Paths);
  EXPECT_EQ(facts.InputPath, "");
  EXPECT_EQ(facts.FilesScanned, 3u);
  EXPECT_EQ(facts.FoldersScanned, 2u);
  EXPECT_THAT(world.View.InputFiles, ElementsAre("/u/page.js", Below("/t", "a.txt"), Below("/t", "b.txt")));
  EXPECT_THAT(world.View.Statuses, testing::Contains("3 files will be scanned."));
  EXPECT_THAT(world.Messages.Shown, IsEmpty());
}

TEST(RunTogether, PatternsAndRefusedExtensionsHoldForFoldersAlone) {
  TogetherWorld world({{"/u/page.js", Kind::File}, {"/u/c.txt", Kind::File}, {"/t", Kind::Folder}});
  world.Request.Selection.Patterns = {"a*"};
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Run.Facts.FilesScanned, 3u);
}

TEST(RunTogether, WhatCannotBeReadIsSkippedWithItsReason) {
  TogetherWorld world({{"/none.txt", Kind::File},
                       {"/u/c.txt", Kind::File},
                       {"/empty.txt", Kind::File},
                       {"/t", Kind::Folder},
                       {"/gone", Kind::Folder}});
  world.Files.Add("/empty.txt", "");
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_THAT(Skipped(world), ElementsAre("/none.txt: does not exist", "/empty.txt: is zero-length"));
  EXPECT_THAT(world.Run.Facts.Notices, ElementsAre(HasSubstr("Folder /gone cannot be read")));
  EXPECT_EQ(world.Run.Facts.FilesScanned, 3u);
  EXPECT_EQ(world.Run.Facts.FoldersScanned, 3u) << "/u, / and /t";
}

TEST(RunTogether, RefusesWhereNothingCanBeRead) {
  TogetherWorld world({{"/none.txt", Kind::File}, {"/empty.txt", Kind::File}});
  world.Files.Add("/empty.txt", "");
  EXPECT_EQ(world.Count(), RunEnd::Refused);
  EXPECT_EQ(world.Messages.Only().Text, "None of the files could be counted.");
  EXPECT_EQ(world.Messages.Only().Addition,
            "2 files were skipped:\n/none.txt: does not exist\n/empty.txt: is zero-length");
  EXPECT_EQ(world.Messages.Only().Icon, Icon::Exclamation);
}

TEST(RunTogether, NamesTheFirstTenOfManyFilesThatCannotBeRead) {
  std::vector<SourcePath> paths;
  for (int k = 0; k < 13; ++k) paths.push_back({"/none" + std::to_string(k), Kind::File});
  TogetherWorld world(paths);
  EXPECT_EQ(world.Count(), RunEnd::Refused);
  const std::string& said = world.Messages.Only().Addition;
  EXPECT_THAT(said, testing::StartsWith("13 files were skipped:\n/none0: "));
  EXPECT_THAT(said, testing::EndsWith("/none9: does not exist\nand 3 more"));
}

TEST(RunTogether, RefusesFoldersWithoutAWantedFile) {
  TogetherWorld world({{"/t", Kind::Folder}, {"/u", Kind::Folder}});
  world.Request.Selection.Patterns = {"*.xyz"};
  EXPECT_EQ(world.Count(), RunEnd::Refused);
  EXPECT_EQ(world.Messages.Only().Text, "No scanable files as specified *.xyz were found in these folders.");
}

TEST(RunTogether, RefusesAnOutputFileAmongTheSources) {
  struct Case {
    const char* Output;
    const char* Text;
  };
  for (const Case& c : {Case{"/t/a.txt", "The output file cannot be the same as the input file."},
                        {"/u/out.txt", "The output file cannot be in the folder or a subfolder."}}) {
    TogetherWorld world({{"/t/a.txt", Kind::File}, {"/u", Kind::Folder}});
    world.Request.OutputPath = c.Output;
    EXPECT_EQ(world.Count(), RunEnd::Refused);
    EXPECT_EQ(world.Messages.Only().Text, c.Text);
  }
  TogetherWorld world({{"/t/a.txt", Kind::File}, {"/u", Kind::Folder}});
  world.Request.OutputPath = "/t/out.txt";
  EXPECT_EQ(world.Count(), RunEnd::Counted) << "beside a named file";
}

TEST(RunTogether, WantsAnOutputFileAsFoldersDo) {
  TogetherWorld world({{"/t/a.txt", Kind::File}, {"/u/c.txt", Kind::File}});
  world.Request.SeveralFilesNeedOutput = true;
  EXPECT_EQ(world.Count(), RunEnd::Refused);
  EXPECT_EQ(world.Messages.Only().Title, "Multiple files/folders");
}

TEST(RunTogether, StandardInputIsOneOfTheTexts) {
  TogetherWorld world({{"/t/a.txt", Kind::File}, {"-", Kind::StandardInput}, {"/u/c.txt", Kind::File}});
  FakeStream stream("the big cat and the big dog");
  world.Request.Stream = &stream;
  world.Request.Options.KeepPlaces = true;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Listed(), "4 the big, 2 the big cat, 2 the big dog");
  EXPECT_EQ(world.Run.Facts.FilesScanned, 3u);
  EXPECT_EQ(world.Run.Facts.FoldersScanned, 2u);
  EXPECT_EQ(world.Run.KeptText, "the big cat and the big dog");
  EXPECT_EQ(world.Run.Table.Corpus().Sources[1].Path, "");
}

TEST(RunTogether, StandardInputWithoutATextIsSkipped) {
  for (const auto& [bytes, reason] : {std::pair<std::string, const char*>{"", "-: is zero-length"},
                                      {std::string(50, '\x02'), "-: is not a text file"}}) {
    TogetherWorld world({{"-", Kind::StandardInput}, {"/t/a.txt", Kind::File}});
    FakeStream stream(bytes);
    world.Request.Stream = &stream;
    EXPECT_EQ(world.Count(), RunEnd::Counted);
    EXPECT_THAT(Skipped(world), ElementsAre(reason));
  }
  TogetherWorld world({{"-", Kind::StandardInput}, {"/t/a.txt", Kind::File}});
  FakeStream stream("some words");
  stream.Fail = true;
  world.Request.Stream = &stream;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_THAT(Skipped(world), ElementsAre("-: cannot be opened"));
}

TEST(RunTogether, OtherPathsAreAnotherSource) {
  const TogetherWorld world({{"/t/a.txt", Kind::File}});
  RunRequest other = world.Request;
  EXPECT_FALSE(ChangesBetween(world.Request, other).Source);
  other.InputPath = "/what/is/not/counted";
  EXPECT_FALSE(ChangesBetween(world.Request, other).Source);
  other.Paths.front().What = Kind::Folder;
  EXPECT_TRUE(ChangesBetween(world.Request, other).Source);
  other.Paths.clear();
  EXPECT_TRUE(ChangesBetween(world.Request, other).Source);
}

}  // namespace
}  // namespace korv
