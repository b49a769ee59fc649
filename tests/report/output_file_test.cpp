#include "report/output_file.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <utility>

#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_text_box.h"
#include "tests/fakes/fake_yielder.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

class AdviceTexts final : public ProgramText {
 public:
  std::string Get(int number) const override { return number == 92 ? "Start again." : ""; }
};

struct FileListing : testing::Test {
  FileListResult List(const std::filesystem::path& path) {
    NoYielder yielder;
    return ListWordsToFile(world.View(), path, services, yielder);
  }

  FakeFiles files;
  FakeMessages messages;
  FakeTextBox text;
  OutputBox box{text};
  AdviceTexts advice;
  FileListingServices services{files, messages, &advice, &box};
  ReportWorld world = ReportWorld::Of({{"the cat", 2}, {"a dog", 3}});
};

TEST_F(FileListing, TheFileGetsTheReportAndTheBoxAMessage) {
  files.Add("/out/report.txt", "what was there");
  const FileListResult result = List("/out/report.txt");
  EXPECT_TRUE(result.Written);
  EXPECT_EQ(result.List.Outcome, ListOutcome::Listed);
  EXPECT_EQ(files.Content("/out/report.txt"), TextOf(world.View(), kFileForm));
  EXPECT_EQ(result.Bytes, files.Content("/out/report.txt").value_or("").size());
  EXPECT_EQ(text.text, "Now writing to output file . . .\r\n2 phrases were written to " +
                           PathToText("/out/report.txt") + ".\r\n");
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(FileListing, TheFileIsInTheCodePageOfTheSystem) {
  FakeCodePage page;
  services.Encoding = &page;
  world = ReportWorld::Of({{"caf\u00e9 noir", 2}, {"\u0395\u03bb caf\u00e9", 1}});
  world.facts.Options.SourceKind = TextSource::SingleFile;
  world.facts.InputPath = "/in/\u20ac.txt";
  files.AddFolder("/out");
  EXPECT_TRUE(List("/out/report.txt").Written);
  EXPECT_EQ(files.Content("/out/report.txt"),
            "File: /in/?.txt\r\n"
            "There are 2 phrases with 2 to 3 words which occur at least once.\r\n\r\n"
            "Rank\tFreq\tPhrase [longest has 9 characters]\r\n"
            "1\t2\tcaf\xE9 noir\t\r\n"
            "2\t1\t?? caf\xE9\t\r\n");
}

TEST_F(FileListing, EveryLineOfALongListIsWritten) {
  world = ReportWorld();
  for (int i = 0; i < 100000; ++i) world.table.AddWordToList("phrase number" + std::to_string(100000 + i));
  world.Finish();
  world.options.DisplayFormat = 8;
  files.AddFolder("/out");
  std::vector<uint32_t> told;
  services.Progress = [&](uint32_t phrases) { told.push_back(phrases); };
  const FileListResult result = List("/out/report.txt");
  EXPECT_TRUE(result.Written);
  EXPECT_GT(told.size(), 3U);
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_EQ(told.back(), 100000U);
  EXPECT_EQ(result.Bytes, files.Content("/out/report.txt").value_or("").size());
  const std::string content = files.Content("/out/report.txt").value_or("");
  EXPECT_EQ(content, TextOf(world.View(), kFileForm));
  EXPECT_EQ(std::ranges::count(content, '\n'), 100000 + 4);
}

TEST(WrittenText, CountsThePhrases) {
  EXPECT_EQ(WrittenText(0, "a.txt", {}), "A report without a phrase was written to a.txt.");
  EXPECT_EQ(WrittenText(1, "a.txt", {}), "1 phrase was written to a.txt.");
  EXPECT_EQ(WrittenText(3999, "a.txt", {}), "3,999 phrases were written to a.txt.");
}

TEST_F(FileListing, WhateverCallFailsTheOldFileStays) {
  for (int call = 1;; ++call) {
    files.Add("/out/report.txt", "what was there");
    messages.Forget();
    files.FailCall(call, FileFault::NoSpace);
    const FileListResult result = List("/out/report.txt");
    if (!files.FailureHappened()) {
      EXPECT_TRUE(result.Written);
      EXPECT_GT(call, 3);
      break;
    }
    EXPECT_FALSE(result.Written);
    EXPECT_EQ(files.Content("/out/report.txt"), "what was there");
    EXPECT_EQ(messages.Only().text,
              "At ListWords error # 61.\r\nDescription: Input/output error\r\nStart again.");
    EXPECT_EQ(messages.Only().icon, Icon::Critical);
  }
}

TEST_F(FileListing, DeniedPermissionHasItsOwnMessage) {
  files.Add("/out/report.txt", "what was there");
  files.Refuse("/out/report.txt", FileFault::PermissionDenied);
  EXPECT_FALSE(List("/out/report.txt").Written);
  EXPECT_EQ(messages.Only().text, "Perhaps the output file\r\nis in use by another application.");
  EXPECT_EQ(messages.Only().title, "Permission denied");
  EXPECT_EQ(messages.Only().icon, Icon::Information);
}

TEST_F(FileListing, AnErrorInTheMiddleNamesTheListingAndKeepsTheOldFile) {
  for (const auto& [order, name] : {std::pair{0, "ListWordsByFrequency"}, {1, "ListWordsAlphabetically"}})
    for (const bool memory : {false, true}) {
      files.Add("/out/report.txt", "what was there");
      messages.Forget();
      world.options.WordOrder = order;
      FakeYielder yielder;
      yielder.onTurn = [&] {
        if (yielder.calls < 2 + 2) return;  // Both are measured; then the first is listed.
        if (memory) throw std::bad_alloc();
        throw std::runtime_error("a surprise");
      };
      EXPECT_FALSE(ListWordsToFile(world.View(), "/out/report.txt", services, yielder).Written);
      EXPECT_EQ(files.Content("/out/report.txt"), "what was there");
      EXPECT_EQ(messages.Only().text, memory ? "Insufficient memory"
                                             : std::string("At ") + name +
                                                   " error # 5.\r\nDescription: a surprise\r\nStart again.");
    }
}

TEST_F(FileListing, AStopKeepsTheLinesWrittenSoFarWhereThereWasNoFile) {
  files.AddFolder("/out");
  StoppingYielder yielder(2 + 2);
  const FileListResult result = ListWordsToFile(world.View(), "/out/report.txt", services, yielder);
  EXPECT_TRUE(result.Written);
  EXPECT_EQ(result.List.Outcome, ListOutcome::Stopped);
  EXPECT_TRUE(files.Content("/out/report.txt").value_or("").ends_with("1\t3\ta dog\t\r\n"));
  EXPECT_TRUE(
      text.text.ends_with("\r\nOutput to file was terminated.\r\n"
                          "The output file holds only the first phrase of the list."));
}

TEST_F(FileListing, AStopKeepsTheOldFileHoweverMuchWasWritten) {
  for (const int calls : {1, 2 + 1, 2 + 2}) {
    files.Add("/out/report.txt", "what was there");
    StoppingYielder yielder(calls);
    const FileListResult result = ListWordsToFile(world.View(), "/out/report.txt", services, yielder);
    EXPECT_EQ(result.List.Outcome, ListOutcome::Stopped);
    EXPECT_FALSE(result.Written);
    EXPECT_EQ(files.Content("/out/report.txt"), "what was there");
    EXPECT_TRUE(text.text.ends_with("\r\nOutput to file was terminated.\r\nThe output file is as it was."));
  }
}

TEST_F(FileListing, AStopBeforeTheFirstLineLeavesNoFile) {
  files.AddFolder("/out");
  StoppingYielder yielder(1);
  EXPECT_FALSE(ListWordsToFile(world.View(), "/out/report.txt", services, yielder).Written);
  EXPECT_FALSE(files.FileExists("/out/report.txt"));
}

TEST(StoppedFile, TellsHowMuchItHolds) {
  const NumberFormat numbers;
  const auto text = [&](bool written, uint32_t phrases) {
    FileListResult result;
    result.Written = written;
    result.List.Shown = phrases;
    return StoppedFileText(result, numbers);
  };
  EXPECT_EQ(text(false, 7), "The output file is as it was.");
  EXPECT_EQ(text(true, 1), "The output file holds only the first phrase of the list.");
  EXPECT_EQ(text(true, 1234), "The output file holds only the first 1,234 phrases of the list.");
}

TEST_F(FileListing, NothingListedIsAReportToo) {
  world = ReportWorld();
  files.AddFolder("/out");
  EXPECT_TRUE(List("/out/report.txt").Written);
  EXPECT_EQ(files.Content("/out/report.txt"),
            "No phrases satisfying the specified conditions were found.\r\n");
}

TEST_F(FileListing, NeedsNeitherBoxNorTexts) {
  files.AddFolder("/out");
  services.Box = nullptr;
  services.Texts = nullptr;
  EXPECT_TRUE(List("/out/report.txt").Written);
  files.FailCall(1);
  EXPECT_FALSE(List("/out/report.txt").Written);
  EXPECT_EQ(messages.Only().text, "At ListWords error # 57.\r\nDescription: Input/output error");
}

struct Overwriting : testing::Test {
  FakeFiles files;
  FakeMessages messages;
  OverwriteGuard guard{files, messages};
};

TEST_F(Overwriting, ANewFileNeedsNoQuestion) {
  EXPECT_EQ(guard.Confirm("/out/new.txt", true), "/out/new.txt");
  EXPECT_TRUE(messages.inputBoxes.empty());
}

TEST_F(Overwriting, AFileThatExistsIsAskedFor) {
  files.Add("/out/old.txt", "");
  messages.WillType("/out/old.txt");
  EXPECT_EQ(guard.Confirm("/out/old.txt", false), "/out/old.txt");
  ASSERT_EQ(messages.inputBoxes.size(), 1u);
  EXPECT_EQ(messages.inputBoxes[0].title, "The output file exists.");
  EXPECT_EQ(messages.inputBoxes[0].prompt,
            "To overwrite the current output file click on 'OK'.\r\n"
            "To write to a different file edit the filepath below.\r\n"
            "To disable file output click on 'Cancel'.");
  EXPECT_EQ(messages.inputBoxes[0].initial, "/out/old.txt");
}

TEST_F(Overwriting, CancelAndAnEmptyPathDisableTheFile) {
  files.Add("/out/old.txt", "kept");
  messages.WillType(std::nullopt);
  messages.WillType("");
  messages.WillType("   ");
  EXPECT_EQ(guard.Confirm("/out/old.txt", false), std::nullopt);
  EXPECT_EQ(guard.Confirm("/out/old.txt", false), std::nullopt);
  EXPECT_EQ(guard.Confirm("/out/old.txt", false), std::nullopt);
  EXPECT_EQ(files.Content("/out/old.txt"), "kept");
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(Overwriting, AnotherPathIsTakenWhereItsFolderExists) {
  files.Add("/out/old.txt", "");
  for (const char* typed : {"/out/new.txt", "  /out/new.txt "}) {
    messages.WillType(typed);
    EXPECT_EQ(guard.Confirm("/out/old.txt", false), "/out/new.txt") << typed;
  }
}

TEST_F(Overwriting, AnotherPathThatExistsIsAskedForInItsTurn) {
  files.Add("/out/old.txt", "");
  files.Add("/out/other.txt", "");
  messages.WillType("/out/other.txt");
  messages.WillType("/out/new.txt");
  EXPECT_EQ(guard.Confirm("/out/old.txt", false), "/out/new.txt");
  ASSERT_EQ(messages.inputBoxes.size(), 2u);
  EXPECT_EQ(messages.inputBoxes[1].initial, "/out/other.txt");
}

TEST_F(Overwriting, AFolderThatDoesNotExistDisablesTheFile) {
  files.Add("/out/old.txt", "");
  messages.WillType("/nowhere/new.txt");
  EXPECT_EQ(guard.Confirm("/out/old.txt", false), std::nullopt);
  EXPECT_EQ(messages.Only().text, "Folder does not exist.");
  EXPECT_EQ(messages.Only().title, "Error");
  EXPECT_EQ(messages.Only().icon, Icon::Exclamation);
}

TEST_F(Overwriting, AFileThatTheProgramWroteIsAskedForOnlyOnRequest) {
  files.Add("/out/own.txt", "");
  files.AddAlias("/out/alias.txt", "/out/own.txt");
  guard.Written("/out/own.txt");
  EXPECT_EQ(guard.Confirm("/out/own.txt", false), "/out/own.txt");
  EXPECT_EQ(guard.Confirm("/out/alias.txt", false), "/out/alias.txt");
  EXPECT_TRUE(messages.inputBoxes.empty());
  messages.WillType("/out/own.txt");
  EXPECT_EQ(guard.Confirm("/out/own.txt", true), "/out/own.txt");
  EXPECT_EQ(messages.inputBoxes.size(), 1u);
}

TEST_F(Overwriting, TryingToOpenLeavesTheFileAsItIs) {
  files.Add("/out/old.txt", "kept");
  EXPECT_TRUE(CanOpenOutputFile("/out/old.txt", files, messages));
  EXPECT_EQ(files.Content("/out/old.txt"), "kept");
  files.Refuse("/out/old.txt", FileFault::PermissionDenied);
  EXPECT_FALSE(CanOpenOutputFile("/out/old.txt", files, messages));
  EXPECT_EQ(messages.Only().text,
            "Error: Permission denied\r\n"
            "If the output file is open in Excel then it must first be closed\r\n"
            "or a different file should be specified as the output file.");
}

}  // namespace
}  // namespace korv
