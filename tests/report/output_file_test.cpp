#include "report/output_file.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <utility>

#include "report/writers/table_forms.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_text_output.h"
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
    return ListWordsToFile(World.View(), path, Services, yielder);
  }

  FakeFiles Files;
  FakeMessages Messages;
  FakeTextOutput Box;
  AdviceTexts Advice;
  FileListingServices Services{Files, Messages, &Advice, &Box};
  ReportWorld World = ReportWorld::Of({{"the cat", 2}, {"a dog", 3}});
};

TEST_F(FileListing, TheFileGetsTheReportAndTheBoxAMessage) {
  Files.Add("/out/report.txt", "what was there");
  const FileListResult result = List("/out/report.txt");
  EXPECT_TRUE(result.Written);
  EXPECT_EQ(result.List.Outcome, ListOutcome::Listed);
  EXPECT_EQ(Files.Content("/out/report.txt"), TextOf(World.View(), kFileForm));
  EXPECT_EQ(result.Bytes, Files.Content("/out/report.txt").value_or("").size());
  EXPECT_EQ(Box.Text, "Now writing to output file . . .\r\n2 phrases were written to " +
                          PathToText("/out/report.txt") + ".\r\n");
  EXPECT_TRUE(Messages.Shown.empty());
}

TEST_F(FileListing, TheFileIsInTheCodePageOfTheSystem) {
  FakeCodePage page;
  Services.Encoding = &page;
  World = ReportWorld::Of({{"caf\u00e9 noir", 2}, {"\u0395\u03bb caf\u00e9", 1}});
  World.Facts.Options.SourceKind = TextSource::SingleFile;
  World.Facts.InputPath = "/in/\u20ac.txt";
  Files.AddFolder("/out");
  EXPECT_TRUE(List("/out/report.txt").Written);
  EXPECT_EQ(Files.Content("/out/report.txt"),
            "File: /in/?.txt\r\n"
            "There are 2 phrases with 2 to 3 words which occur at least once.\r\n\r\n"
            "Rank\tFreq\tPhrase [longest has 9 characters]\r\n"
            "1\t2\tcaf\xE9 noir\t\r\n"
            "2\t1\t?? caf\xE9\t\r\n");
}

TEST_F(FileListing, EveryLineOfALongListIsWritten) {
  World = ReportWorld();
  for (int i = 0; i < 100000; ++i) World.Say("phrase number" + std::to_string(100000 + i));
  World.Finish();
  World.Options.DisplayFormat = 8;
  Files.AddFolder("/out");
  std::vector<uint32_t> told;
  Services.Progress = [&](uint32_t phrases) { told.push_back(phrases); };
  const FileListResult result = List("/out/report.txt");
  EXPECT_TRUE(result.Written);
  EXPECT_GT(told.size(), 3U);
  EXPECT_TRUE(std::ranges::is_sorted(told));
  EXPECT_EQ(told.back(), 100000U);
  EXPECT_EQ(result.Bytes, Files.Content("/out/report.txt").value_or("").size());
  const std::string content = Files.Content("/out/report.txt").value_or("");
  EXPECT_EQ(content, TextOf(World.View(), kFileForm));
  EXPECT_EQ(std::ranges::count(content, '\n'), 100000 + 4);
}

TEST(WrittenText, CountsThePhrases) {
  EXPECT_EQ(WrittenText(0, "a.txt", {}), "A report without a phrase was written to a.txt.");
  EXPECT_EQ(WrittenText(1, "a.txt", {}), "1 phrase was written to a.txt.");
  EXPECT_EQ(WrittenText(3999, "a.txt", {}), "3,999 phrases were written to a.txt.");
}

TEST_F(FileListing, WhateverCallFailsTheOldFileStays) {
  for (int call = 1;; ++call) {
    Files.Add("/out/report.txt", "what was there");
    Messages.Forget();
    Files.FailCall(call, FileFault::NoSpace);
    const FileListResult result = List("/out/report.txt");
    if (!Files.FailureHappened()) {
      EXPECT_TRUE(result.Written);
      EXPECT_GT(call, 3);
      break;
    }
    EXPECT_FALSE(result.Written);
    EXPECT_EQ(Files.Content("/out/report.txt"), "what was there");
    EXPECT_EQ(Messages.Only().Text,
              "At ListWords error # 61.\nDescription: Input/output error\nStart again.");
    EXPECT_EQ(Messages.Only().Icon, Icon::Critical);
  }
}

TEST_F(FileListing, DeniedPermissionHasItsOwnMessage) {
  Files.Add("/out/report.txt", "what was there");
  Files.Refuse("/out/report.txt", FileFault::PermissionDenied);
  EXPECT_FALSE(List("/out/report.txt").Written);
  EXPECT_EQ(Messages.Only().Text, "Perhaps the output file\nis in use by another application.");
  EXPECT_EQ(Messages.Only().Title, "Permission denied");
  EXPECT_EQ(Messages.Only().Icon, Icon::Information);
}

