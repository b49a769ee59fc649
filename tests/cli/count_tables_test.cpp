#include <chrono>

#include "cli/options.h"
#include "tests/cli/count_program_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// 400 words, with "red hen" in the first half and "dim sun" all over.
std::string Uneven() {
  std::string text;
  for (int i = 0; i < 100; ++i) text += i < 50 ? "red hen. dim sun. " : "wet day. dim sun. ";
  return text;
}

TEST_F(CountProgramTest, TablesHaveTheColumnsThatAreAskedFor) {
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2", "--columns", "phrase, frequency,words"}), kExitReport);
  EXPECT_EQ(out.str(), "phrase\tfrequency\twords\nthe big cat\t2\t3\n");
  EXPECT_EQ(err.str(), kTextLine);
}

TEST_F(CountProgramTest, TablesTellWhatNeedsThePlacesOfPhrases) {
  files.Add("/t/1.txt", "The big cat sat.\nThe big cat ran.\n\nA big cat");
  files.Add("/t/2.txt", "The big cat");
  EXPECT_EQ(Count({"/t", "--min-words", "2", "--columns",
                   "phrase,frequency,net_frequency,net_percent,files,dispersion,arf,first_file,first_line"}),
            kExitReport);
  const std::string first = Below("/t", "1.txt");
  EXPECT_EQ(out.str(),
            "phrase\tfrequency\tnet_frequency\tnet_percent\tfiles\tdispersion\tarf\tfirst_file\tfirst_line\n"
            "big cat\t4\t1\t25\t2\t0.975\t3.76923077\t" +
                first + "\t1\nthe big cat\t3\t3\t100\t2\t0.866666667\t2.61538462\t" + first + "\t1\n");
  EXPECT_THAT(err.str(),
              StartsWith("84.6 % of the words taken stand in phrases that occur at least 2 times\n"));
}

TEST_F(CountProgramTest, StandardInputHasLinesAndNoOtherFile) {
  input = "one\n\nbig cat. red hen.\nred hen. big cat.\n";
  EXPECT_EQ(Count({"-", "--min-words", "2", "--columns", "phrase,first_file,first_line,files,dispersion"}),
            kExitReport);
  EXPECT_EQ(out.str(),
            "phrase\tfirst_file\tfirst_line\tfiles\tdispersion\nbig cat\t-\t3\t1\t\nred hen\t-\t3\t1\t\n");
}

TEST_F(CountProgramTest, PartsAreFilesOrAsManyAsAreAskedFor) {
  files.Add("/a.txt", Uneven());
  const std::vector<std::string> arguments = {"/a.txt", "--min-words", "2", "--columns", "phrase,range"};
  struct Case {
    const char* Parts;
    const char* Ranges;
  };
  const Case cases[] = {{"files", "dim sun\t4\nred hen\t2\nwet day\t2\n"},
                        {"2", "dim sun\t2\nred hen\t1\nwet day\t1\n"},
                        {"100", "dim sun\t100\nred hen\t50\nwet day\t50\n"},
                        {"each:2", "dim sun\t2\nred hen\t1\nwet day\t1\n"}};
  for (const Case& c : cases) {
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"--parts", c.Parts});
    EXPECT_EQ(Count(all), kExitReport);
    EXPECT_EQ(out.str(), std::string("phrase\trange\n") + c.Ranges) << c.Parts;
  }
}

TEST_F(CountProgramTest, TablesWithColumnsGoWhereOutputGoes) {
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2", "--columns", "phrase", "-o", "/out.txt"}), kExitReport);
  EXPECT_EQ(files.Content("/out.txt"), "phrase\nthe big cat\n");
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_EQ(Count({"/a.txt", "--columns", "phrase", "--save-settings", "/s.korv", "-o", "/r.txt"}),
            kExitReport);
  // The output file of settings is for the report as text.
  files.Remove("/r.txt");
  EXPECT_EQ(Count({"--settings", "/s.korv", "--columns", "phrase"}), kExitReport);
  EXPECT_THAT(out.str(), StartsWith("phrase\n"));
  EXPECT_EQ(files.Content("/r.txt"), std::nullopt);
}

