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
                        {"100", "dim sun\t100\nred hen\t50\nwet day\t50\n"}};
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
          {{"--parts", "1"}, "--parts: 1 is not between 2 and 100"},
          {{"--parts", "file"}, "--parts: 'file' is no number"},
      });
}

}  // namespace
}  // namespace korv
