#include "cli/options.h"
#include "tests/cli/count_program_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

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
