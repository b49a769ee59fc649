// Several paths on the command line, and lists of them.

#include <gmock/gmock.h>

#include "cli/path_list.h"
#include "tests/cli/count_program_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class CountTogetherTest : public CountProgramTest {
 protected:
  CountTogetherTest() {
    files.Add("/t/b.txt", "The big dog sat. The big dog ran.\n");
    files.Add("/t/x/c.txt", kText);
    files.Add("/t/page.js", kText);
  }

  int CountTabs(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--words", "2-3", "--layout", "tabs"});
    return Count(std::move(arguments));
  }
};

TEST_F(CountTogetherTest, TheReportNamesEachSourceInOrder) {
  EXPECT_EQ(CountTabs({"/t", "/a.txt", "--subfolders"}), 0) << err.str();
  EXPECT_EQ(out.str(),
            "Folder: /t plus any subfolders\n"
            "File: /a.txt\n"
            "3 files (in 3 folders) were scanned.\n"
            "There are 5 phrases with 2 to 3 words which occur at least twice.\n"
            "The longest phrase has 3 words.\n"
            "\n"
            "Rank\tFreq\tPhrase [longest has 11 characters]\n"
            "1\t6\tthe big\t\n"
            "2\t4\tthe big cat\t\n"
            "3\t2\tbig cat ran\t\n"
            "4\t2\tbig cat sat\t\n"
            "5\t2\tthe big dog\t\n");
  EXPECT_EQ(err.str(), "24 words read, none dropped; 3 files ASCII\n");
}

TEST_F(CountTogetherTest, OneFileNamedTwiceCountsOnceAsAListOfOne) {
  EXPECT_EQ(CountTabs({"/a.txt", "/a.txt"}), 0);
  EXPECT_THAT(out.str(), StartsWith("File: /a.txt\nFile: /a.txt\n1 file (in 1 folder) was scanned.\n"));
}