TEST_F(FileListing, AnErrorInTheMiddleNamesTheListingAndKeepsTheOldFile) {
  for (const auto& [order, name] : {std::pair{0, "ListWordsByFrequency"}, {1, "ListWordsAlphabetically"}})
    for (const bool memory : {false, true}) {
      Files.Add("/out/report.txt", "what was there");
      Messages.Forget();
      World.Options.WordOrder = order;
      FakeYielder yielder;
      yielder.OnTurn = [&] {
        if (yielder.Calls < 2 + 2) return;  // Both are measured; then the first is listed.
        if (memory) throw std::bad_alloc();
        throw std::runtime_error("a surprise");
      };
      EXPECT_FALSE(ListWordsToFile(World.View(), "/out/report.txt", Services, yielder).Written);
      EXPECT_EQ(Files.Content("/out/report.txt"), "what was there");
      EXPECT_EQ(Messages.Only().Text,
                memory ? "Insufficient memory"
                       : std::string("At ") + name + " error # 5.\nDescription: a surprise\nStart again.");
    }
}

TEST_F(FileListing, AStopKeepsTheLinesWrittenSoFarWhereThereWasNoFile) {
  Files.AddFolder("/out");
  StoppingYielder yielder(2 + 2);
  const FileListResult result = ListWordsToFile(World.View(), "/out/report.txt", Services, yielder);
  EXPECT_TRUE(result.Written);
  EXPECT_EQ(result.List.Outcome, ListOutcome::Stopped);
  EXPECT_TRUE(Files.Content("/out/report.txt").value_or("").ends_with("1\t3\ta dog\t\r\n"));
  EXPECT_TRUE(
      Box.Text.ends_with("\r\nOutput to file was terminated.\r\n"
                         "The output file holds only the first phrase of the list."));
}

TEST_F(FileListing, AStopKeepsTheOldFileHoweverMuchWasWritten) {
  for (const int calls : {1, 2 + 1, 2 + 2}) {
    Files.Add("/out/report.txt", "what was there");
    StoppingYielder yielder(calls);
    const FileListResult result = ListWordsToFile(World.View(), "/out/report.txt", Services, yielder);
    EXPECT_EQ(result.List.Outcome, ListOutcome::Stopped);
    EXPECT_FALSE(result.Written);
    EXPECT_EQ(Files.Content("/out/report.txt"), "what was there");
    EXPECT_TRUE(Box.Text.ends_with("\r\nOutput to file was terminated.\r\nThe output file is as it was."));
  }
}

TEST_F(FileListing, AStopBeforeTheFirstLineLeavesNoFile) {
  Files.AddFolder("/out");
  StoppingYielder yielder(1);
  EXPECT_FALSE(ListWordsToFile(World.View(), "/out/report.txt", Services, yielder).Written);
  EXPECT_FALSE(Files.FileExists("/out/report.txt"));
}

/// A form that is handed over in the end, if it comes to that.
class HeldBack final : public ListWriter {
 public:
  void Begin(std::span<const Column* const>, const ColumnSource&) override {}
  bool Row(const RowCells&) override { return true; }
  bool End(bool) override { return false; }
};

TEST_F(FileListing, AStopLeavesNoFileWhereNothingWasHandedOver) {
  const TableForm form{
      .Name = "held", .Extension = "held", .Make = [](ReportSink&, const TableDescription&, FileSystem*) {
        return std::unique_ptr<ListWriter>(std::make_unique<HeldBack>());
      }};
  Files.AddFolder("/out");
  Services.Table.Form = &form;
  StoppingYielder yielder(2 + 2);
  const FileListResult result = ListWordsToFile(World.View(), "/out/table", Services, yielder);
  EXPECT_EQ(result.List.Outcome, ListOutcome::Stopped);
  EXPECT_EQ(result.List.Shown, 1U);
  EXPECT_FALSE(result.Written);
  EXPECT_FALSE(Files.FileExists("/out/table"));
  EXPECT_TRUE(Messages.Shown.empty());
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
  World = ReportWorld();
  Files.AddFolder("/out");
  EXPECT_TRUE(List("/out/report.txt").Written);
  EXPECT_EQ(Files.Content("/out/report.txt"),
            "No phrases satisfying the specified conditions were found.\r\n");
}

TEST_F(FileListing, NeedsNeitherBoxNorTexts) {
  Files.AddFolder("/out");
  Services.Box = nullptr;
  Services.Texts = nullptr;
  EXPECT_TRUE(List("/out/report.txt").Written);
  Files.FailCall(1);
  EXPECT_FALSE(List("/out/report.txt").Written);
  EXPECT_EQ(Messages.Only().Text, "At ListWords error # 57.\nDescription: Input/output error");
}

