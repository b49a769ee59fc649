#include "cli/options.h"
#include "tests/cli/count_program_world.h"
#include "tests/fakes/matches.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

TEST_F(CountProgramTest, RefusesWithStatus1AndAMessage) {
  files.AddFolder("/folder");
  files.AddFolder("/folder/empty");
  files.Add("/folder/c.txt", kText);
  files.AddFolder("/nest");
  files.AddFolder("/nest/a");
  files.AddFolder("/nest/b");
  files.Add("/binary.txt", std::string(50, '\x01'));
  files.Add("/l.txt", "words");
  files.Add("/c.c", kText);
  files.Add("/forbidden.txt", kText);
  files.Refuse("/forbidden.txt", FileFault::PermissionDenied);
  struct Case {
    std::vector<std::string> Arguments;
    std::string Message;
  };
  for (const Case& c : std::vector<Case>{
           {{"/none.txt"}, "korv-count: Input file does not exist.\nFile: /none.txt\n"},
           {{"/a.txt", "--min-words", "9"},
            "korv-count: The maximum number of words in each phrase\nmust not be less than the minimum "
            "number.\n"},
           {{"/folder/empty"}, "korv-count: Folder contains no files.\nFolder: /folder/empty\n"},
           {{"/folder/empty", "--list-files"},
            "korv-count: Folder contains no files.\nFolder: /folder/empty\n"},
           {{"/nest", "--subfolders"},
            "korv-count: Folder contains no files.\nIt holds 2 subfolders: a, b.\nFolder: /nest\n"},
           {{"/folder", "--patterns", "*.none"},
            "korv-count: No scanable files as specified *.none were found in this folder.\n"
            "Folder: /folder\n"},
           {{"/forbidden.txt"}, "korv-count: This file cannot be opened.\nFile: /forbidden.txt\n"},
           {{"/c.c", "--allow", "forwardslashes"},
            "korv-count: With the current settings the start-comment marker // could be part of a word.\n"
            "Check the the 'Settings' window and perhaps disallow comment markers or restrict allowable "
            "characters in 'words'.\nFile: /c.c\n"},
           {{"/a.txt", "-o", "/new/"}, "korv-count: The output file /new/ is a folder.\n"},
           {{"/a.txt", "-o", "/a.txt", "--force"},
            "korv-count: The output file cannot be the same as the input file.\nFile: /a.txt\n"},
           {{"/a.txt", "-o", "/a.txt"},
            "korv-count: The output file cannot be the same as the input file.\nFile: /a.txt\n"},
           {{"/folder", "-o", "/folder/c.txt"},
            "korv-count: The output file cannot be in the folder or a subfolder.\nFile: /folder/c.txt\n"},
           {{"/a.txt", "-o", "/folder"}, "korv-count: The output file /folder is a folder.\n"},
           {{"/a.txt", "--ignore-file", "/none.txt"},
            "korv-count: File for words-to-ignore not found.\nFile: " + Below("", "none.txt") + "\n"},
           {{"/a.txt", "--count-only-file", "/none.txt"},
            "korv-count: File for count-only words not found.\nFile: /none.txt\n"},
           {{"/a.txt", "--common-words", "de"},
            "korv-count: " + Below("/program", "cwds_de.txt") + " not found.\n"},
           {{"/a.txt", "--save-settings", "/a.txt"},
            "korv-count: The settings file cannot be the same as /a.txt.\n"},
           {{"/a.txt", "--ignore-file", "/l.txt", "--save-settings", "/l.txt"},
            "korv-count: The settings file cannot be the same as /l.txt.\n"},
           {{"/a.txt", "--ignore-file", "/l.txt", "-o", "/l.txt", "--force"},
            "korv-count: The output file cannot be the same as /l.txt.\n"},
           {{"/a.txt", "--count-only-file", "/l.txt", "-o", "/l.txt", "--force"},
            "korv-count: The output file cannot be the same as /l.txt.\n"},
           {{"/folder", "--save-settings", "/folder/c.txt"},
            "korv-count: The settings file cannot replace a file of the folder.\n"},
           {{"--settings", "/none.korv"},
            "korv-count: Error when attempting to load settings: Input/output error\nFile: /none.korv\n"},
           {{"/a.txt", "--save-settings", "/l.txt"},
            "korv-count: The file /l.txt exists and is no settings file.  --force replaces it.\n"},
           {{"-"}, "korv-count: There is no text on standard input.\n"}}) {
    for (const bool quiet : {false, true}) {
      std::vector<std::string> arguments = c.Arguments;
      if (quiet) arguments.push_back("--quiet");
      EXPECT_EQ(Count(arguments), 1) << c.Message;
      EXPECT_EQ(err.str(), c.Message);
      EXPECT_THAT(out.str(), IsEmpty());
      EXPECT_EQ(files.Content("/a.txt"), kText);
      EXPECT_EQ(files.Content("/l.txt"), "words");
    }
  }
}

