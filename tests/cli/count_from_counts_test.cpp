#include <chrono>
#include <thread>

#include "tests/cli/count_program_world.h"

namespace korv {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// korv-count with a file of counts.
class FromCountsTest : public CountProgramTest {
 protected:
  FromCountsTest() {
    files.Add("/c.tsv", "phrase\tfrequency\nbig cat\t3\nthe big cat\t3\nthe dog\t2\nof a it on\t9\n");
  }
};

TEST_F(FromCountsTest, CountsAreListedAsAText) {
  EXPECT_EQ(Count({"--from-counts", "/c.tsv", "--words", "2-3"}), kExitReport);
  EXPECT_EQ(out.str(),
            "There are 2 phrases with 2 to 3 words which occur at least twice.\n\n"
            " Rank  Freq  Phrase [longest has 11 characters]\n"
            "    1     3  the big cat\n"
            "    2     2  the dog\n");
  EXPECT_EQ(err.str(), "4 counts read, 1 of other lengths left out\n");
}

TEST_F(FromCountsTest, OptionsThatNeedNoPlacesHold) {
  struct Case {
    std::vector<std::string> Options;
    const char* Rows;
  };
  const Case cases[] = {{{"--keep-redundant"}, "big cat\t3\nthe big cat\t3\nthe dog\t2\n"},
                        {{"--min-frequency", "3"}, "the big cat\t3\n"},
                        {{"--order", "alphabetical"}, "the big cat\t3\nthe dog\t2\n"},
                        {{"--filter", "dog"}, "the dog\t2\n"},
                        {{"--match", "cat"}, "the big cat\t3\n"},
                        {{"--top", "1"}, "the big cat\t3\n"},
                        {{"--sort", "words:asc"}, "the dog\t2\nthe big cat\t3\n"},
                        {{"--count-only", "dog"}, "the dog\t2\n"},
                        {{"--ignore-words", "the dog"}, "the big cat\t3\n"},
                        {{"--ignore-words", "big dog", "--ignore-mode", "exclude-with"}, ""}};
  for (const Case& c : cases) {
    std::vector<std::string> arguments = {"--from-counts", "/c.tsv",    "--words",
                                          "2-3",           "--columns", "phrase,frequency"};
    arguments.insert(arguments.end(), c.Options.begin(), c.Options.end());
    EXPECT_EQ(Count(arguments), kExitReport) << err.str();
    EXPECT_EQ(out.str(), std::string("phrase\tfrequency\n") + c.Rows) << c.Options.front();
  }
}

TEST_F(FromCountsTest, WhatNeedsWordsOrPlacesIsEmpty) {
  EXPECT_EQ(
      Count({"--from-counts", "/c.tsv", "--words", "2-3", "--top", "1", "--columns",
             "phrase,frequency,per_million,percent,words,characters,files,files_percent,dispersion,range,arf,"
             "net_frequency,net_percent,first_file,first_line,mi,log_dice,mi_min,forward,c_value"}),
      kExitReport);
  EXPECT_THAT(out.str(), EndsWith("\nthe big cat\t3\t\t\t3\t11\t\t\t\t\t\t\t\t\t\t\t\t\t\t4.7548875\n"));
  EXPECT_EQ(Count({"--from-counts", "/c.tsv", "--words", "2-3", "--output-format", "json", "--top", "1"}),
            kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("\"source\":{\"paths\":[\"/c.tsv\"],\"counts\":4,\"skipped\":[]}"));
  EXPECT_THAT(out.str(), HasSubstr("\"per_million\":null"));
  EXPECT_EQ(Count({"--from-counts", "/c.tsv", "--words", "2-3", "--output-format", "html"}), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("Counts<"));
  EXPECT_THAT(out.str(), Not(HasSubstr("Running words")));
}

TEST_F(FromCountsTest, StandardInputHoldsCountsToo) {
  input = "the big cat\t1\na b\t5\nthe big cat\t1\n";
  EXPECT_EQ(Count({"--from-counts", "-", "--words", "3", "--columns", "phrase,frequency"}), kExitReport);
  EXPECT_EQ(out.str(), "phrase\tfrequency\nthe big cat\t2\n");
  EXPECT_EQ(err.str(), "3 counts read, 1 of other lengths left out\n");
}

TEST_F(FromCountsTest, ProgressTellsTheCounts) {
  terminal = true;
  clock.Step = std::chrono::seconds(1);
  for (int k = 0; k < 20000; ++k) input += "the big cat\t1\n";
  // Progress is told every 15 ms.
  onRead = [] { std::this_thread::sleep_for(std::chrono::milliseconds(20)); };
  EXPECT_EQ(Count({"--from-counts", "-", "--words", "3"}), kExitReport);
  EXPECT_THAT(err.str(), HasSubstr("\r\x1b[KReading: "));
  EXPECT_THAT(err.str(), HasSubstr(" counts\r"));
  EXPECT_TRUE(err.str().ends_with("\r\x1b[K20,000 counts read\n")) << err.str();
}

TEST_F(FromCountsTest, AnOutputFileNamesTheCounts) {
  EXPECT_EQ(Count({"--from-counts", "/c.tsv", "--words", "2-3", "-o", "/r.txt"}), kExitReport);
  EXPECT_THAT(files.Content("/r.txt").value_or(""), StartsWith("File: /c.tsv\r\nThere are 2 phrases "));
  EXPECT_EQ(Count({"--from-counts", "/c.tsv", "-o", "/c.tsv", "--force"}), kExitRefused);
}

TEST_F(FromCountsTest, ALineThatIsNoCountIsRefusedWithItsNumber) {
  struct Case {
    std::string Bytes;
    const char* Text;
  };
  const Case cases[] = {
      {"a b\t1\nc d\n",
       "Line 2 is no count: there must be a phrase, a tab and a frequency, or the columns of the heading."},
      {"a b\t1\nc d\tx\n", "Line 2 is no count: a frequency is a whole number from 1 to 2,147,483,647."},
      {"a  b\t1\n", "Line 1 is no count: a phrase is words in UTF-8 with single blanks between them."},
      {"a b\t2147483647\na b\t1\n",
       "Line 2: the frequencies of this phrase add up to more than 2,147,483,647."},
      {std::string(70000, 'x'), "Line 1 is no count: it has more than 65,536 bytes."},
      {"a the\t1\n",
       "Line 1 holds a word to ignore, which cannot be taken out of a phrase that has been counted."}};
  for (const Case& c : cases) {
    files.Add("/bad.tsv", c.Bytes);
    EXPECT_EQ(Count({"--from-counts", "/bad.tsv", "--words", "2-3", "--ignore-mode", "remove",
                     "--ignore-words", "the", "-o", "/o.csv"}),
              kExitRefused);
    EXPECT_EQ(err.str(), "korv-count: " + std::string(c.Text) + "\nFile: /bad.tsv\n");
    EXPECT_EQ(files.Content("/o.csv"), std::nullopt);
  }
  EXPECT_EQ(Count({"--from-counts", "/none.tsv"}), kExitRefused);
  unreadable = true;
  EXPECT_EQ(Count({"--from-counts", "-"}), kExitRefused);
  EXPECT_THAT(err.str(), HasSubstr("The counts cannot be read: Input/output error"));
}

TEST_F(FromCountsTest, WhatNeedsATextIsWrongUsage) {
  struct Case {
    std::vector<std::string> Options;
    const char* What;
  };
  const Case cases[] = {{{"/a.txt"}, "PATH"},
                        {{"-"}, "PATH"},
                        {{"--files-from", "/list"}, "--files-from"},
                        {{"--context-of", "big cat"}, "--context-of"},
                        {{"--list-files"}, "--list-files"},
                        {{"--save-settings", "/s.korv"}, "--save-settings"},
                        {{"--print-settings"}, "--print-settings"},
                        {{"--format", "10"}, "--format 10, 11 and 12"},
                        {{"--format", "12"}, "--format 10, 11 and 12"},
                        {{"--min-files", "1"}, "--min-files"},
                        {{"--min-net", "1"}, "--min-net"},
                        {{"--min-per-million", "1"}, "--min-per-million"}};
  for (const Case& c : cases) {
    std::vector<std::string> arguments = {"--from-counts", "/c.tsv"};
    arguments.insert(arguments.end(), c.Options.begin(), c.Options.end());
    EXPECT_EQ(Count(arguments), kExitUsage) << c.What;
    EXPECT_THAT(err.str(), HasSubstr("--from-counts: excludes " + std::string(c.What)));
  }
  EXPECT_EQ(Count({"--from-counts", ""}), kExitUsage);
}

TEST_F(FromCountsTest, CountsReplaceTheSourceAndTheOutputOfSettings) {
  EXPECT_EQ(Count({"/a.txt", "--words", "2-3", "--save-settings", "/s.korv", "-o", "/r.txt"}), kExitReport);
  files.Erase("/r.txt");
  EXPECT_EQ(Count({"--settings", "/s.korv", "--from-counts", "/c.tsv", "--columns", "phrase"}), kExitReport);
  EXPECT_EQ(out.str(), "phrase\nthe big cat\nthe dog\n");
  EXPECT_EQ(Count({"--settings", "/s.korv", "--from-counts", "/c.tsv"}), kExitReport);
  EXPECT_THAT(out.str(), HasSubstr("the dog"));
  EXPECT_EQ(files.Content("/r.txt"), std::nullopt);
}

TEST_F(FromCountsTest, AStopWhileCountsAreReadMakesNoReport) {
  input = "a b\t1\n";
  onRead = [&] { yielder->RequestStop(); };
  EXPECT_EQ(Count({"--from-counts", "-", "--min-frequency", "1", "--words", "2"}), kExitInterrupted);
  EXPECT_THAT(out.str(), IsEmpty());
  EXPECT_EQ(err.str(), "Stopped before all counts were read: there is no report.\n");
}

}  // namespace
}  // namespace korv
