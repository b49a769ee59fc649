#include "app/run/run.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "report/summary.h"
#include "tests/app/run_texts.h"
#include "tests/app/run_world.h"
#include "tests/fakes/chosen_threads.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(RunCount, CountsAFolderInItsOrderAndSkipsWhatCannotBeRead) {
  RunWorld world;
  world.Files.Add("/t/b.txt", "the big cat");
  world.Files.Add("/t/A.txt", "the big dog");
  world.Files.Add("/t/empty.txt", "");
  world.Files.Add("/t/tiny.txt", "abc");
  world.Files.Add("/t/binary.txt", std::string(50, '\x02'));
  world.Files.Add("/t/rich.txt", "{\\rtf1 words and more");
  world.Files.Add("/t/broken.docx", "PK" + std::string(100, 'x'));
  world.Files.Add("/t/page.js", "the big script");
  world.Files.Add("/t/sub/c.txt", "the big cat");
  world.UseFolder("/t/");
  world.UseLengths(2, 3);
  world.Request.IncludeSubfolders = true;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Listed(), "3 the big, 2 the big cat");
  const RunSummary& facts = world.Run.Facts;
  EXPECT_EQ(facts.InputPath, "/t");
  EXPECT_EQ(facts.FilesScanned, 3u);
  EXPECT_EQ(facts.FoldersScanned, 2u);
  EXPECT_TRUE(facts.IncludeSubfolders);
  std::vector<std::string> skipped;
  for (const SkippedFile& file : facts.SkippedFiles) skipped.push_back(file.Path + ": " + file.Reason);
  EXPECT_THAT(skipped, ElementsAre(Below("/t", "binary.txt") + ": is not a text file",
                                   Below("/t", "broken.docx") + ": is not a readable .docx file",
                                   Below("/t", "empty.txt") + ": is zero-length",
                                   Below("/t", "rich.txt") + ": is an RTF file",
                                   Below("/t", "tiny.txt") + ": contains only from 1 to 4 bytes"));
  EXPECT_THAT(world.View.InputFiles,
              ElementsAre(Below("/t", "A.txt"), Below("/t", "b.txt"), Below("/t", "binary.txt"),
                          Below("/t", "broken.docx"), Below("/t", "empty.txt"), Below("/t", "rich.txt"),
                          Below("/t", "tiny.txt"), Below("/t", "sub/c.txt")));
  EXPECT_THAT(world.View.Statuses, Contains("Counting files . . ."));
  EXPECT_THAT(world.View.Statuses, Contains("8 files will be scanned."));
  EXPECT_EQ(world.Messages.Only().Title, "Error");  // The broken document.
  EXPECT_TRUE(world.Messages.Only().Text.ends_with(" when processing broken.docx"));
}

TEST(RunCount, GivesTheSameOfAFolderWithAnyNumberOfThreads) {
  std::vector<std::string> results;
  for (const size_t threads : {size_t{1}, size_t{2}, size_t{3}, size_t{16}}) {
    RunWorld world;
    std::string all;
    for (int i = 0; i < 200; ++i) {
      const std::string name = "/t/" + std::to_string(i);
      if (i % 10 == 3)
        world.Files.Add(name + ".docx", "PK" + std::string(100, 'x'));
      else if (i % 10 == 7)
        world.Files.Add(name + ".txt", std::string(static_cast<size_t>(i % 3), 'x'));
      else if (i % 50 == 5)
        world.Files.Add(name + ".txt", ManyPhrases(100000));
      else
        world.Files.Add(name + ".txt",
                        "the big caf\xC3\xA9 number " + std::to_string(i) + " and the big cat");
    }
    world.UseFolder("/t/");
    world.UseLengths(2, 4);
    WithThreads<> yielder(threads);
    EXPECT_EQ(world.CountWith(yielder), RunEnd::Counted);
    all += world.Listed() + "\n";
    for (const SkippedFile& file : world.Run.Facts.SkippedFiles) all += file.Path + ": " + file.Reason + "\n";
    for (const std::string& file : world.View.InputFiles) all += file + " ";
    for (const Message& message : world.Messages.Shown) all += message.Text + "\n";
    all += std::to_string(world.Run.Facts.Words.Taken) + " " + std::to_string(world.Run.Facts.FilesScanned);
    results.push_back(all);
    EXPECT_TRUE(world.Files.TemporaryIsClean());
  }
  for (const std::string& result : results) EXPECT_EQ(result, results.front());
  EXPECT_THAT(results.front(), testing::HasSubstr("the big cat"));
}