TEST_F(CountTogetherTest, FormatsOfFoldersAreThereAndNamePathsInFull) {
  EXPECT_EQ(CountTabs({"/a.txt", "/t", "--format", "11"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("the big cat\t/a.txt\nthe big dog\t" + Below("/t", "b.txt") + "\n"));
  EXPECT_THAT(out.str(), Not(HasSubstr("{Folder}")));
}

TEST_F(CountTogetherTest, TablesAndContextsNameTheFilesAsGiven) {
  EXPECT_EQ(Count({"/t/b.txt", "/a.txt", "--words", "3", "--columns", "phrase,files,first_file"}), 0);
  EXPECT_EQ(out.str(), "phrase\tfiles\tfirst_file\nthe big cat\t1\t/a.txt\nthe big dog\t1\t/t/b.txt\n");
  EXPECT_EQ(Count({"/t/b.txt", "/a.txt", "--context-of", "cat ran"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("\n/a.txt\t1\t26\t"));
  EXPECT_EQ(Count({"/t/b.txt", "/a.txt", "--output-format", "json"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("\"/t/b.txt\""));
  EXPECT_THAT(out.str(), HasSubstr("\"/a.txt\""));
}

TEST_F(CountTogetherTest, ADashAmongFilesIsStandardInput) {
  input = "The big cat slept.";
  EXPECT_EQ(CountTabs({"/a.txt", "-", "--format", "11"}), 0) << err.str();
  EXPECT_THAT(out.str(), StartsWith("File: /a.txt\nFile: -\n2 files (in 1 folder) were scanned.\n"));
  EXPECT_THAT(out.str(), HasSubstr("the big cat\t/a.txt\t-\n"));
  EXPECT_EQ(Count({"-", "/a.txt", "--context-of", "cat slept"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("\n-\t1\t9\tThe big\tcat slept\t.\n"));
}

TEST_F(CountTogetherTest, WhatCannotBeReadIsToldAndTheRestCounted) {
  EXPECT_EQ(CountTabs({"/none.txt", "/a.txt"}), 0);
  EXPECT_THAT(err.str(), StartsWith("1 file was skipped:\n/none.txt: does not exist\n"));
  EXPECT_EQ(CountTabs({"/none.txt", "/nor/this"}), 1);
  EXPECT_EQ(err.str(),
            "korv-count: None of the files could be counted.\n"
            "2 files were skipped:\n/none.txt: does not exist\n/nor/this: does not exist\n");
  EXPECT_THAT(out.str(), IsEmpty());
}

TEST_F(CountTogetherTest, ListsTheFilesInFull) {
  EXPECT_EQ(Count({"/t", "/a.txt", "/none.txt", "--list-files"}), 0);
  EXPECT_EQ(out.str(), Below("/t", "b.txt") + "\n/a.txt\n");
  EXPECT_EQ(err.str(), "File /none.txt does not exist.\n");
  EXPECT_EQ(Count({"/none.txt", "/none.md", "--list-files"}), 1);
}

TEST_F(CountTogetherTest, RefusesAnOutputFileThatIsASource) {
  EXPECT_EQ(Count({"/a.txt", "/t/b.txt", "-o", "/t/b.txt", "--force"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The output file cannot be the same as the input file.\nFile: /t/b.txt\n");
  EXPECT_EQ(Count({"/a.txt", "/t", "-o", "/t/r.txt"}), 1);
  EXPECT_EQ(err.str(),
            "korv-count: The output file cannot be in the folder or a subfolder.\nFile: /t/r.txt\n");
  files.Add("/l.txt", "/a.txt\n");
  EXPECT_EQ(Count({"--files-from", "/l.txt", "-o", "/l.txt", "--force"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The output file cannot be the same as /l.txt.\n");
}

TEST_F(CountTogetherTest, PathsStandInFilesToo) {
  struct Case {
    const char* Option;
    std::string List;
  };
  for (const Case& c : {Case{"--files-from", "/t/b.txt\n/t/x\n"},
                        {"--files-from", "\xEF\xBB\xBF/t/b.txt\r\n\r\n/t/x"},
                        {"--files0-from", std::string("/t/b.txt\0\0/t/x\0", 15)},
                        {"--files0-from", std::string("/t/b.txt\0/t/x", 13)}}) {
    files.Add("/l.txt", c.List);
    EXPECT_EQ(CountTabs({c.Option, "/l.txt", "/a.txt"}), 0) << err.str();
    EXPECT_THAT(out.str(), StartsWith("File: /a.txt\nFile: /t/b.txt\nFolder: /t/x\n3 files (in 3 folders)"));
    input = c.List;
    EXPECT_EQ(CountTabs({c.Option, "-"}), 0) << err.str();
    EXPECT_THAT(out.str(), StartsWith("File: /t/b.txt\nFolder: /t/x\n2 files (in 2 folders)"));
  }
}

TEST_F(CountTogetherTest, AListOfOneFileIsAListStill) {
  input = "/a.txt\n";
  EXPECT_EQ(CountTabs({"--files-from", "-", "--format", "11"}), 0);
  EXPECT_THAT(out.str(), StartsWith("File: /a.txt\n1 file (in 1 folder) was scanned.\n"));
}

TEST_F(CountTogetherTest, RefusesListsThatNameNothing) {
  files.Add("/l.txt", "\n\n");
  EXPECT_EQ(Count({"--files-from", "/l.txt"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The list /l.txt names no file.\n");
  EXPECT_EQ(Count({"--files-from", "-"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The list on standard input names no file.\n");
  EXPECT_EQ(Count({"--files-from", "/none.txt"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The list /none.txt cannot be read (Input/output error).\n");
  unreadable = true;
  EXPECT_EQ(Count({"/a.txt", "--files0-from", "-"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The list on standard input cannot be read (Input/output error).\n");
}

TEST_F(CountTogetherTest, StandardInputIsReadOnce) {
  files.Add("/l.txt", "-\n");
  input = "-\n";
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{"--files-from", "/l.txt", "-"}, {"--files-from", "-"}}) {
    EXPECT_EQ(Count(arguments), 2);
    EXPECT_EQ(err.str(), "korv-count: standard input can be read only once\n");
  }
  input = "The big cat sat.";
  EXPECT_EQ(CountTabs({"--files-from", "/l.txt", "/a.txt"}), 0);
  EXPECT_THAT(out.str(), StartsWith("File: /a.txt\nFile: -\n2 files"));
}

TEST_F(CountTogetherTest, ReplacesTheSourceOfSettings) {
  EXPECT_EQ(Count({"/t", "--words", "3", "-o", "/r.txt", "--save-settings", "/s.korv"}), 0) << err.str();
  EXPECT_EQ(Count({"--settings", "/s.korv", "/a.txt", "/t/x/c.txt", "--layout", "tabs"}), 0) << err.str();
  EXPECT_THAT(out.str(), StartsWith("File: /a.txt\nFile: /t/x/c.txt\n2 files"));
}

TEST_F(CountTogetherTest, PatternsNameFilesWhereNoShellReplacesThem) {
  expandsPatterns = true;
  EXPECT_EQ(CountTabs({"/t/*"}), 0) << err.str();
  EXPECT_THAT(out.str(), StartsWith("File: " + Below("/t", "b.txt") + "\nFile: " + Below("/t", "page.js") +
                                    "\nFolder: " + Below("/t", "x") + "\n"));
  EXPECT_EQ(CountTabs({"/t/*.txt"}), 0);
  EXPECT_THAT(out.str(), StartsWith("File: " + Below("/t", "b.txt") + "\nThere")) << "one file, as if named";
  EXPECT_EQ(CountTabs({"/t/*.pdf"}), 1);
  expandsPatterns = false;
  EXPECT_EQ(CountTabs({"/t/*.txt"}), 1);
}

TEST_F(CountTogetherTest, NamesDoNothingToATerminal) {
  files.Add("/\x1b[31m.txt", "");
  EXPECT_EQ(CountTabs({"/a.txt", "/\x1b[31m.txt"}), 0);
  EXPECT_THAT(err.str(), HasSubstr("\n/\\x1B[31m.txt: is zero-length\n"));
  EXPECT_EQ(CountTabs({"/\x1b[2J.txt", "/\x1b[31m.txt"}), 1);
  EXPECT_THAT(err.str(), Not(HasSubstr("\x1b")));
  EXPECT_EQ(Count({"/a.txt", "--\x1b[2J"}), 2);
  EXPECT_THAT(err.str(), Not(HasSubstr("\x1b")));
  EXPECT_EQ(Count({"/a.txt", "/\x1b[31m.txt", "--list-files"}), 0);
  EXPECT_EQ(out.str(), "/a.txt\n/\x1b[31m.txt\n") << "for other programs";
  columns = 80;
  EXPECT_EQ(Count({"/a.txt", "/\x1b[31m.txt", "--list-files"}), 0);
  EXPECT_EQ(out.str(), "/a.txt\n/\\x1B[31m.txt\n") << "on a terminal";
}

TEST(PathList, IsNotReadWithoutEnd) {
  class Endless final : public InputFile {
   public:
    Expected<size_t, FileError> Read(std::span<char> buffer) override {
      std::fill(buffer.begin(), buffer.end(), 'x');
      return buffer.size();
    }
    uint64_t Size() const override { return 0; }
  } endless;
  const auto read = ReadPathList(endless, '\n');
  ASSERT_FALSE(read);
  EXPECT_EQ(read.Error(), "is too long");
}

}  // namespace
}  // namespace korv
