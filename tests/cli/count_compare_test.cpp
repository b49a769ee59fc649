// Two sides that are compared.

#include <gmock/gmock.h>

#include "tests/cli/count_program_world.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

class CountCompareTest : public CountProgramTest {
 protected:
  CountCompareTest() {
    files.Add("/a/1.txt", "The old man sat.\nThe old man ran.\nThe old man slept.\nThe old house.\n");
    files.Add("/a/2.txt", "The old man woke.\nThe old house.\n");
    files.Add("/b.txt", "The old house.\nThe new house.\nThe new house.\nThe new house fell.\n");
  }

  int Compare(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(),
                     {"/a", "--words", "2-3", "--terminate", "line", "--compare", "/b.txt"});
    return Count(std::move(arguments));
  }

  /// The phrases listed, each with a blank behind.
  std::string Listed(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--columns", "phrase"});
    EXPECT_EQ(Compare(std::move(arguments)), 0) << err.str();
    std::string phrases = out.str().substr(out.str().find('\n') + 1);
    for (char& c : phrases)
      if (c == '\n') c = ';';
    return phrases;
  }
};

TEST_F(CountCompareTest, ListsBothSidesByTheirLogRatio) {
  EXPECT_EQ(Compare({"--no-test"}), 0);
  EXPECT_EQ(
      out.str(),
      "phrase\tfrequency_a\tfrequency_b\tper_million_a\tper_million_b\tlog_ratio\tg2\tbic\tfiles_a\tfiles_b\t"
      "dispersion_a\n"
      "the old man\t4\t0\t181818.182\t0\t2.2410081\t4.01467296\t0.459324901\t2\t0\t0.9\n"
      "the old\t6\t1\t272727.273\t76923.0769\t1.8259706\t2.19533074\t-1.36001732\t2\t1\t"
      "0.977777778\n"
      "the old house\t2\t1\t90909.0909\t76923.0769\t0.2410081\t0.0206808106\t-3.53466725\t2\t1\t"
      "0.733333333\n"
      "the new house\t0\t3\t0\t230769.231\t-3.3439544\t-6.43028509\t2.87493703\t0\t1\t\n");
  EXPECT_EQ(err.str(),
            "35 words read, none dropped; 3 files ASCII\nA: 22 words in 2 files; B: 13 words in 1 file\n");
}

TEST_F(CountCompareTest, TestsByTheEvidenceUnlessToldNotTo) {
  EXPECT_EQ(Listed({}), "the new house;");
  EXPECT_EQ(Listed({"--no-test"}), "the old man;the old;the old house;the new house;");
}

TEST_F(CountCompareTest, PhrasesOccurThreeTimesUnlessToldOtherwise) {
  EXPECT_THAT(Listed({"--no-test", "--min-frequency", "4"}), Not(HasSubstr("house")));
  EXPECT_THAT(Listed({"--no-test", "--min-frequency", "1"}), HasSubstr("old man sat;"));
}

TEST_F(CountCompareTest, RowsCanBeChosenAndOrdered) {
  EXPECT_EQ(Listed({"--no-test", "--top", "2"}), "the old man;the old;");
  EXPECT_EQ(Listed({"--no-test", "--sort", "frequency_b"}),
            "the new house;the old;the old house;the old man;");
  EXPECT_EQ(Listed({"--no-test", "--match", "house"}), "the old house;the new house;");
}

TEST_F(CountCompareTest, ComparesByFilesAndByOccurrencesOnTheirOwn) {
  const std::vector<std::string> shown = {"--no-test", "--columns", "phrase,log_ratio", "--compare-by"};
  const auto by = [&](const char* basis) {
    std::vector<std::string> arguments = shown;
    arguments.emplace_back(basis);
    EXPECT_EQ(Compare(arguments), 0) << err.str();
    return out.str();
  };
  EXPECT_EQ(by("words"), by("words"));
  // 2 of 2 files against 1 of 1.
  EXPECT_THAT(by("files"), HasSubstr("the old house\t0\n"));
  // Within the longer phrases each time.
  EXPECT_THAT(by("net"), HasSubstr("the old\t\n"));
}

