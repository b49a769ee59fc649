#include "cli/count_program.h"

#include <gmock/gmock.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "app/settings/saved_state.h"
#include "cli/options.h"
#include "tests/app/run_world.h"
#include "tests/fakes/fake_code_page.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* kText = "The big cat sat. The big cat ran.\n";
constexpr const char* kTextLine = "8 words read, none dropped; ASCII\n";

/// korv-count in this process, on a disk in memory.
class CountProgramTest : public testing::Test {
 protected:
  CountProgramTest() {
    files.Add("/a.txt", kText);
    files.Add("/program/korv.dat", "62\t#10: Phrase, number of files, frequency\n");
    files.Add("/program/cwds_en.txt", "\xEF\xBB\xBFthe\naren't\n");
  }

  int Count(std::vector<std::string> arguments) {
    out.str("");
    err.str("");
    yielder = std::make_unique<ConsoleYielder>();
    FakeStream stream(input);
    stream.OnRead = onRead;
    stream.Fail = unreadable;
    return KorvCount(arguments, {.Files = files,
                                 .Yielder = *yielder,
                                 .Clock = clock,
                                 .StandardInput = stream,
                                 .Out = out,
                                 .Err = err,
                                 .ErrIsTerminal = terminal,
                                 .ProgramFolder = "/program",
                                 .Encoding = encoding,
                                 .InputPath = inputPath});
  }

  /// The settings that the arguments lead to.
  Settings Resulting(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--save-settings", "/result.korv"});
    Count(std::move(arguments));
    Settings settings;
    EXPECT_TRUE(ReadStateBytes(files.Content("/result.korv").value_or(""), settings).Complete());
    return settings;
  }

  FakeFiles files;
  std::unique_ptr<ConsoleYielder> yielder;  ///< Of the last run.
  FakeClock clock;
  std::ostringstream out;
  std::ostringstream err;
  std::string input;
  std::function<void()> onRead;
  bool unreadable = false;  ///< Standard input.
  bool terminal = false;
  CodePage* encoding = nullptr;
  std::filesystem::path inputPath;
};

TEST_F(CountProgramTest, WritesColumnsToStandardOutput) {
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2"}), 0);
  EXPECT_EQ(out.str(),
            "There is one phrase with 2 to 6 words which occurs at least twice.\n\n"
            " Rank  Freq  Phrase [longest has 11 characters]\n"
            "    1     2  the big cat\n");
  EXPECT_EQ(err.str(), kTextLine);
}

TEST_F(CountProgramTest, WritesTheWholeReportFileAsTabs) {
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2", "--layout", "tabs"}), 0);
  EXPECT_EQ(out.str(),
            "File: /a.txt\n"
            "There is one phrase with 2 to 6 words which occurs at least twice.\n\n"
            "Rank\tFreq\tPhrase [longest has 11 characters]\n"
            "1\t2\tthe big cat\t\n");
}

TEST_F(CountProgramTest, WritesAReportFileInsteadOfStandardOutput) {
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2", "-o", "/r.txt"}), 0);
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_EQ(files.Content("/r.txt"),
            "File: /a.txt\r\n"
            "There is one phrase with 2 to 6 words which occurs at least twice.\r\n\r\n"
            "Rank\tFreq\tPhrase [longest has 11 characters]\r\n"
            "1\t2\tthe big cat\t\r\n");
}

constexpr const char* kTable =
    "rank\tphrase\tfrequency\tper_million\twords\tcharacters\tfiles\tfirst_file\n"
    "1\tthe big cat\t2\t285714.286\t3\t11\t1\t";

TEST_F(CountProgramTest, WritesATableWhereTheFormatSaysSo) {
  files.Add("/t.txt", "The big cat sat. The big cat.\n");
  const std::vector<std::string> arguments = {"/t.txt", "--min-words", "2", "--output-format", "tsv"};
  EXPECT_EQ(Count(arguments), 0);
  EXPECT_EQ(out.str(), std::string(kTable) + "/t.txt\n");
  std::vector<std::string> filtered = arguments;
  for (const char* argument : {"--filter", "dog", "--format", "9", "--relative", "--layout", "tabs"})
    filtered.emplace_back(argument);
  EXPECT_EQ(Count(filtered), 0);
  EXPECT_EQ(out.str(), std::string(kTable).substr(0, out.str().size()));
  EXPECT_TRUE(out.str().ends_with("first_file\n"));
  input = "The big cat sat. The big cat.\n";
  EXPECT_EQ(Count({"-", "--min-words", "2", "--output-format", "tsv"}), 0);
  EXPECT_EQ(out.str(), std::string(kTable) + "-\n");
}

TEST_F(CountProgramTest, TheExtensionOfTheReportFileSaysWhatItHolds) {
  FakeCodePage page;
  encoding = &page;
  files.Add(PathFromText("/\u0395.txt"), "The big cat sat. The big cat.\n");
  EXPECT_EQ(Count({"/\u0395.txt", "--min-words", "2", "-o", "/r.TSV"}), 0);
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_EQ(files.Content("/r.TSV"), std::string(kTable) + "/\u0395.txt\n");
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2", "-o", "/r.tsv", "--output-format", "text"}), 0);
  EXPECT_THAT(files.Content("/r.tsv").value_or(""), StartsWith("File: /a.txt\r\n"));
  EXPECT_EQ(Count({"/\u0395.txt", "--min-words", "2", "-o", "/r.txt", "--output-format", "tsv"}), 0);
  EXPECT_THAT(files.Content("/r.txt").value_or(""), StartsWith("rank\tphrase\t"));
}