TEST_F(CountProgramTest, RefusesWrongUsageWithStatus2) {
  for (const std::vector<std::string>& arguments :
       std::vector<std::vector<std::string>>{{},
                                             {"--nonsense"},
                                             {"/a.txt", "--force", "-x"},
                                             {"/a.txt", "--min-words", "2", "--min-words=3"},
                                             {"/a.txt", ""},
                                             {"-", "/a.txt", "-"},
                                             {"-", "--files-from", "-"},
                                             {"/a.txt", "/b.txt", "--save-settings", "/s.korv"},
                                             {"/a.txt", "-", "--list-files"},
                                             {"/a.txt", "--files-from", ""},
                                             {"--files-from", "/l.txt", "--files0-from", "/l.txt"},
                                             {"/a.txt", "--min-words", "1"},
                                             {"/a.txt", "--max-words", "26"},
                                             {"/a.txt", "--min-words", "two"},
                                             {"/a.txt", "--min-words", "4.5"},
                                             {"/a.txt", "--min-words", ""},
                                             {"/a.txt", "--min-words"},
                                             {"/a.txt", "--min-frequency", "0"},
                                             {"/a.txt", "--min-frequency", "21"},
                                             {"/a.txt", "--short-words", "1"},
                                             {"/a.txt", "--short-words", "21"},
                                             {"/a.txt", "--long-words", "10"},
                                             {"/a.txt", "--long-words", "45"},
                                             {"/a.txt", "--long-words", "off"},
                                             {"/a.txt", "--format", "13"},
                                             {"/a.txt", "--format", "-1"},
                                             {"/a.txt", "--order", "rank"},
                                             {"/a.txt", "--ignore-mode", "some"},
                                             {"/a.txt", "--allow", "dashes"},
                                             {"/a.txt", "--allow", "hyphens,"},
                                             {"/a.txt", "--allow", ""},
                                             {"/a.txt", "--allow", "none,hyphens"},
                                             {"/a.txt", "--terminate", "semicolon"},
                                             {"/a.txt", "--filter-mode", "any"},
                                             {"/a.txt", "--layout", "html"},
                                             {"/a.txt", "--output-format", "word"},
                                             {"/a.txt", "--output-format", ""},
                                             {"/a.txt", "--encoding", "utf-99"},
                                             {"/a.txt", "--locale", "xx_YY"},
                                             {"/a.txt", "--common-words", "nl"},
                                             {"/a.txt", "--common-words", "en", "--ignore-file", "/l.txt"},
                                             {"/a.txt", "-o", ""},
                                             {"", "--settings", ""},
                                             {"/a.txt", "--ignore-file", ""},
                                             {"-", "--list-files"}}) {
    EXPECT_EQ(Count(arguments), 2) << testing::PrintToString(arguments);
    EXPECT_THAT(err.str(), StartsWith("korv-count: "));
    EXPECT_THAT(err.str(), Not(HasSubstr("std::")));
    EXPECT_THAT(out.str(), IsEmpty());
  }
}

