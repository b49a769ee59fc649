#include "tests/cli/count_program_world.h"

namespace korv {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST_F(CountProgramTest, ADescriptionStandsBesideTheTable) {
  files.AddFolder("/out");
  const std::vector<std::string> arguments = {"/a.txt", "--min-words",      "2",
                                              "-o",     "/out/My cats.csv", "--describe"};
  EXPECT_EQ(Count(arguments), kExitReport) << err.str();
  EXPECT_THAT(err.str(), EndsWith(kTextLine));
  const std::string text = files.Content("/out/datapackage.json").value_or("");
  EXPECT_THAT(text, StartsWith("{\"name\":\"my-cats\",\"created\":\""));
  EXPECT_THAT(text, HasSubstr("\"path\":\"My cats.csv\""));
  EXPECT_THAT(text, HasSubstr("\"command\":\"korv-count /a.txt --min-words 2 "));
  EXPECT_THAT(text, HasSubstr("\"source\":{\"paths\":[\"/a.txt\"],\"files\":1,\"words\":8,"));
  EXPECT_THAT(text, HasSubstr("\"settings\":{\"MinWords\":2,"));
  EXPECT_THAT(text, HasSubstr("\"counts\":{\"listed\":1,\"phrases\":1,\"occurrences\":2}"));
}

TEST_F(CountProgramTest, WhatIsNotTheTablesDescriptionIsLeftAlone) {
  files.Add("/out/datapackage.json", "mine");
  EXPECT_EQ(Count({"/a.txt", "-o", "/out/a.csv", "--describe"}), kExitReport);
  EXPECT_EQ(files.Content("/out/datapackage.json"), "mine");
  EXPECT_THAT(files.Content("/out/a.datapackage.json").value_or(""), StartsWith("{\"name\":\"a\""));
}

TEST_F(CountProgramTest, AnExistingDescriptionNeedsForce) {
  files.Add("/d.json", "mine");
  const std::vector<std::string> arguments = {"/a.txt", "-o", "/a.csv", "--describe-to", "/d.json"};
  EXPECT_EQ(Count(arguments), kExitRefused);
  EXPECT_THAT(err.str(),
              HasSubstr("The description " + PathToText("/d.json") + " exists.  --force replaces it."));
  EXPECT_EQ(files.Content("/a.csv"), std::nullopt) << "refused before anything is counted";
  EXPECT_EQ(files.Content("/d.json"), "mine");
  std::vector<std::string> forced = arguments;
  forced.emplace_back("--force");
  EXPECT_EQ(Count(forced), kExitReport);
  EXPECT_THAT(files.Content("/d.json").value_or(""), StartsWith("{\"name\":\"a\""));
}

TEST_F(CountProgramTest, ATableOnStandardOutputIsDescribedInAFile) {
  EXPECT_EQ(Count({"/a.txt", "--output-format", "ndjson", "--columns", "phrase", "--describe-to", "/d.json",
                   "--min-words", "2"}),
            kExitReport);
  EXPECT_EQ(out.str(), "{\"phrase\":\"the big cat\"}\n");
  EXPECT_THAT(files.Content("/d.json").value_or(""), HasSubstr("\"bytes\":25,\"hash\":\"sha256:"));
  EXPECT_EQ(Count({"/a.txt", "--output-format", "ndjson", "--describe-to", "/d.json", "--force",
                   "--min-frequency", "20"}),
            kExitReport);
  EXPECT_THAT(out.str(), IsEmpty()) << "not even a line end";
  EXPECT_THAT(files.Content("/d.json").value_or(""), HasSubstr("\"bytes\":0,"));
}

TEST_F(CountProgramTest, ADescriptionIsNoFileThatIsRead) {
  files.Add("/t/b.txt", kText);
  files.Add("/list.txt", "cat\ndog\n");
  struct Case {
    std::vector<std::string> Arguments;
    std::string Text;
  };
  const Case cases[] = {
      {{"/a.txt", "--columns", "phrase", "--describe-to", "/a.txt"}, "cannot be the same as the input file"},
      {{"/a.txt", "-o", "/o.csv", "--describe-to", "/o.csv"},
       "The description cannot be the same as /o.csv."},
      {{"/a.txt", "-o", "/o.csv", "--ignore-file", "/list.txt", "--describe-to", "/list.txt"},
       "The description cannot be the same as /list.txt."},
      {{"/t", "-o", "/o.csv", "--describe-to", "/t/d.txt"}, "/t/d.txt"},
      {{"/a.txt", "-o", "/o.csv", "--describe-to", "/t"}, "is a folder."},
      {{"/a.txt", "-o", "/o.csv", "--describe-to", "/none/d.json"}, "Input/output error"},
  };
  for (const Case& c : cases) {
    std::vector<std::string> arguments = c.Arguments;
    arguments.emplace_back("--force");
    EXPECT_EQ(Count(arguments), kExitRefused) << testing::PrintToString(c.Arguments);
    EXPECT_THAT(err.str(), HasSubstr(c.Text));
    EXPECT_EQ(files.Content("/o.csv"), std::nullopt);
  }
  EXPECT_EQ(files.Content("/a.txt"), kText);
  EXPECT_EQ(files.Content("/list.txt"), "cat\ndog\n");
}

TEST_F(CountProgramTest, ADescriptionThatCannotBeWrittenIsAFailure) {
  // The disk fills up behind the table.
  int written = 0;
  for (int call = 1;; ++call) {
    files.Erase("/o.csv");
    files.Erase("/datapackage.json");
    files.FailCall(call, FileFault::NoSpace);
    const int status = Count({"/a.txt", "-o", "/o.csv", "--describe"});
    if (!files.FailureHappened()) break;
    files.FailCall(0);
    if (!files.Content("/o.csv")) continue;
    if (files.Content("/datapackage.json")) continue;
    ++written;
    EXPECT_EQ(status, kExitRefused);
    EXPECT_THAT(err.str(), HasSubstr("The description of the table cannot be written to "));
  }
  EXPECT_EQ(written, 3) << "opening, writing, renaming";
}

TEST_F(CountProgramTest, OnlyTablesAreDescribed) {
  ExpectWrongUsage(
      "/a.txt",
      {{{"--describe"}, "--describe: needs --output"},
       {{"--describe", "--columns", "phrase"}, "--describe: needs --output"},
       {{"--describe", "-o", "/o.txt"}, "--describe: describes a table"},
       {{"--describe", "-o", "/o.csv", "--output-format", "text"}, "--describe: describes a table"},
       {{"--describe-to", "/d.json"}, "--describe-to: describes a table"},
       {{"--describe-to", "-", "--columns", "phrase"}, "--describe-to: - is no file"},
       {{"--describe-to", "", "--columns", "phrase"}, "--describe-to: a file is needed"},
       {{"--describe-to", "/d.json", "--describe", "-o", "/o.csv"}, "--describe-to excludes --describe"},
       {{"--describe-to", "/d.json", "--context-of", "big cat"}, "--context-of: excludes --describe-to"},
       {{"--describe-to", "/d.json", "--columns", "phrase", "--list-files"},
        "--list-files: excludes --describe-to"}});
  EXPECT_EQ(Count({"/a.txt", "--save-settings", "/s.korv", "-o", "/r.txt"}), kExitReport);
  files.Erase("/r.txt");
  EXPECT_EQ(Count({"--settings", "/s.korv", "--output-format", "csv", "--describe-to", "/d.json"}),
            kExitUsage);
  EXPECT_THAT(err.str(), HasSubstr("--describe-to: the output file of settings is no table"));
}

}  // namespace
}  // namespace korv