TEST_F(CountProgramTest, TheOutputFileOfSettingsIsAlwaysTheReport) {
  Settings settings;
  settings.SourceKind = TextSource::SingleFile;
  settings.InputFile = "/a.txt";
  settings.OutputFile = "/r.tsv";
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv", "--output-format", "tsv"}), 0);
  EXPECT_THAT(files.Content("/r.tsv").value_or(""), StartsWith("File: /a.txt\r\n"));
}

TEST_F(CountProgramTest, OnlyTheReportFileIsInTheCodePageOfTheSystem) {
  FakeCodePage page;
  encoding = &page;
  files.Add("/e.txt", "un caf\u00e9 \u0395\u03bb. un caf\u00e9 \u0395\u03bb.\n");
  const std::vector<std::string> arguments = {"/e.txt", "--min-words", "2", "--short-words",
                                              "off",    "--format",    "8"};
  EXPECT_EQ(Count(arguments), 0);
  EXPECT_THAT(out.str(), HasSubstr("\nun caf\u00e9 \u03b5\u03bb\n"));
  std::vector<std::string> intoFile = arguments;
  intoFile.insert(intoFile.end(), {"-o", "/r.txt"});
  EXPECT_EQ(Count(intoFile), 0);
  EXPECT_THAT(files.Content("/r.txt").value_or(""), HasSubstr("\nun caf\xE9 ??\t\r\n"));
}

TEST_F(CountProgramTest, MakesAReportWithoutPhrasesToo) {
  EXPECT_EQ(Count({"/a.txt", "--min-words", "20", "--max-words", "20"}), 0);
  EXPECT_EQ(out.str(),
            "No phrases with at least 3 characters\nsatisfying the specified conditions were found.\n");
}

TEST_F(CountProgramTest, ReplacesAnExistingReportOnlyByForce) {
  files.Add("/r.txt", "old");
  EXPECT_EQ(Count({"/a.txt", "-o", "/r.txt"}), 1);
  EXPECT_THAT(err.str(), HasSubstr("/r.txt exists"));
  EXPECT_EQ(files.Content("/r.txt"), "old");
  EXPECT_EQ(Count({"/a.txt", "-o", "/r.txt", "--force"}), 0);
  EXPECT_NE(files.Content("/r.txt"), "old");
}