TEST(RunCount, TellsOfTheFirstBrokenDocumentOfAFolderAndListsAll) {
  RunWorld world;
  world.Files.Add("/t/1.docx", "PK" + std::string(100, 'x'));
  world.Files.Add("/t/2.docx", Document("market.docx").substr(0, 300));
  world.Files.Add("/t/3.docx", Document("market.docx"));
  world.Files.Add("/t/4.docx", "PK" + std::string(100, 'y'));
  world.UseFolder("/t");
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Messages.Only().Text, "Not a readable .docx file when processing 1.docx");
  EXPECT_EQ(world.Messages.Only().Title, "Error");
  std::vector<std::string> skipped;
  for (const SkippedFile& file : world.Run.Facts.SkippedFiles)
    skipped.push_back(file.Path + ": " + file.Reason);
  EXPECT_THAT(skipped, ElementsAre(Below("/t", "1.docx") + ": is not a readable .docx file",
                                   Below("/t", "2.docx") + ": is not a readable .docx file",
                                   Below("/t", "4.docx") + ": is not a readable .docx file"));
  EXPECT_EQ(world.Run.Facts.FilesScanned, 1u);

  world.Messages.Forget();
  world.Count();
  EXPECT_EQ(world.Messages.Shown.size(), 1u) << "the next run tells again";
}

TEST(RunCount, WithoutATemporaryFolderAFolderOfDocumentsTellsItOnce) {
  RunWorld world;
  for (const char* name : {"/t/1.docx", "/t/2.docx", "/t/3.docx"})
    world.Files.Add(name, Document("market.docx"));
  world.Files.Refuse("/tmp", FileFault::NoSpace);
  world.UseFolder("/t");
  world.Count();
  EXPECT_EQ(world.Messages.Only().Text, "Unable to create temporary folder when processing 1.docx");
  EXPECT_EQ(world.Run.Facts.SkippedFiles.size(), 3u);
}

TEST(RunCount, TellsOnceThatExtractedTextsCannotBeWritten) {
  RunWorld world;
  for (const char* name : {"/t/1.docx", "/t/2.docx"}) world.Files.Add(name, Document("market.docx"));
  world.Files.Refuse("/t/extracted_text", FileFault::PermissionDenied);
  world.UseFolder("/t");
  world.Request.ExtractTextFromDocx = true;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.Messages.Shown.size(), 1u);
  EXPECT_EQ(world.Run.Facts.FilesScanned, 2u);
  EXPECT_THAT(
      world.Run.Facts.Notices,
      ElementsAre(AllOf(testing::StartsWith("The text of " + Below("/t", "2.docx") + " was not written ("),
                        testing::EndsWith(")."))));
}

TEST(RunCount, TellsOfEachFileOfAFolderWhatItTellsOfASingleOne) {
  RunWorld world;
  world.Files.Add("/t/a.txt", "the big cat");
  world.Files.Add("/t/b.html", "<p>the big cat</p>");
  world.Files.Add("/t/empty.txt", "");
  world.Files.Add("/t/sub/c.txt", "\xEF\xBB\xBFthe big cat sat");
  world.UseFolder("/t");
  world.Request.IncludeSubfolders = true;
  std::vector<std::string> moments;
  world.Yielder.OnTurn = [&] {
    if (!world.Progress.CountingFiles)
      moments.push_back(ProgressCountText(world.Progress.FilesRead, world.Progress.FoldersRead));
  };
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_THAT(world.View.ShownSizes,
              ElementsAre("Filesize: 11 bytes|", "Filesize: 18 bytes|", "Filesize: 18 bytes|Text: 11 bytes",
                          "Filesize: 0 bytes|", "Filesize: 18 bytes|"));
  EXPECT_THAT(world.View.FileKinds, ElementsAre("", "", "This is a UTF8 file."));
  for (const char* moment : {"0 files in 1 folder", "1 file in 1 folder", "3 files in 2 folders"})
    EXPECT_THAT(moments, Contains(moment));
  EXPECT_EQ(moments.back(), "4 files in 2 folders");
}

TEST(RunCount, NoFailureOfTheDiskLosesWordsOfAFolderInSilence) {
  const auto fill = [](RunWorld& world) {
    world.Files.Add("/t/a.txt", ManyPhrases(20000));
    world.Files.Add("/t/b.txt", "the big cat");
    world.Files.Add("/t/sub/c.txt", "the big dog");
    world.UseFolder("/t");
    world.Request.IncludeSubfolders = true;
  };
  RunWorld whole;
  fill(whole);
  ASSERT_EQ(whole.Count(), RunEnd::Counted);
  bool readInPart = false;
  for (int call = 1;; ++call) {
    RunWorld world;
    fill(world);
    world.Files.FailCall(call);
    const RunEnd end = world.Count();
    if (!world.Files.FailureHappened()) break;
    const RunSummary& facts = world.Run.Facts;
    if (end != RunEnd::Counted) {
      // Only what is wrong with the chosen folder itself ends the run.
      EXPECT_EQ(end, RunEnd::Refused) << call;
      EXPECT_LE(call, 2);
      EXPECT_EQ(world.Messages.Shown.size(), 1u) << call;
    } else if (facts.Words.Taken != whole.Run.Facts.Words.Taken) {
      EXPECT_EQ(facts.SkippedFiles.size() + facts.Notices.size(), 1u) << call;
    }
    for (const std::string& notice : facts.Notices)
      readInPart = readInPart ||
                   notice == "File " + Below("/t", "a.txt") + " was read only in part (Input/output error).";
  }
  EXPECT_TRUE(readInPart);
}