TEST_F(CountProgramTest, NamesWhatIsWrongWithAnOption) {
  struct Case {
    std::vector<std::string> Arguments;
    std::string Message;
  };
  for (const Case& c : std::vector<Case>{
           {{"--min-word", "3", "/a.txt"}, "there is no option --min-word; did you mean --min-words?"},
           {{"/a.txt", "--min-word=3"}, "there is no option --min-word; did you mean --min-words?"},
           {{"/a.txt", "--mni-words", "3"}, "there is no option --mni-words; did you mean --min-words?"},
           {{"/a.txt", "-min-words", "3"}, "there is no option -min-words; did you mean --min-words?"},
           {{"/a.txt", "--subfolder"}, "there is no option --subfolder; did you mean --subfolders?"},
           {{"/a.txt", "--case"}, "there is no option --case; did you mean --case-significant?"},
           {{"/a.txt", "--xyzzyx"}, "there is no option --xyzzyx"},
           {{"/a.txt", "-q"}, "there is no option -q"},
           {{"/a.txt", "--max-words", "3", "--max-words", "4"}, "--max-words is given twice"},
           {{"/a.txt", "-o", "/r.txt", "--output=/s.txt"}, "--output is given twice"},
           {{"/a.txt", "--order"}, "--order needs a value: frequency|alphabetical"},
           {{"/a.txt", "-o"}, "--output needs a value: FILE"},
           {{"/a.txt", "--filter"}, "--filter needs a value: TEXT"},
           {{"/a.txt", "--quiet=false"}, "--quiet takes no value"},
           {{"/a.txt", "-o", "-"},
            "--output: - is no file; without --output the report goes to standard output"},
           {{"/a.txt", "--files-from"}, "--files-from needs a value: FILE"},
           {{"/a.txt", ""}, "PATH: an empty one names no file"},
           {{"--fail-if-empty"}, "PATH: a file, a folder or - is needed"}}) {
    EXPECT_EQ(Count(c.Arguments), 2);
    EXPECT_EQ(err.str(), "korv-count: " + c.Message + "\nTry: korv-count --help\n");
  }
  EXPECT_EQ(files.Content("/r.txt"), std::nullopt);
  // A value may look like an option.
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2", "--filter", "--cat"}), 0) << err.str();
}

TEST_F(CountProgramTest, ExplainsItselfInLinesThatATerminalHolds) {
  EXPECT_EQ(Count({"--help"}), 0);
  std::istringstream lines(out.str());
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 80u) << line;
    EXPECT_FALSE(line.ends_with(' ')) << line;
  }
  EXPECT_THAT(out.str(), HasSubstr("\n  -o, --output FILE         Write the report to a file\n"));
  EXPECT_THAT(out.str(), HasSubstr("\n  --encoding auto|utf-8|ansi|NAME\n"
                                   "                            How text is encoded (auto)\n"));
  EXPECT_THAT(out.str(),
              HasSubstr("\n  --short-words N           Ignore words with fewer characters, 2 to 20 "
                        "or off\n                            (3)\n"));
}