struct Overwriting : testing::Test {
  FakeFiles Files;
  FakeMessages Messages;
  OverwriteGuard Guard{Files, Messages};
};

TEST_F(Overwriting, ANewFileNeedsNoQuestion) {
  EXPECT_EQ(Guard.Confirm("/out/new.txt", true), "/out/new.txt");
  EXPECT_TRUE(Messages.InputBoxes.empty());
}

TEST_F(Overwriting, AFileThatExistsIsAskedFor) {
  Files.Add("/out/old.txt", "");
  Messages.WillType("/out/old.txt");
  EXPECT_EQ(Guard.Confirm("/out/old.txt", false), "/out/old.txt");
  ASSERT_EQ(Messages.InputBoxes.size(), 1u);
  EXPECT_EQ(Messages.InputBoxes[0].Title, "The output file exists.");
  EXPECT_EQ(Messages.InputBoxes[0].Prompt,
            "To overwrite the current output file click on 'OK'.\n"
            "To write to a different file edit the filepath below.\n"
            "To disable file output click on 'Cancel'.");
  EXPECT_EQ(Messages.InputBoxes[0].Initial, "/out/old.txt");
}

TEST_F(Overwriting, CancelAndAnEmptyPathDisableTheFile) {
  Files.Add("/out/old.txt", "kept");
  Messages.WillType(std::nullopt);
  Messages.WillType("");
  Messages.WillType("   ");
  EXPECT_EQ(Guard.Confirm("/out/old.txt", false), std::nullopt);
  EXPECT_EQ(Guard.Confirm("/out/old.txt", false), std::nullopt);
  EXPECT_EQ(Guard.Confirm("/out/old.txt", false), std::nullopt);
  EXPECT_EQ(Files.Content("/out/old.txt"), "kept");
  EXPECT_TRUE(Messages.Shown.empty());
}

TEST_F(Overwriting, AnotherPathIsTakenWhereItsFolderExists) {
  Files.Add("/out/old.txt", "");
  for (const char* typed : {"/out/new.txt", "  /out/new.txt "}) {
    Messages.WillType(typed);
    EXPECT_EQ(Guard.Confirm("/out/old.txt", false), "/out/new.txt") << typed;
  }
}

TEST_F(Overwriting, AnotherPathThatExistsIsAskedForInItsTurn) {
  Files.Add("/out/old.txt", "");
  Files.Add("/out/other.txt", "");
  Messages.WillType("/out/other.txt");
  Messages.WillType("/out/new.txt");
  EXPECT_EQ(Guard.Confirm("/out/old.txt", false), "/out/new.txt");
  ASSERT_EQ(Messages.InputBoxes.size(), 2u);
  EXPECT_EQ(Messages.InputBoxes[1].Initial, "/out/other.txt");
}

TEST_F(Overwriting, AFolderThatDoesNotExistDisablesTheFile) {
  Files.Add("/out/old.txt", "");
  Messages.WillType("/nowhere/new.txt");
  EXPECT_EQ(Guard.Confirm("/out/old.txt", false), std::nullopt);
  EXPECT_EQ(Messages.Only().Text, "Folder does not exist.");
  EXPECT_EQ(Messages.Only().Title, "Error");
  EXPECT_EQ(Messages.Only().Icon, Icon::Exclamation);
}

TEST_F(Overwriting, AFileThatTheProgramWroteIsAskedForOnlyOnRequest) {
  Files.Add("/out/own.txt", "");
  Files.AddAlias("/out/alias.txt", "/out/own.txt");
  Guard.Written("/out/own.txt");
  EXPECT_EQ(Guard.Confirm("/out/own.txt", false), "/out/own.txt");
  EXPECT_EQ(Guard.Confirm("/out/alias.txt", false), "/out/alias.txt");
  EXPECT_TRUE(Messages.InputBoxes.empty());
  Messages.WillType("/out/own.txt");
  EXPECT_EQ(Guard.Confirm("/out/own.txt", true), "/out/own.txt");
  EXPECT_EQ(Messages.InputBoxes.size(), 1u);
}

TEST_F(Overwriting, TryingToOpenLeavesTheFileAsItIs) {
  Files.Add("/out/old.txt", "kept");
  EXPECT_TRUE(CanOpenOutputFile("/out/old.txt", Files, Messages));
  EXPECT_EQ(Files.Content("/out/old.txt"), "kept");
  Files.Refuse("/out/old.txt", FileFault::PermissionDenied);
  EXPECT_FALSE(CanOpenOutputFile("/out/old.txt", Files, Messages));
  EXPECT_EQ(Messages.Only().Text,
            "Error: Permission denied\n"
            "If the output file is open in Excel then it must first be closed\n"
            "or a different file should be specified as the output file.");
}

}  // namespace
}  // namespace korv
