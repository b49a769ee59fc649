#include <string>
#include <vector>

#include "cli/options.h"
#include "tests/cli/count_program_world.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// Which phrases korv-count lists, and in which order.
class CountChoiceTest : public CountProgramTest {
 protected:
  CountChoiceTest() {
    files.Add("/t/1.txt", "Red hen. Red hen. Red hen. Blue cat. Blue cat. Old red hen.");
    files.Add("/t/2.txt", "Blue cat. Dim sun. Dim sun. Green café. Green café.");
  }

  /// What a run with these arguments writes.
  std::string Out(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"/t", "--min-words", "2", "--max-words", "3"});
    EXPECT_EQ(Count(arguments), kExitReport) << err.str();
    return out.str();
  }
  /// The phrases of a table in their order.
  std::string Phrases(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--columns", "phrase"});
    std::string text = Out(std::move(arguments));
    EXPECT_TRUE(text.starts_with("phrase\n"));
    text = text.substr(7);
    for (char& c : text) c = c == '\n' ? ';' : c;
    return text;
  }
};

TEST_F(CountChoiceTest, TablesAreOrderedByAnyColumn) {
  struct Case {
    const char* Sort;
    const char* Phrases;
  };
  const Case cases[] = {
      {"frequency", "red hen;blue cat;dim sun;green café;"},
      {"frequency:asc", "dim sun;green café;blue cat;red hen;"},
      {"phrase", "blue cat;dim sun;green café;red hen;"},
      {"phrase:desc", "red hen;green café;dim sun;blue cat;"},
      {"characters", "green café;blue cat;dim sun;red hen;"},
      {"files", "blue cat;dim sun;green café;red hen;"},
      {"rank:asc", "red hen;blue cat;dim sun;green café;"},
      {"first_file", "red hen;blue cat;dim sun;green café;"},
      {"net_frequency:asc", "dim sun;green café;blue cat;red hen;"},
  };
  for (const Case& c : cases) EXPECT_EQ(Phrases({"--sort", c.Sort}), c.Phrases) << c.Sort;
}

TEST_F(CountChoiceTest, AnOrderMakesATableOfTheUsualColumns) {
  EXPECT_THAT(Out({"--sort", "phrase"}), HasSubstr("rank\tphrase\tfrequency\tper_million\twords"));
  EXPECT_THAT(Out({"--sort", "phrase"}), HasSubstr("\n2\tblue cat\t3\t"));
}

TEST_F(CountChoiceTest, WithoutASortTablesHaveTheOrderOfTheReport) {
  EXPECT_EQ(Phrases({}), "red hen;blue cat;dim sun;green café;");
  EXPECT_EQ(Phrases({"--order", "alphabetical", "--top", "2"}), "blue cat;dim sun;");
  EXPECT_EQ(Phrases({"--format", "12", "--sort-by-files", "--top", "2"}), "blue cat;red hen;");
}

TEST_F(CountChoiceTest, PhrasesThatMatchAreListed) {
  struct Case {
    std::vector<std::string> Arguments;
    const char* Phrases;
  };
  const Case cases[] = {
      {{"--match", "E"}, "red hen;blue cat;green café;"},
      {{"--match", "ue ca"}, "blue cat;"},
      {{"--match=-red"}, "blue cat;dim sun;green café;"},
      {{"--match", "cat", "--match-mode", "words"}, "blue cat;"},
      {{"--match", "ca", "--match-mode", "words"}, ""},
      {{"--match", "re", "--match-mode", "starts"}, "red hen;"},
      {{"--match", "n", "--match-mode", "ends"}, "red hen;dim sun;"},
      {{"--match", "?e* h*", "--match-mode", "wildcard"}, "red hen;"},
      {{"--match", "^(red|dim) |é$", "--match-mode", "regex"}, "red hen;dim sun;green café;"},
      {{"--match", ""}, "red hen;blue cat;dim sun;green café;"},
  };
  for (const Case& c : cases) EXPECT_EQ(Phrases(c.Arguments), c.Phrases) << c.Arguments.back();
}

TEST_F(CountChoiceTest, PhrasesBelowALimitAreLeftOut) {
  EXPECT_EQ(Phrases({"--min-files", "2"}), "blue cat;");
  EXPECT_EQ(Phrases({"--min-per-million", "130434.8"}), "red hen;");
  EXPECT_EQ(Phrases({"--min-per-million", "0", "--min-files", "0"}), "red hen;blue cat;dim sun;green café;");
  EXPECT_EQ(Phrases({"--min-net", "3"}), "red hen;blue cat;");
}

TEST_F(CountChoiceTest, NetFrequencyIsWithoutTheOccurrencesInLongerPhrases) {
  files.Add("/a.txt", "Old red hen. Old red hen. Red hen.");
  const std::vector<std::string> arguments = {"/a.txt",      "--min-words", "2",
                                              "--max-words", "3",           "--min-net",
                                              "2",           "--columns",   "phrase,net_frequency"};
  EXPECT_EQ(Count(arguments), kExitReport);
  EXPECT_EQ(out.str(), "phrase\tnet_frequency\nold red hen\t2\n");
}

TEST_F(CountChoiceTest, RanksStayThoseOfTheWholeList) {
  EXPECT_EQ(Out({"--match", "cat", "--columns", "rank,phrase"}), "rank\tphrase\n2\tblue cat\n");
  EXPECT_EQ(Out({"--top", "1", "--sort", "phrase:desc", "--columns", "rank,phrase"}),
            "rank\tphrase\n1\tred hen\n");
  EXPECT_EQ(
      Out({"--min-files", "2", "--layout", "tabs", "--format", "0", "--quiet"}).find("Phrase filtering"),
      std::string::npos);
}