TEST_F(CountProgramTest, TheFormOfATableIsThatOfTheFileOrTheOneAskedFor) {
  struct Case {
    std::vector<std::string> Arguments;
    const char* File;  ///< Null for standard output.
    const char* Begin;
  };
  const Case cases[] = {
      {{"-o", "/o.csv"},
       "/o.csv",
       "rank,phrase,frequency,per_million,words,characters,files,dispersion,net_frequency,"
       "first_file,first_line\r\n1,the big cat,2,"},
      {{"-o", "/o.JSONL"}, "/o.JSONL", "{\"rank\":1,\"phrase\":\"the big cat\",\"frequency\":2,"},
      {{"-o", "/o.json"}, "/o.json", "{\"korv\":{\"version\":\"1."},
      {{"-o", "/o.md"}, "/o.md", "| Rank | Phrase |"},
      {{"-o", "/o.html"}, "/o.html", "<!DOCTYPE html>"},
      {{"-o", "/o.tsv", "--output-format", "csv"}, "/o.tsv", "rank,phrase,"},
      {{"-o", "/o.csv", "--output-format", "text"}, "/o.csv", "File: /a.txt\r\n"},
      {{"-o", "/o.txt", "--output-format", "csv", "--columns", "phrase"},
       "/o.txt",
       "phrase\r\nthe big cat\r\n"},
      {{"--output-format", "ndjson", "--columns", "phrase"}, nullptr, "{\"phrase\":\"the big cat\"}\n"},
      {{"--csv-for", "excel", "--columns", "phrase"}, nullptr, "\uFEFFphrase\r\nthe big cat\r\n"},
      {{"-o", "/e.csv", "--csv-for", "excel", "--columns", "phrase"}, "/e.csv", "\uFEFFphrase\r\n"},
      {{"-o", "/e.txt", "--output-format", "csv", "--csv-for", "excel", "--columns", "phrase"},
       "/e.txt",
       "\uFEFFphrase\r\n"},
  };
  for (const Case& c : cases) {
    std::vector<std::string> arguments{"/a.txt", "--min-words", "2", "--force"};
    arguments.insert(arguments.end(), c.Arguments.begin(), c.Arguments.end());
    EXPECT_EQ(Count(arguments), kExitReport) << err.str();
    const std::string written = c.File == nullptr ? out.str() : files.Content(c.File).value_or("");
    EXPECT_THAT(written, StartsWith(c.Begin)) << c.Arguments.back();
  }
}

TEST_F(CountProgramTest, ATableTellsOfItsRun) {
  clock.Wall = std::chrono::sys_days{std::chrono::year{2026} / 11 / 22} + std::chrono::hours(9);
  EXPECT_EQ(Count({"/a.txt", "--min-words", "2", "--output-format", "json", "--ignore-words", "o'clock"}),
            kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("\"created\":\"2026-11-22T09:00:00Z\","
                                   "\"command\":\"korv-count /a.txt --min-words 2 --output-format json "
                                   "--ignore-words 'o'\\\\''clock'\"}"));
  EXPECT_THAT(out.str(), HasSubstr("\"paths\":[\"/a.txt\"],\"files\":1,\"words\":"));
  EXPECT_THAT(out.str(), HasSubstr("\"MinWords\":2,\"MaxWords\":6,"));
  EXPECT_THAT(out.str(), HasSubstr("\"WordOrder\":\"frequency\""));
  input = "The big cat. The big cat.";
  EXPECT_EQ(Count({"-", "--output-format", "json"}), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("\"paths\":[\"-\"],\"files\":1,"));
}

TEST_F(CountProgramTest, FormsForReadingHaveAllRowsThatAreAskedFor) {
  std::string text;
  for (char a = 'g'; a <= 'z'; ++a)
    for (char b = 'a'; b <= 'f'; ++b) text += std::string("red ") + a + b + a + b + "x. ";
  files.Add("/a.txt", text + text);
  const std::vector<std::string> arguments = {"/a.txt", "--min-words", "2",     "--output-format",
                                              "md",     "--columns",   "phrase"};
  EXPECT_EQ(Count(arguments), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("\n20 more phrases are left out.\n"));
  for (const char* top : {"all", "120", "119"}) {
    std::vector<std::string> all = arguments;
    all.insert(all.end(), {"--top", top});
    EXPECT_EQ(Count(all), kExitReport);
    EXPECT_THAT(out.str(), testing::Not(HasSubstr("left out")));
    EXPECT_EQ(std::ranges::count(out.str(), '\n'), top == std::string("119") ? 121 : 122);
  }
}