TEST_F(CountProgramTest, ExplainsItselfInTheWidthOfTheTerminal) {
  const auto longest = [this] {
    size_t most = 0;
    std::istringstream lines(out.str());
    for (std::string line; std::getline(lines, line);) most = std::max(most, line.size());
    return most;
  };
  struct Case {
    size_t Columns;
    size_t Least;
    size_t Most;
  };
  // In few columns what is typed as one word stays whole.
  for (const Case& c : {Case{0, 75, 80}, {80, 75, 80}, {100, 95, 100}, {60, 55, 72}, {200, 110, 120}}) {
    columns = c.Columns;
    EXPECT_EQ(Count({"--help"}), 0);
    EXPECT_GE(longest(), c.Least) << c.Columns;
    EXPECT_LE(longest(), c.Most) << c.Columns;
  }
  columns = 40;
  EXPECT_EQ(Count({"--help"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("\n  -o, --output FILE   Write the report\n"
                                   "                      to a file\n"));
}

TEST_F(CountProgramTest, TellsItsVersionAndThoseOfItsLibraries) {
  EXPECT_EQ(Count({"--version"}), 0);
  EXPECT_TRUE(Matches(out.str(),
                      "korv-count [0-9.]+\nBuilt with CLI11 [0-9.]+, fmt [0-9.]+, libzip [0-9.]+, PCRE2 "
                      "[0-9.]+, utf8proc [0-9.]+, zlib [0-9.]+.*\n"))
      << out.str();
}

TEST_F(CountProgramTest, SaysWhenItsExplanationCannotBeWritten) {
  for (const char* option : {"--help", "--version"}) {
    out.setstate(std::ios::badbit);
    err.str("");
    EXPECT_EQ(std::get<int>(ParseCountOptions({option}, out, err)), 1);
    EXPECT_EQ(err.str(), "korv-count: Standard output cannot be written.\n");
  }
}

TEST_F(CountProgramTest, ExplainsItselfOnStandardOutput) {
  EXPECT_EQ(Count({"--help"}), 0);
  for (const char* option : {"--settings",        "--save-settings",
                             "--min-words",       "--max-words",
                             "--min-frequency",   "--ignore-mode",
                             "--ignore-file",     "--common-words",
                             "--ignore-words",    "--pattern-matching",
                             "--count-only",      "--count-only-file",
                             "--locale",          "--allow",
                             "--terminate",       "--case-significant",
                             "--seven-bit",       "--short-words",
                             "--long-words",      "--keep-repetitions",
                             "--keep-letterless", "--patterns",
                             "--exclude",         "--subfolders",
                             "--format",          "--order",
                             "--relative",        "--sort-by-files",
                             "--filter",          "--filter-mode",
                             "--encoding",        "--output",
                             "--output-format",   "--layout",
                             "--list-files",      "--quiet",
                             "--progress",        "--force"})
    EXPECT_THAT(out.str(), HasSubstr(option));
  EXPECT_EQ(Count({"--version"}), 0);
  EXPECT_THAT(out.str(), StartsWith("korv-count "));
}

TEST_F(CountProgramTest, SaysWhatARefusedFileIs) {
  const std::string advice = "\nIt is a PDF document.  Save its text as a text file (.txt) and count that.\n";
  files.Add("/a.pdf", "%PDF-1.7\n" + std::string(100, '\x01'));
  EXPECT_EQ(Count({"/a.pdf"}), 1);
  EXPECT_TRUE(err.str().ends_with(
      advice + "Korv reads it with the setting \"Read other documents too\" (korv-count: --documents).\n"))
      << err.str();
  EXPECT_EQ(Count({"/a.txt", "--ignore-file", "/a.pdf"}), 1);
  EXPECT_TRUE(err.str().ends_with(
      "\nIt is a PDF document.  Save the words as a text file (.txt) with one entry a line.\n"))
      << err.str();
}

TEST_F(CountProgramTest, SaysWhatRefusedStandardInputIs) {
  input = "\x1F\x8B" + std::string(100, '\x01');
  EXPECT_EQ(Count({"-"}), 1);
  EXPECT_EQ(err.str(),
            "korv-count: The text on standard input does not consist\nsolely of natural language words.\n"
            "It is a packed file.  Unpack it first and count what comes out.\n");
}

TEST_F(CountProgramTest, NamesStandardInputWhereItCannotBeRead) {
  unreadable = true;
  EXPECT_EQ(Count({"-"}), 1);
  EXPECT_EQ(err.str(),
            "korv-count: At DoItFromFile error # 57.\nDescription: Input/output error\n"
            "Source: standard input\n");
}

TEST_F(CountProgramTest, NamesTheFileWhoseEntriesCannotBeFound) {
  files.Add("/l.txt", "fine\nU.S. army\n");
  EXPECT_EQ(Count({"/a.txt", "--count-only-file", "/l.txt"}), 0);
  EXPECT_THAT(err.str(), HasSubstr("not currently set as a character allowed in a word.\nFile: /l.txt\n"));
}

TEST_F(CountProgramTest, SpeaksOfStandardInput) {
  input = std::string(50, '\x01');
  EXPECT_EQ(Count({"-"}), 1);
  EXPECT_EQ(err.str(),
            "korv-count: The text on standard input does not consist\nsolely of natural language words.\n");
}

}  // namespace
}  // namespace korv