TEST(RunCount, RefusesFoldersThatCannotBeCounted) {
  struct Case {
    const char* Folder;
    const char* Output;
    const char* Pattern;
    bool Subfolders;
    const char* Text;
    const char* Title;
  };
  for (const Case c :
       {Case{"", "", "", false, "Folder not specified.", "Error"},
        {"/none", "", "", false, "Folder does not exist", "Invalid input"},
        {"/outer", "", "", true, "Folder contains no files.", "Nothing to do"},
        {"/t", "/t/out.txt", "", false, "The output file cannot be in the folder or a subfolder.",
         "Invalid output file"},
        {"/t", "/t2/out.txt", "", true, "The output file cannot be in the folder or a subfolder.",
         "Invalid output file"},
        {"/t", "", "a<b", false, "File pattern 'a<b' contains an invalid character.", "Invalid input"},
        {"/t", "", "*.xyz", false, "No scanable files as specified *.xyz were found in this folder.",
         "No files found"},
        {"/t", "", "*.xyz", true,
         "No scanable files as specified *.xyz were found in this folder or in its subfolders.",
         "No files found"},
        {"/scripts", "", "", false, "No scanable files were found in this folder.", "No files found"}}) {
    RunWorld world;
    world.Files.Add("/t/a.txt", kText);
    world.Files.Add("/t2/a.txt", kText);
    world.Files.Add("/outer/inner/a.txt", kText);
    world.Files.Add("/scripts/a.js", kText);
    world.UseFolder(c.Folder);
    world.Request.OutputPath = c.Output;
    world.Request.Selection.Patterns = SplitPatterns(c.Pattern);
    world.Request.IncludeSubfolders = c.Subfolders;
    EXPECT_EQ(world.Count(), RunEnd::Refused) << c.Text;
    EXPECT_EQ(world.Messages.Only().Text, c.Text);
    EXPECT_EQ(world.Messages.Only().Title, c.Title);
  }
}

TEST(RunCount, WantsAnOutputFileForSeveralFilesWhereTheTextBoxIsSmall) {
  for (const int fileCount : {1, 2})
    for (const bool needed : {false, true})
      for (const char* output : {"", "/out.txt"}) {
        RunWorld world;
        for (int k = 0; k < fileCount; ++k) world.Files.Add("/t/" + std::to_string(k) + ".txt", kText);
        world.UseFolder("/t");
        world.Request.SeveralFilesNeedOutput = needed;
        world.Request.OutputPath = output;
        const bool refused = fileCount > 1 && needed && !*output;
        EXPECT_EQ(world.Count(), refused ? RunEnd::Refused : RunEnd::Counted);
        if (refused) {
          EXPECT_EQ(world.Messages.Only().Title, "Multiple files/folders");
        }
      }
}

TEST(RunCount, ChecksCommentMarkersOnceForAFolderWithACFile) {
  RunWorld world;
  world.Files.Add("/t/a.c", "words in here");
  world.Files.Add("/t/b.c", "words in here");
  world.Files.Add("/t/c.txt", "words in here");
  world.UseFolder("/t");
  world.Request.Rules.AllowForwardslashes = true;
  EXPECT_EQ(world.Count(), RunEnd::Refused);
  EXPECT_EQ(world.Messages.Only().Title, "Error");
  world.Messages.Forget();
  world.Request.Selection.Patterns = {"*.txt"};
  EXPECT_EQ(world.Count(), RunEnd::Counted);
}

TEST(RunCount, AsksOncePerFolderRunWhetherTextIsUtf8) {
  RunWorld world;
  world.Files.Add("/t/a.txt", "größer als größer");
  world.Files.Add("/t/b.txt", "größer als größer");
  world.UseFolder("/t");
  world.Count();
  EXPECT_EQ(world.Messages.Shown.size(), 1u);
  world.Count();
  EXPECT_EQ(world.Messages.Shown.size(), 2u);
}

TEST(RunCount, TellsOnceOfAFolderThatCannotBeRead) {
  RunWorld world;
  world.Files.Add("/t/a.txt", kText);
  world.Files.Add("/t/locked/b.txt", kText);
  world.Files.Refuse("/t/locked", FileFault::PermissionDenied);
  world.UseFolder("/t");
  world.Request.IncludeSubfolders = true;
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_EQ(world.View.Notices.size(), 1u);
  EXPECT_EQ(world.Run.Facts.FoldersScanned, 1u);
}

TEST(RunCount, NothingOfAnEarlierRunIsLeft) {
  RunWorld world;
  world.Files.Add("/t/empty.txt", "");
  world.Files.Add("/t/a.txt", kText);
  world.UseFolder("/t");
  world.Count();
  EXPECT_EQ(world.Run.Facts.SkippedFiles.size(), 1u);
  world.UseFile("/b.txt", "other words entirely");
  world.UseLengths(2, 2, 1);
  EXPECT_EQ(world.Count(), RunEnd::Counted);
  EXPECT_THAT(world.Run.Facts.SkippedFiles, IsEmpty());
  EXPECT_EQ(world.Run.Facts.FilesScanned, 0u);
  EXPECT_EQ(world.Listed(), "1 other words, 1 words entirely");
}

}  // namespace
}  // namespace korv