TEST_F(CountCompareTest, SimpleMathsHasAConstant) {
  EXPECT_EQ(Compare({"--no-test", "--columns", "phrase,simple_maths", "--match", "the new house"}), 0);
  EXPECT_THAT(out.str(), HasSubstr("the new house\t4.33331456e-06\n"));
  EXPECT_EQ(Compare({"--no-test", "--columns", "phrase,simple_maths", "--match", "the new house",
                     "--simple-maths", "1000"}),
            0);
  EXPECT_THAT(out.str(), HasSubstr("the new house\t0.00431463657\n"));
}

TEST_F(CountCompareTest, DraftsTellWhatBecameOfEachPhrase) {
  EXPECT_EQ(Compare({"--drafts", "--columns", "phrase,change,frequency_a,frequency_b"}), 0);
  EXPECT_EQ(out.str(),
            "phrase\tchange\tfrequency_a\tfrequency_b\n"
            "the old man\tnew\t4\t0\n"
            "the old\tmore\t6\t1\n"
            "the old house\tmore\t2\t1\n"
            "the new house\tgone\t0\t3\n");
}

TEST_F(CountCompareTest, EqualTextsHaveNoKeyPhraseAndAreTold) {
  EXPECT_EQ(Count({"/b.txt", "--compare", "/b.txt", "--words", "2"}), 0);
  EXPECT_THAT(out.str(), Not(HasSubstr("house")));
  EXPECT_THAT(err.str(), StartsWith("1 file is on both sides of the comparison.\n"));
  EXPECT_EQ(Count({"/b.txt", "--compare", "/b.txt", "--words", "2", "--no-test", "--columns",
                   "phrase,frequency_a,frequency_b,log_ratio,g2"}),
            0);
  EXPECT_THAT(out.str(), HasSubstr("new house\t3\t3\t0\t0\n"));
}

TEST_F(CountCompareTest, SeveralPathsAndStandardInputMayStandOnBothSides) {
  input = "The new house.\n";
  EXPECT_EQ(Count({"/a/1.txt", "/a/2.txt", "--compare", "/b.txt", "--compare", "-", "--words", "3",
                   "--no-test", "--columns", "phrase,frequency_a,frequency_b,files_a,files_b"}),
            0)
      << err.str();
  EXPECT_THAT(out.str(), HasSubstr("the new house\t0\t4\t0\t2\n"));
  EXPECT_EQ(Count({"-", "--compare", "-"}), 2);
  EXPECT_THAT(err.str(), HasSubstr("standard input can be read only once"));
}

TEST_F(CountCompareTest, PatternsAndSubfoldersHoldForBothSides) {
  files.Add("/c/x/deep.txt", "The new house. The new house. The new house.\n");
  files.Add("/c/note.md", "The new house. The new house. The new house.\n");
  const std::vector<std::string> both = {"/a", "--compare", "/c",        "--words",
                                         "3",  "--no-test", "--columns", "phrase,frequency_b"};
  auto with = [&](std::vector<std::string> more) {
    more.insert(more.begin(), both.begin(), both.end());
    EXPECT_EQ(Count(more), 0) << err.str();
    return out.str();
  };
  EXPECT_THAT(with({}), HasSubstr("the new house\t3\n"));
  EXPECT_THAT(with({"--subfolders"}), HasSubstr("the new house\t6\n"));
  EXPECT_THAT(with({"--subfolders", "--patterns", "*.txt"}), HasSubstr("the new house\t3\n"));
}

TEST_F(CountCompareTest, ASideWithoutWordsIsRefused) {
  files.Add("/empty.txt", "1234 \n... ,,,\n.\n");
  EXPECT_EQ(Count({"/b.txt", "--compare", "/none.txt"}), 1);
  EXPECT_EQ(err.str(),
            "korv-count: No words were read of what is to be compared with.\n1 file was skipped:\n"
            "/none.txt: does not exist\n");
  EXPECT_EQ(Count({"/none.txt", "--compare", "/b.txt"}), 1);
  EXPECT_THAT(err.str(), HasSubstr("No words were read of what is to be compared.\n"));
  EXPECT_THAT(out.str(), IsEmpty());
}