TEST_F(CountProgramTest, KeepsAnExistingReportThroughEveryFailureOfTheDisk) {
  for (int call = 1;; ++call) {
    files.Add("/r.txt", "old");
    files.FailCall(call, FileFault::NoSpace);
    const int status = Count({"/a.txt", "-o", "/r.txt", "--force", "--min-words", "2"});
    if (!files.FailureHappened()) {
      EXPECT_EQ(status, 0);
      break;
    }
    files.FailCall(0);
    EXPECT_TRUE(status == 0 || (status == 1 && !err.str().empty() && files.Content("/r.txt") == "old"))
        << call << " " << status << " " << err.str();
    EXPECT_EQ(files.Content("/a.txt"), kText);
  }
}

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
                                             {"/a.txt", "/b.txt"},
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
                                             {"/a.txt", "--encoding", "utf-16"},
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
           {{"/a.txt", "/b.txt"},
            "only one file or folder can be counted, not /a.txt /b.txt\n"
            "A folder is counted whole, or in part with --patterns \"*.txt\"."},
           {{"/a.txt", "/b.txt", "/c.txt", "/d.txt"},
            "only one file or folder can be counted, not /a.txt /b.txt /c.txt ...\n"
            "A folder is counted whole, or in part with --patterns \"*.txt\"."},
           {{"--", "-a.txt", "--quiet"},
            "only one file or folder can be counted, not -a.txt --quiet\n"
            "A folder is counted whole, or in part with --patterns \"*.txt\"."}}) {
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
  EXPECT_THAT(out.str(), HasSubstr("\n  --encoding auto|utf-8|ansi\n"
                                   "                            How text is encoded (auto)\n"));
  EXPECT_THAT(out.str(),
              HasSubstr("\n  --short-words N           Ignore words with fewer characters, 2 to 20 "
                        "or off\n                            (3)\n"));
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

TEST_F(CountProgramTest, EveryOptionSetsItsField) {
  const std::string defaults = *StateBytes(Settings{});
  struct Case {
    std::vector<std::string> Arguments;
    std::function<void(Settings&)> Change;
  };
  const std::vector<Case> cases = {
      {{}, [](Settings&) {}},
      {{"--min-words", "2"}, [](Settings& s) { s.MinWords = 2; }},
      {{"--max-words", "25"}, [](Settings& s) { s.MaxWords = 25; }},
      {{"--max-words", "3"}, [](Settings& s) { s.MinWords = s.MaxWords = 3; }},
      {{"--max-words", "5"}, [](Settings& s) { s.MaxWords = 5; }},
      {{"--allow", " hyphens,  numerals "}, [](Settings& s) { s.Words.AllowNumerals = true; }},
      {{"--terminate", "period, double-quote, tab, comma"},
       [](Settings& s) { s.Words.TerminateAtComma = true; }},
      {{"--allow", " none "}, [](Settings& s) { s.Words.AllowHyphens = false; }},
      {{"--min-frequency", "20"}, [](Settings& s) { s.MinFrequency = 20; }},
      {{"--ignore-mode", "allow"}, [](Settings& s) { s.IgnoreOption = IgnoreRule::Allow; }},
      {{"--ignore-mode", "exclude-all"}, [](Settings& s) { s.IgnoreOption = IgnoreRule::ExcludeAll; }},
      {{"--ignore-mode", "remove"}, [](Settings& s) { s.IgnoreOption = IgnoreRule::Remove; }},
      {{"--ignore-mode", "exclude-with"}, [](Settings& s) { s.IgnoreOption = IgnoreRule::ExcludeWith; }},
      {{"--ignore-file", "/program/cwds_en.txt"},
       [this](Settings& s) {
         s.WordsFiles = {PathToText(files.AbsolutePath("/program/cwds_en.txt"))};
         s.SelectedWordsFile = 0;
       }},
      {{"--common-words", "en"},
       [](Settings& s) {
         s.WordsFiles = {Below("/program", "cwds_en.txt")};
         s.SelectedWordsFile = 0;
         s.CommonWordsLanguage = CommonWords::English;
       }},
      {{"--ignore-words", "ibid viz"}, [](Settings& s) { s.ExtraWordsToIgnore = "ibid viz"; }},
      {{"--pattern-matching"}, [](Settings& s) { s.PatternMatchingInWordsToIgnoreFile = true; }},
      {{"--count-only", "cat"}, [](Settings&) {}},
      {{"--allow", "none"}, [](Settings& s) { s.Words.AllowHyphens = false; }},
      {{"--allow", "apostrophes,commas"},
       [](Settings& s) {
         s.Words.AllowHyphens = false;
         s.Words.AllowApostrophes = s.Words.AllowCommas = true;
       }},
      {{"--allow", "hyphens,underscores,colons,backslashes,forwardslashes,periods"},
       [](Settings& s) {
         s.Words.AllowUnderscores = s.Words.AllowColons = s.Words.AllowBackslashes = true;
         s.Words.AllowForwardslashes = s.Words.AllowPeriods = true;
       }},
      {{"--allow", "hyphens,at-signs,numerals,parentheses,ampersands"},
       [](Settings& s) {
         s.Words.AllowAtSigns = s.Words.AllowNumerals = true;
         s.Words.AllowParentheses = s.Words.AllowAmpersands = true;
       }},
      {{"--terminate", "none"},
       [](Settings& s) {
         s.Words.TerminateAtPeriod = s.Words.TerminateAtDoubleQuote = s.Words.TerminateAtTab = false;
       }},
      {{"--terminate", "line,comma"},
       [](Settings& s) {
         s.Words.TerminateAtPeriod = s.Words.TerminateAtDoubleQuote = s.Words.TerminateAtTab = false;
         s.Words.TerminateAtEndOfLine = s.Words.TerminateAtComma = true;
       }},
      {{"--case-significant"}, [](Settings& s) { s.Words.CaseSignificant = true; }},
      {{"--seven-bit"}, [](Settings& s) { s.Words.Only7bitASCII = true; }},
      {{"--short-words", "20"}, [](Settings& s) { s.Words.ShortWordSize = 20; }},
      {{"--short-words", "off"}, [](Settings& s) { s.Words.IgnoreShortWords = false; }},
      {{"--long-words", "80"}, [](Settings& s) { s.Words.LongWordSize = 80; }},
      {{"--keep-repetitions"}, [](Settings& s) { s.Words.IgnoreRepetitions = false; }},
      {{"--keep-letterless"}, [](Settings& s) { s.Words.IgnoreNoLetter = false; }},
      {{"--patterns", "*.txt,a*.xml  b*"}, [](Settings& s) { s.FilePatterns = "*.txt, a*.xml, b*"; }},
      {{"--exclude", "copy bak"}, [](Settings& s) { s.ExcludedTexts = "copy, bak"; }},
      {{"--subfolders"}, [](Settings& s) { s.IncludeSubfolders = true; }},
      {{"--format", "9"}, [](Settings& s) { s.Report.DisplayFormat = 9; }},
      {{"--order", "alphabetical"}, [](Settings& s) { s.Report.WordOrder = 1; }},
      {{"--relative"}, [](Settings& s) { s.Report.RelativeFrequency = true; }},
      // Only for a folder.
      {{"--sort-by-files"}, [](Settings&) {}},
      {{"--filter", " The  CAT, "}, [](Settings& s) { s.Report.FilterText = "the cat"; }},
      {{"--filter-mode", "subphrase"},
       [](Settings& s) { s.Report.FilterModeOfWords = FilterMode::Subphrase; }},
      {{"-o", "/out.txt"}, [](Settings& s) { s.OutputFile = Below("", "out.txt"); }},
  };
  for (const Case& c : cases) {
    files.Erase("/out.txt");
    Settings expected;
    expected.InputFile = Below("", "a.txt");
    c.Change(expected);
    std::vector<std::string> arguments = c.Arguments;
    arguments.insert(arguments.begin(), "/a.txt");
    EXPECT_EQ(*StateBytes(Resulting(arguments)), *StateBytes(expected))
        << testing::PrintToString(c.Arguments);
  }
}

TEST_F(CountProgramTest, ThePathSetsTheSource) {
  files.Add("/t/a.txt", kText);
  EXPECT_EQ(Resulting({"/a.txt"}).SourceKind, TextSource::SingleFile);
  const Settings folder = Resulting({"/t", "--format", "12", "--sort-by-files"});
  EXPECT_EQ(folder.SourceKind, TextSource::Folder);
  EXPECT_EQ(folder.Folder, Below("", "t"));
  EXPECT_EQ(folder.Report.DisplayFormat, 12);
  EXPECT_TRUE(folder.Report.SortByNumberOfFiles);
  EXPECT_EQ(Resulting({"-"}).SourceKind, TextSource::Clipboard);
}

TEST_F(CountProgramTest, LoadsSettingsAndLetsOptionsOverrideThem) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.OutputFile = "/from-settings.txt";
  settings.MinWords = 2;
  settings.MaxWords = 3;
  settings.ExcludedTexts = "kept as it is";
  files.Add("/s.korv", *StateBytes(settings));

  EXPECT_EQ(Count({"--settings", "/s.korv", "--save-settings", "/same.korv"}), 0);
  EXPECT_EQ(files.Content("/same.korv"), files.Content("/s.korv"));
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_THAT(files.Content("/from-settings.txt").value_or(""), HasSubstr("the big cat"));

  // It exists now.
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 1);
  EXPECT_EQ(Count({"--settings", "/s.korv", "--force"}), 0);

  // A path takes the place of the source, and of the output file with it.
  EXPECT_EQ(Count({"--settings", "/s.korv", "/a.txt"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("the big cat"));

  const Settings overridden = Resulting({"--settings", "/s.korv", "--force", "--max-words", "5"});
  EXPECT_EQ(overridden.MinWords, 2);
  EXPECT_EQ(overridden.MaxWords, 5);
  EXPECT_EQ(overridden.ExcludedTexts, "kept as it is");
}

TEST_F(CountProgramTest, NamesTheFormatOfSettingsThatIsNotAvailable) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.Report.DisplayFormat = 10;
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 0);
  EXPECT_THAT(err.str(), HasSubstr("'#10: Phrase, number of files, frequency' is available"));
}