/// The lines of a text report that hold a phrase.
std::string LinesWithPhrases(const std::string& report) {
  std::string lines;
  for (size_t at = 0; at < report.size();) {
    const size_t end = std::min(report.find('\n', at), report.size());
    const std::string line = report.substr(at, end - at);
    for (const char* phrase : {"red hen", "blue cat", "dim sun", "green café"})
      if (line.find(phrase) != std::string::npos) lines += line.substr(line.find_first_not_of(' ')) + ";";
    at = end + 1;
  }
  return lines;
}

TEST_F(CountChoiceTest, TheTextReportIsChosenFromAsAFilterDoes) {
  const std::string whole = Out({});
  EXPECT_EQ(LinesWithPhrases(whole),
            "1     4  red hen;2     3  blue cat;3     2  dim sun;4     2  green café;");
  EXPECT_EQ(LinesWithPhrases(Out({"--match", "cat"})), "2     3  blue cat;");
  EXPECT_EQ(LinesWithPhrases(Out({"--top", "2"})), "1     4  red hen;2     3  blue cat;");
  EXPECT_EQ(LinesWithPhrases(Out({"--min-files", "2"})), "2     3  blue cat;");
  EXPECT_EQ(LinesWithPhrases(Out({"--min-per-million", "130434.8"})), "1     4  red hen;");
  EXPECT_EQ(LinesWithPhrases(Out({"--order", "alphabetical", "--top", "1"})), "2     3  blue cat;");
  EXPECT_EQ(LinesWithPhrases(Out({"--filter", "red", "--top", "1"})), "1     4  red hen;");
  // The same report but for the lines: no notice tells of the choice.
  EXPECT_EQ(Out({"--top", "all"}), whole);
  EXPECT_EQ(Out({"--top", "4"}), whole);
  EXPECT_EQ(Out({"--match", "no such text"}), whole.substr(0, whole.find("    1 ")));
}

TEST_F(CountChoiceTest, FilterAndTopTogetherListTheFirstThatPassBoth) {
  EXPECT_EQ(Phrases({"--filter", "blue", "--top", "1"}), "blue cat;");
  EXPECT_EQ(Phrases({"--filter", "sun", "--match", "d", "--sort", "phrase", "--top", "1"}), "dim sun;");
}

TEST_F(CountChoiceTest, OutputFilesAreChosenForToo) {
  Out({"--top", "1", "-o", "/out.txt"});
  EXPECT_THAT(files.Content("/out.txt").value_or(""), HasSubstr("red hen"));
  EXPECT_THAT(files.Content("/out.txt").value_or(""), Not(HasSubstr("blue cat")));
  Out({"--sort", "phrase", "--top", "1", "-o", "/out.tsv"});
  EXPECT_THAT(files.Content("/out.tsv").value_or(""), HasSubstr("\n2\tblue cat\t"));
  // What only a table can show is one, whatever the name of the file.
  Out({"--sort", "phrase", "--top", "1", "-o", "/sorted.txt"});
  EXPECT_EQ(files.Content("/sorted.txt"), files.Content("/out.tsv"));
}

TEST_F(CountChoiceTest, WhatMakesNoSenseIsWrongUsage) {
  ExpectWrongUsage(
      "/t",
      {
          {{"--sort", "left"}, "--sort: 'left' needs --context-of"},
          {{"--sort", "fequency"}, "--sort: there is no column 'fequency'; did you mean frequency?"},
          {{"--sort", "frequency:down"}, "--sort: 'down' is none of: asc|desc"},
          {{"--sort", "frequency:"}, "--sort: '' is none of: asc|desc"},
          {{"--sort", ""}, "--sort: there is no column ''"},
          {{"--sort", "phrase", "--output-format", "text"},
           "--sort: makes a table, which --output-format text"},
          {{"--min-net", "2", "--output-format", "text"},
           "--min-net: makes a table, which --output-format text"},
          {{"--min-net", "-1"}, "--min-net: -1 is not between 0 and"},
          {{"--min-files", "two"}, "--min-files: 'two' is no number"},
          {{"--min-per-million", "nan"}, "--min-per-million: 'nan' is no number"},
          {{"--min-per-million", "1,5"}, "--min-per-million: '1,5' is no number"},
          {{"--min-per-million=-1"}, "--min-per-million: -1 is less than 0"},
          {{"--top", "0"}, "--top: 0 is not between 1 and"},
          {{"--top", "some"}, "--top: 'some' is no number"},
          {{"--match", "a(", "--match-mode", "regex"},
           "--match: 'a(' is no regular expression: missing closing parenthesis, at character 3"},
          {{"--match-mode", "words"}, "--match-mode: needs --match"},
          {{"--match", "a", "--match-mode", "fuzzy"},
           "'fuzzy' is none of: contains|words|starts|ends|wildcard|regex"},
          {{"--context-of", "red hen", "--sort", "phrase"},
           "--sort: 'phrase' is none of: place|left|right|file"},
          {{"--context-of", "red hen", "--match", "a"}, "--context-of: excludes --match"},
          {{"--context-of", "red hen", "--top", "1"}, "--context-of: excludes --top"},
          {{"--context-of", "red hen", "--min-files", "1"}, "--context-of: excludes --min-files"},
          {{"--context-of", "red hen", "--min-per-million", "1"}, "--context-of: excludes --min-per-million"},
          {{"--context-of", "red hen", "--min-net", "1"}, "--context-of: excludes --min-net"},
      });
}

}  // namespace
}  // namespace korv
