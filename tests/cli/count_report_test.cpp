#include "tests/cli/count_program_world.h"
#include "tests/fakes/fake_code_page.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

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
    "rank\tphrase\tfrequency\tper_million\twords\tcharacters\tfiles\tdispersion\tnet_frequency\tfirst_file\t"
    "first_line\n"
    "1\tthe big cat\t2\t285714.286\t3\t11\t1\t\t2\t";

TEST_F(CountProgramTest, WritesATableWhereTheFormatSaysSo) {
  files.Add("/t.txt", "The big cat sat. The big cat.\n");
  const std::vector<std::string> arguments = {"/t.txt", "--min-words", "2", "--output-format", "tsv"};
  EXPECT_EQ(Count(arguments), 0);
  EXPECT_EQ(out.str(), std::string(kTable) + "/t.txt\t1\n");
  std::vector<std::string> filtered = arguments;
  for (const char* argument : {"--filter", "dog", "--format", "9", "--relative", "--layout", "tabs"})
    filtered.emplace_back(argument);
  EXPECT_EQ(Count(filtered), 0);
  EXPECT_EQ(out.str(), std::string(kTable).substr(0, out.str().size()));
  EXPECT_TRUE(out.str().ends_with("first_line\n"));
  input = "The big cat sat. The big cat.\n";
  EXPECT_EQ(Count({"-", "--min-words", "2", "--output-format", "tsv"}), 0);
  EXPECT_EQ(out.str(), std::string(kTable) + "-\t1\n");
}

TEST_F(CountProgramTest, TheExtensionOfTheReportFileSaysWhatItHolds) {
  FakeCodePage page;
  encoding = &page;
  files.Add(PathFromText("/\u0395.txt"), "The big cat sat. The big cat.\n");
  EXPECT_EQ(Count({"/\u0395.txt", "--min-words", "2", "-o", "/r.TSV"}), 0);
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_EQ(files.Content("/r.TSV"), std::string(kTable) + "/\u0395.txt\t1\n");
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

TEST_F(CountProgramTest, SaysWhenStandardOutputFails) {
  out.setstate(std::ios::badbit);
  EXPECT_EQ(Count({"/a.txt"}), 1);
  EXPECT_EQ(err.str(), "korv-count: Standard output cannot be written.\n");
}

}  // namespace
}  // namespace korv