TEST_F(CountProgramTest, DisabledOutputGoesToStandardOutput) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.OutputFile = "/r.txt";
  settings.DisableOutputToFile = true;
  settings.MinWords = 2;
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("the big cat"));
  EXPECT_EQ(files.Content("/r.txt"), std::nullopt);
  EXPECT_EQ(Count({"--settings", "/s.korv", "-o", "/r.txt"}), 0);
  EXPECT_THAT(files.Content("/r.txt").value_or(""), HasSubstr("the big cat"));
}

TEST_F(CountProgramTest, StandardInputTakesThePlaceOfTheClipboard) {
  Settings settings;
  settings.SourceKind = TextSource::Clipboard;
  settings.MinWords = 2;
  files.Add("/s.korv", *StateBytes(settings));
  input = kText;
  EXPECT_EQ(Count({"--settings", "/s.korv", "--layout", "tabs"}), 0);
  EXPECT_THAT(out.str(), StartsWith("There is one phrase"));
  EXPECT_EQ(Count({"--settings", "/s.korv", "--list-files"}), 2);
}

TEST_F(CountProgramTest, LoadsTheSelectedListOfTheSettings) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.MinWords = 2;
  settings.WordsFiles = {"/none.txt", "/program/cwds_en.txt"};
  settings.SelectedWordsFile = 1;
  settings.IgnoreOption = IgnoreRule::ExcludeWith;
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("  big cat\n"));
  settings.SelectedWordsFile = 0;
  files.Add("/s.korv", *StateBytes(settings));
  EXPECT_EQ(Count({"--settings", "/s.korv"}), 1);
  EXPECT_EQ(err.str(), "korv-count: File for words-to-ignore not found.\nFile: /none.txt\n");
}