TEST_F(CountProgramTest, BinaryTablesAreForFilesAndNeedTheirLibrary) {
  for (const std::string name : {"xlsx", "sqlite"}) {
    const bool there = TableFormOf(name).Make != nullptr;
    const std::string toOutput = there ? "--output-format: " + name + " is no text and needs --output FILE"
                                       : "--output-format: this korv-count does not write " + name;
    ExpectWrongUsage("/a.txt", {{{"--output-format", name}, toOutput.c_str()},
                                {{"--output-format", name, "--columns", "phrase"}, toOutput.c_str()},
                                {{"--output-format", name, "--context-of", "big cat"}, toOutput.c_str()}});
    if (there) continue;
    const std::string toFile = "--output: this korv-count does not write " + name;
    ExpectWrongUsage("/a.txt", {{{"-o", "/o." + name}, toFile.c_str()}});
  }
  // Whatever the name, the report as text can be had.
  EXPECT_EQ(Count({"/a.txt", "-o", "/o.xlsx", "--output-format", "text"}), kExitReport);
  EXPECT_THAT(files.Content("/o.xlsx").value_or(""), StartsWith("File: /a.txt\r\n"));
}

TEST_F(CountProgramTest, BinaryTablesThatCannotBeWrittenLeaveTheFileAsItWas) {
  files.Add("/o.xlsx", "old");
  files.Add("/o.sqlite", "old");
  for (const std::string name : {"xlsx", "sqlite"}) {
    if (TableFormOf(name).Make == nullptr) continue;
    // The folder for what is temporary is one of the fake disk, where no library can write.
    EXPECT_EQ(Count({"/a.txt", "-o", "/o." + name, "--force", "--min-words", "2"}), kExitRefused);
    EXPECT_THAT(err.str(), HasSubstr("At ListWords error # "));
    EXPECT_EQ(files.Content("/o." + name), "old");
    EXPECT_TRUE(files.TemporaryIsClean());
  }
}

TEST_F(CountProgramTest, ColumnsThatMakeNoSenseAreWrongUsage) {
  ExpectWrongUsage(
      "/a.txt",
      {
          {{"--columns", "phrase,freqency"}, "there is no column 'freqency'; did you mean frequency?"},
          {{"--columns", "report_rank"}, "The columns are: rank phrase words characters frequency"},
          {{"--columns", "phrase,,rank"}, "there is no column ''"},
          {{"--columns", "rank,phrase,rank"}, "'rank' is given twice"},
          {{"--columns", ""}, "a column is needed"},
          {{"--columns", "rank", "--output-format", "text"}, "--columns: makes a table"},
          {{"--columns", "rank", "--context-of", "big cat"}, "--context-of: excludes --columns"},
          {{"--csv-for", "excel", "--output-format", "tsv"}, "--csv-for: is for the output format csv"},
          {{"--csv-for", "excel", "-o", "/x.json"}, "--csv-for: is for the output format csv"},
          {{"--csv-for", "excel", "--output-format", "text"}, "--csv-for: is for the output format csv"},
          {{"--csv-for", "excel", "--context-of", "big cat"}, "--context-of: excludes --csv-for"},
          {{"--csv-for", "word"}, "--csv-for"},
          {{"--parts", "1"}, "--parts: 1 is not between 2 and 100"},
          {{"--parts", "file"}, "--parts: 'file' is no number"},
          {{"--parts", "each:1"}, "--parts: 1 is not between 2 and 100"},
          {{"--parts", "each:"}, "--parts: '' is no number"},
          {{"--parts", "each:files"}, "--parts: 'files' is no number"},
      });
}

}  // namespace
}  // namespace korv