TEST_F(CountCompareTest, TheOutputFileLiesOnNeitherSide) {
  EXPECT_EQ(Compare({"-o", "/b.txt", "--force"}), 1);
  files.Add("/b/2.txt", kText);
  EXPECT_EQ(Count({"/a/1.txt", "--compare", "/b", "-o", "/b/new.csv"}), 1);
  EXPECT_THAT(err.str(), HasSubstr("The output file cannot be in the folder or a subfolder."));
  EXPECT_EQ(Count({"/a/1.txt", "--compare", "/b/2.txt", "-o", "/out.csv", "--words", "2", "--no-test"}), 0);
  EXPECT_THAT(files.Content("/out.csv").value_or(""), StartsWith("phrase,frequency_a,"));
}

TEST_F(CountCompareTest, DescribesBothSides) {
  EXPECT_EQ(Compare({"--output-format", "json", "--compare-by", "files", "--simple-maths", "0.5"}), 0);
  EXPECT_THAT(out.str(), HasSubstr(R"("source":{"paths":["/a"],"files":2,"words":22,"words_taken":22,)"
                                   R"("compared_with":{"paths":["/b.txt"],"files":1,"words":13,)"
                                   R"("words_taken":13},"compared_by":"files","simple_maths_k":0.5,)"));
  EXPECT_EQ(Compare({"--output-format", "html"}), 0);
  for (const char* fact : {"Compared with", "/b.txt", "Running words of A (c)", "Files of B"})
    EXPECT_THAT(out.str(), HasSubstr(fact));
}

TEST_F(CountCompareTest, RefusesOptionsThatMakeNoSense) {
  ExpectWrongUsage("/a",
                   {{{"--no-test"}, "--no-test: needs --compare"},
                    {{"--drafts"}, "--drafts: needs --compare"},
                    {{"--compare-by", "files"}, "--compare-by: needs --compare"},
                    {{"--simple-maths", "2"}, "--simple-maths: needs --compare"},
                    {{"--columns", "phrase,bic"}, "--columns: needs --compare"},
                    {{"--sort", "log_ratio"}, "--sort: needs --compare"},
                    {{"--compare", ""}, "--compare: a file or a folder is needed"},
                    {{"--compare", "/b.txt", "--output-format", "text"}, "--compare: makes a table"},
                    {{"--compare", "/b.txt", "--context-of", "old man"}, "--context-of: excludes --compare"},
                    {{"--compare", "/b.txt", "--list-files"}, "--compare: excludes --list-files"},
                    {{"--compare", "/b.txt", "--save-settings", "/s"}, "--compare: excludes --save-settings"},
                    {{"--compare", "/b.txt", "--print-settings"}, "--compare: excludes --print-settings"},
                    {{"--compare", "/b.txt", "--compare-by", "letters"}, "--compare-by"},
                    {{"--compare", "/b.txt", "--simple-maths", "0"}, "is not from 0.1 to 1000"}});
  EXPECT_EQ(Count({"--from-counts", "/a.tsv", "--compare", "/b.txt"}), 2);
  EXPECT_THAT(err.str(), HasSubstr("--compare: excludes --from-counts"));
}

TEST_F(CountCompareTest, TheSourceMayComeFromSettings) {
  EXPECT_EQ(Count({"/b.txt", "--words", "2-3", "--save-settings", "/s.korv"}), 0);
  EXPECT_EQ(
      Count({"--settings", "/s.korv", "--compare", "/a", "--no-test", "--columns", "phrase,frequency_a"}), 0)
      << err.str();
  EXPECT_THAT(out.str(), HasSubstr("the new house\t3\n"));
}

TEST_F(CountCompareTest, StoppedBeforeSideBHasNothingToCompare) {
  files.Add("/long.txt", [] {
    std::string text;
    for (int i = 0; i < 200000; ++i) text += "the old man ";
    return text;
  }());
  onRead = [this] { yielder->RequestStop(); };
  EXPECT_EQ(Count({"-", "--compare", "/b.txt", "--words", "2"}), 1);
  EXPECT_THAT(out.str(), IsEmpty());
}

}  // namespace
}  // namespace korv