TEST_F(CountProgramTest, NeverReplacesTheListOfTheSettings) {
  Settings settings;
  settings.InputFile = "/a.txt";
  settings.OutputFile = "/out.txt";
  settings.WordsFiles = {"/program/cwds_en.txt"};
  settings.SelectedWordsFile = 0;
  files.Add("/s.korv", *StateBytes(settings));
  files.Add("/out.txt", "a report");
  const auto list = files.Content("/program/cwds_en.txt");
  EXPECT_EQ(Count({"--settings", "/s.korv", "-o", "/program/cwds_en.txt", "--force"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The output file cannot be the same as /program/cwds_en.txt.\n");
  for (const std::string file : {"/program/cwds_en.txt", "/out.txt"}) {
    EXPECT_EQ(Count({"--settings", "/s.korv", "--save-settings", file, "--force"}), 1);
    EXPECT_EQ(err.str(), "korv-count: The settings file cannot be the same as " + file + ".\n");
  }
  EXPECT_EQ(files.Content("/program/cwds_en.txt"), list);
  EXPECT_EQ(files.Content("/out.txt"), "a report");
}

TEST_F(CountProgramTest, CommonWordsLoadInSilence) {
  EXPECT_EQ(Count({"/a.txt", "--common-words", "en", "--min-words", "2", "--ignore-mode", "remove"}), 0);
  EXPECT_EQ(err.str(), "8 words read, 2 dropped (2 to be ignored); ASCII\n");
  EXPECT_THAT(out.str(), HasSubstr("  big cat\n"));
}

TEST_F(CountProgramTest, RefusesDamagedSettings) {
  const std::string whole = *StateBytes(Settings{});
  struct Case {
    std::string Bytes;
    const char* Message;
  };
  for (const Case& c :
       {Case{"", "Input past end of file."},
        {whole.substr(0, whole.size() / 2), "Input past end of file."},
        {"nonsense", "Type mismatch."},
        {"\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n\"\"\r\n77\r\n", "Invalid combo box index."}}) {
    files.Add("/s.korv", c.Bytes);
    EXPECT_EQ(Count({"--settings", "/s.korv", "/a.txt"}), 1);
    EXPECT_THAT(err.str(), HasSubstr(c.Message));
    EXPECT_TRUE(err.str().ends_with("\nFile: /s.korv\n")) << err.str();
  }
}

TEST_F(CountProgramTest, ListsFiles) {
  files.Add("/t/b.txt", kText);
  files.Add("/t/A.txt", kText);
  files.Add("/t/page.js", kText);
  files.Add("/t/sub/c.txt", kText);
  EXPECT_EQ(Count({"/a.txt", "--list-files"}), 0);
  EXPECT_EQ(out.str(), "/a.txt\n");
  EXPECT_EQ(Count({"/t/", "--list-files"}), 0);
  EXPECT_EQ(out.str(), WithNativePaths("{Folder} = /t\n{Folder}/A.txt\n{Folder}/b.txt\n"));
  EXPECT_EQ(Count({"/t", "--list-files", "--subfolders", "--exclude", "b"}), 0);
  EXPECT_EQ(out.str(), WithNativePaths("{Folder} = /t\n{Folder}/A.txt\n{Folder}/sub/c.txt\n"));
  EXPECT_EQ(Count({"/t", "--list-files", "--patterns", "*.none"}), 0);
  EXPECT_EQ(out.str(), "{Folder} = /t\n");
  EXPECT_EQ(Count({"/none", "--list-files"}), 1);
  EXPECT_EQ(Count({"/t", "--list-files", "--patterns", "a<b"}), 1);
}

TEST_F(CountProgramTest, SaysWhenAListOfFilesWasStopped) {
  files.Add("/t/a.txt", kText);
  files.BeforeListing = [this](const std::filesystem::path&) { yielder->RequestStop(); };
  EXPECT_EQ(Count({"/t", "--list-files"}), 130);
  EXPECT_EQ(err.str(), "Stopped: these are not all files.\n");
  EXPECT_EQ(Count({"/t", "--list-files", "--quiet"}), 130);
  EXPECT_EQ(err.str(), "");
}

TEST_F(CountProgramTest, TellsOfSkippedFilesUnlessQuiet) {
  files.Add("/t/a.txt", kText);
  files.Add("/t/empty.txt", "");
  EXPECT_EQ(Count({"/t", "--min-words", "2"}), 0);
  const std::string told = "1 file was skipped:\n" + Below("{Folder}", "empty.txt") + ": is zero-length\n" +
                           "8 words read, none dropped; 1 file ASCII\n";
  EXPECT_EQ(err.str(), told);
  EXPECT_THAT(out.str(), StartsWith("1 file (in 1 folder) was scanned.\n"));
  EXPECT_EQ(Count({"/t", "-o", "/r.txt"}), 0);
  EXPECT_EQ(err.str(), told);
  EXPECT_EQ(Count({"/t", "--quiet"}), 0);
  EXPECT_THAT(err.str(), IsEmpty());
}

TEST_F(CountProgramTest, NeedsNoReportFileForSeveralFiles) {
  files.Add("/t/a.txt", kText);
  files.Add("/t/b.txt", kText);
  EXPECT_EQ(Count({"/t", "--min-words", "2", "--format", "10"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("the big cat"));
}

TEST_F(CountProgramTest, ListsFormat0WhereAFormatNeedsAFolder) {
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2", "--format", "10"}), 0);
  EXPECT_EQ(err.str(),
            "korv-count: The display format '#10: Phrase, number of files, frequency' is available\n"
            "only when the source of the text is a folder.\n" +
                std::string(kTextLine));
  EXPECT_THAT(out.str(), HasSubstr(" Rank  Freq  Phrase"));
  EXPECT_EQ(Count({"/a.txt", "--format", "10", "--quiet"}), 0);
  EXPECT_THAT(err.str(), IsEmpty());
}

TEST_F(CountProgramTest, AnswersQuestionsByItself) {
  // No to a higher minimum frequency, No to an output file for a large input, Yes to the filter.
  std::string text;
  while (text.size() < 300000) text += "The big cat sat with the small dog. ";
  files.Add("/large.txt", text + "one single phrase");
  EXPECT_EQ(Count({"/large.txt", "--min-words", "2", "--max-words", "2", "--min-frequency", "1", "--filter",
                   "single"}),
            0);
  EXPECT_THAT(out.str(), HasSubstr("one single\n"));
  EXPECT_THAT(out.str(), Not(HasSubstr("big cat")));
  EXPECT_THAT(err.str(), Not(HasSubstr("korv-count:")));
}

TEST_F(CountProgramTest, ReadsUtf8WithoutASignatureAsTheEncodingSays) {
  files.Add("/u.txt", "größer größer größer größer");
  EXPECT_EQ(Count({"/u.txt", "--min-words", "2"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("größer größer"));
  EXPECT_EQ(Count({"/u.txt", "--min-words", "2", "--encoding", "ansi"}), 0);
  EXPECT_THAT(out.str(), Not(HasSubstr("größer")));
}

TEST_F(CountProgramTest, AnInterruptListsWhatWasReadWithStatus130) {
  input = std::string(2000, ' ') + kText + std::string(200000, ' ') + "the end of it";
  int reads = 0;
  onRead = [&] {
    if (++reads == 4) yielder->RequestStop();
  };
  EXPECT_EQ(Count({"-", "--min-words", "2"}), 130);
  EXPECT_THAT(out.str(), HasSubstr("the big cat"));
  EXPECT_EQ(err.str(), "Stopped: the report covers the first 8 words.\n" + std::string(kTextLine));
  reads = 0;
  EXPECT_EQ(Count({"-", "--min-words", "2", "--quiet"}), 130);
  EXPECT_THAT(err.str(), IsEmpty());
}

TEST_F(CountProgramTest, AnInterruptBeforeAPhraseWasReadMakesNoReport) {
  input = kText;
  onRead = [&] { yielder->RequestStop(); };
  EXPECT_EQ(Count({"-", "--min-words", "20", "--max-words", "20"}), 130);
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_EQ(err.str(), "Stopped before a phrase was read: there is no report.\n");
}

TEST_F(CountProgramTest, ShowsProgressOnATerminalAndTakesItAway) {
  terminal = true;
  clock.Step = std::chrono::seconds(1);
  for (int k = 0; k < 30; ++k) input += kText;
  onRead = [] {};
  EXPECT_EQ(Count({"-", "--min-words", "2"}), 0);
  EXPECT_THAT(err.str(), HasSubstr("\r\x1b[KReading: "));
  EXPECT_TRUE(err.str().ends_with("\r\x1b[K240 words read, none dropped; ASCII\n")) << err.str();
  EXPECT_EQ(Count({"-", "--quiet"}), 0);
  EXPECT_THAT(err.str(), IsEmpty());
  terminal = false;
  EXPECT_EQ(Count({"-"}), 0);
  EXPECT_EQ(err.str(), "240 words read, none dropped; ASCII\n");
  EXPECT_EQ(Count({"-", "--progress"}), 0);
  EXPECT_THAT(err.str(), HasSubstr("Reading: 0 words\n"));
}

TEST_F(CountProgramTest, TellsTheTimesOfItsStagesWhenAsked) {
  EXPECT_EQ(Count({"/a.txt", "--stages"}), 0);
  for (const char* stage : {"reading and cutting\t", "counting\t", "sorting\t", "exclusion\t", "chain\t",
                            "writing\t", "words\t8\n"})
    EXPECT_THAT(err.str(), HasSubstr(stage));
}

TEST_F(CountProgramTest, TellsWhatBecameOfTheWords) {
  const std::string w40(40, 'w');
  std::string thousands;
  for (int k = 0; k < 1000; ++k) thousands += "to be ";
  struct Case {
    const char* Name;
    std::string Text;
    std::vector<std::string> Options;
    std::string Line;
  };
  for (const Case& c : std::vector<Case>{
           {"one of each",
            "a " + std::string(81, 'x') + " 123 hmmmm the caf\u00e9 cat big dog",
            {"--long-words", "80", "--allow", "numerals", "--ignore-words", "the", "--ignore-mode", "remove",
             "--seven-bit"},
            "9 words read, 6 dropped (1 shorter than 3 characters, 1 longer than 80 characters, "
            "1 without a letter, 1 with a letter four times in a row, 1 to be ignored, 1 not 7-bit); UTF-8"},
           {"phrases that are too long",
            w40 + " " + w40 + " " + w40,
            {"--keep-repetitions", "--min-words", "2", "--max-words", "3"},
            "3 words read, none dropped; 1 phrase of more than 100 characters not counted; ASCII"},
           {"thousands",
            thousands,
            {},
            "2,000 words read, 2,000 dropped (2,000 shorter than 3 characters); ASCII"},
           {"one word", "words, 1 2", {}, "1 word read, none dropped; ASCII"},
           {"bytes above 127 as ANSI",
            "caf\xE9 cat dog",
            {},
            "3 words read, none dropped; ANSI with bytes above 127"},
           {"ill-formed sequences",
            "\u00e9t\u00e9 caf\xE9 cat \xFF dog",
            {"--encoding", "utf-8"},
            "4 words read, none dropped; UTF-8, 2 ill-formed sequences replaced"}}) {
    files.Add("/c.txt", c.Text);
    std::vector<std::string> arguments = {"/c.txt"};
    arguments.insert(arguments.end(), c.Options.begin(), c.Options.end());
    EXPECT_EQ(Count(arguments), 0) << c.Name;
    EXPECT_EQ(err.str(), c.Line + "\n") << c.Name;
  }
  files.Add("/t/a.txt", kText);
  files.Add("/t/b.txt", kText);
  files.Add("/t/c.txt", "\u00e9t\u00e9 caf\u00e9");
  files.Add("/t/d.txt", "caf\xE9 cat dog");
  EXPECT_EQ(Count({"/t"}), 0);
  EXPECT_EQ(err.str(),
            "21 words read, none dropped; 1 file UTF-8, 1 file ANSI with bytes above 127, 2 files ASCII\n");
}

TEST_F(CountProgramTest, StandardOutputEndsWithALineEndWhateverIsListed) {
  files.Add("/t/a.txt", kText);
  for (const char* source : {"/a.txt", "/t"})
    for (int format = 0; format <= 12; ++format)
      for (const char* layout : {"columns", "tabs"})
        for (const std::vector<std::string>& more :
             std::vector<std::vector<std::string>>{{"--min-words", "2"},
                                                   {"--min-words", "2", "--filter", "nowhere"},
                                                   {"--min-words", "20", "--max-words", "20"},
                                                   {"--min-frequency", "20"}}) {
          std::vector<std::string> arguments = {source,     "--quiet", "--format", std::to_string(format),
                                                "--layout", layout};
          arguments.insert(arguments.end(), more.begin(), more.end());
          EXPECT_EQ(Count(arguments), 0);
          EXPECT_TRUE(out.str().ends_with('\n')) << testing::PrintToString(arguments);
          EXPECT_THAT(out.str(), Not(HasSubstr("\r")));
        }
}

TEST_F(CountProgramTest, ReadsListsInTheEncodingOfTheOptionsToo) {
  const std::string text = "caf\u00e9 noir sucr\u00e9. caf\u00e9 noir sucr\u00e9.\n";
  files.Add("/c.txt", text);
  files.Add("/l.txt", "\uFEFFcaf\u00e9\n");
  const std::vector<std::string> arguments = {
      "/c.txt", "--min-words", "2", "--ignore-file", "/l.txt", "--ignore-mode", "remove", "--format", "8"};
  for (const char* read : {"auto", "utf-8", "ansi"}) {
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"--encoding", read});
    EXPECT_EQ(Count(all), 0);
    const bool ansi = read == std::string("ansi");
    EXPECT_THAT(out.str(), HasSubstr(ansi ? "\nnoir sucr\u00e3\n" : "\nnoir sucr\u00e9\n")) << read;
    EXPECT_THAT(err.str(), HasSubstr("2 to be ignored")) << read;
  }
}

TEST_F(CountProgramTest, SavesSettingsBeforeTheRun) {
  files.Add("/short.txt", "abc");
  EXPECT_EQ(Count({"/short.txt", "--save-settings", "/s.korv"}), 1);
  Settings saved;
  EXPECT_TRUE(ReadStateBytes(files.Content("/s.korv").value_or(""), saved).Complete());
  EXPECT_EQ(saved.InputFile, Below("", "short.txt"));
}

TEST_F(CountProgramTest, SavesThePathsOfTheCommandLineInFull) {
  files.Add("/t/b.txt", kText);
  files.Add(files.AbsolutePath("x.txt"), kText);
  const Settings file = Resulting({"x.txt", "-o", "r.txt"});
  EXPECT_EQ(file.InputFile, PathToText(files.AbsolutePath("x.txt")));
  EXPECT_EQ(file.OutputFile, PathToText(files.AbsolutePath("r.txt")));
  EXPECT_EQ(Resulting({"/t/"}).Folder, PathToText(files.AbsolutePath("/t")));
}

TEST_F(CountProgramTest, ReplacesWhatIsNoSettingsFileOnlyByForce) {
  for (const char* content : {"my notes", "\"quoted\"\r\n1\r\n"}) {
    files.Add("/s.korv", content);
    EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv"}), 1);
    EXPECT_EQ(files.Content("/s.korv"), content);
    EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv", "--force"}), 0);
    EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv"}), 0) << "it holds settings now";
  }
  files.Add("/s.korv", "");
  EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv"}), 0) << "there is nothing to lose";
}

TEST_F(CountProgramTest, KeepsTheFileThatStandardInputReads) {
  files.Add("/in.txt", kText);
  inputPath = "/in.txt";
  input = kText;
  EXPECT_EQ(Count({"-", "-o", "/in.txt", "--force"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The output file cannot be the same as the input file.\n");
  EXPECT_EQ(Count({"-", "--save-settings", "/in.txt", "--force"}), 1);
  EXPECT_EQ(err.str(), "korv-count: The settings file cannot be the same as the input file.\n");
  EXPECT_EQ(files.Content("/in.txt"), kText);
  EXPECT_EQ(Count({"-", "-o", "/r.txt"}), 0);
}

TEST_F(CountProgramTest, SaysWhatARefusedFileIs) {
  const std::string advice = "\nIt is a PDF document.  Save its text as a text file (.txt) and count that.\n";
  files.Add("/a.pdf", "%PDF-1.7\n" + std::string(100, '\x01'));
  EXPECT_EQ(Count({"/a.pdf"}), 1);
  EXPECT_TRUE(err.str().ends_with(advice)) << err.str();
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

TEST_F(CountProgramTest, SaysWhenStandardOutputFails) {
  out.setstate(std::ios::badbit);
  EXPECT_EQ(Count({"/a.txt"}), 1);
  EXPECT_EQ(err.str(), "korv-count: Standard output cannot be written.\n");
}

// ---- Contexts

TEST_F(CountProgramTest, ContextsSayWhereAPhraseStandsAndInWhichWords) {
  files.Add("/t/1.txt", "The big cat sat.\r\nA\tbig\r\ncat ran.");
  files.Add("/t/2.txt", "No big, big cat");
  EXPECT_EQ(Count({"--context-of", "Big cat!", "--terminate", "none", "/t"}), kExitReport);
  const std::string first = Below("/t", "1.txt");
  EXPECT_EQ(out.str(), "file\tline\tcolumn\tleft\tphrase\tright\n" + first +
                           "\t1\t5\tThe\tbig cat\tsat. A big cat ran.\n" + first +
                           "\t2\t3\tThe big cat sat. A\tbig cat\tran.\n" + Below("/t", "2.txt") +
                           "\t1\t9\tNo big,\tbig cat\t\n");
  EXPECT_EQ(err.str(), "12 words read, 2 dropped (2 shorter than 3 characters); 2 files ASCII\n");
}

TEST_F(CountProgramTest, ContextsAreAsWideAndInTheOrderThatIsAskedFor) {
  files.Add("/t/1.txt", "one big cat zoo. two big cat yes\n. big cat");
  files.Add("/t/0/2.txt", "all big cat and");
  struct Case {
    const char* Order;
    const char* Lines;
  };
  const Case cases[] = {{"place", "1 1 1 2"}, {"left", "2 1 1 1"}, {"right", "1 2 1 1"}, {"file", "2 1 1 1"}};
  for (const Case& c : cases) {
    EXPECT_EQ(Count({"/t", "--subfolders", "--context-of", "big cat", "--contexts", "4", "--sort", c.Order}),
              kExitReport);
    std::istringstream rows(out.str());
    std::string row;
    std::getline(rows, row);
    std::string numbers;
    while (std::getline(rows, row))
      numbers += (numbers.empty() ? "" : " ") + row.substr(row.find(".txt") - 1, 1);
    EXPECT_EQ(numbers, c.Lines) << c.Order;
  }
  EXPECT_THAT(out.str(), HasSubstr("\tone\tbig cat\tzoo.\n"));
}

TEST_F(CountProgramTest, ContextsOfStandardInputAndOfWhatIsNowhere) {
  input = "the big cat\nthe big dog\n";
  EXPECT_EQ(Count({"-", "--context-of", "the big dog", "--contexts", "9"}), kExitReport);
  EXPECT_EQ(out.str(), "file\tline\tcolumn\tleft\tphrase\tright\n-\t2\t1\tbig cat\tthe big dog\t\n");
  for (const char* nowhere : {"big mouse", "cat. the", "the dog"}) {
    EXPECT_EQ(Count({"-", "--context-of", nowhere}), kExitReport) << nowhere;
    EXPECT_EQ(out.str(), "file\tline\tcolumn\tleft\tphrase\tright\n") << nowhere;
  }
}

TEST_F(CountProgramTest, ContextsNeedAPhraseThatTheRulesLeave) {
  std::string long26;
  for (int i = 0; i < 26; ++i) long26 += "cat ";
  EXPECT_EQ(Count({"/a.txt", "--context-of", "of 12"}), kExitUsage);
  EXPECT_EQ(err.str(), "korv-count: --context-of: 'of 12': the rules in force leave no word of it\n");
  EXPECT_EQ(Count({"/a.txt", "--context-of", long26}), kExitUsage);
  EXPECT_THAT(err.str(), HasSubstr("more than 25 words"));
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_EQ(Count({"/a.txt", "--context-of", long26.substr(4)}), kExitReport);
}

TEST_F(CountProgramTest, ContextOptionsGoTogether) {
  EXPECT_EQ(Count({"/a.txt", "--sort", "left"}), kExitUsage);
  EXPECT_EQ(Count({"/a.txt", "--contexts", "9"}), kExitUsage);
  EXPECT_EQ(Count({"/a.txt", "--context-of", "cat", "-o", "/out.txt"}), kExitUsage);
  EXPECT_EQ(Count({"/a.txt", "--context-of", "cat", "--output-format", "text"}), kExitUsage);
  EXPECT_EQ(Count({"/a.txt", "--context-of", "cat", "--output-format", "tsv"}), kExitReport);
  EXPECT_EQ(Count({"/a.txt", "--context-of", "cat", "--list-files"}), kExitUsage);
  EXPECT_EQ(Count({"/a.txt", "--context-of", "cat", "--sort", "size"}), kExitUsage);
}

TEST_F(CountProgramTest, ContextsOfAFileThatChangedMeanwhileAreTheWordsThatWereCounted) {
  files.Add("/t/1.txt", "The big cat sat. The big cat ran.\n");
  size_t openings = 0;
  files.BeforeOpening = [&](const std::filesystem::path& path) {
    if (path == "/t/1.txt" && ++openings == 2) files.Add("/t/1.txt", "The big cat");
  };
  EXPECT_EQ(Count({"/t", "--context-of", "big cat", "--contexts", "12"}), kExitReport);
  const std::string file = Below("/t", "1.txt");
  EXPECT_EQ(out.str(), "file\tline\tcolumn\tleft\tphrase\tright\n" + file +
                           "\t\t\tthe\tbig cat\tsat | the\n" + file + "\t\t\tsat | the\tbig cat\tran |\n");
  EXPECT_THAT(err.str(),
              HasSubstr(file + " has changed since it was counted: its contexts are the words that "
                               "were counted, without line and column.\n"));
}

}  // namespace
}  // namespace korv
