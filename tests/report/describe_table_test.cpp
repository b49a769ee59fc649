#include "report/describe_table.h"

#include <gmock/gmock.h>

#include "report/columns/registry.h"
#include "report/formats.h"
#include "report/output_file.h"
#include "report/writers/data_package.h"
#include "report/writers/table_forms.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::Not;

TableOutput OutputOf(const TableForm& form, std::vector<const Column*> columns = {}) {
  return {.Form = &form,
          .Columns = std::move(columns),
          .About = {.Version = "1.2.0", .Created = "2026-11-22T09:30:00Z", .Paths = {"/in.txt"}}};
}

std::string PackageOf(const TableOutput& table, const WrittenTable& written = {}) {
  return DataPackageText(table, ColumnsOf(table), {}, written);
}

TEST(DataPackage, TellsWhatATableIsAndHowItCameAbout) {
  TableOutput table = OutputOf(TableFormOf("csv"), {FindColumn("phrase"), FindColumn("arf")});
  table.About.Command = "korv-count \"a b.txt\"";
  table.About.Settings = {{"MinWords", int64_t{2}}, {"CaseSignificant", true}, {"FilterText", "x"}};
  RunSummary facts;
  facts.Options.SourceKind = TextSource::Folder;
  facts.FilesScanned = 2;
  facts.Words.Taken = 40;
  facts.Words.DroppedBy[0] = 2;
  facts.SkippedFiles = {{"/in/b.txt", "is zero-length"}};
  const Column& phrase = *FindColumn("phrase");
  const Column& arf = *FindColumn("arf");
  const WrittenTable written{
      .Path = "My \"cats\".csv", .Bytes = 12, .Sha256 = "0ab", .Listed = 3, .Phrases = 5, .Occurrences = 9};
  EXPECT_EQ(
      DataPackageText(table, ColumnsOf(table), facts, written),
      "{\"name\":\"my-cats\",\"created\":\"2026-11-22T09:30:00Z\",\"resources\":[{\"name\":\"phrases\","
      "\"path\":\"My \\\"cats\\\".csv\",\"profile\":\"tabular-data-resource\",\"format\":\"csv\","
      "\"mediatype\":\"text/csv\",\"encoding\":\"utf-8\",\"dialect\":{\"delimiter\":\",\","
      "\"lineTerminator\":\"\\r\\n\",\"quoteChar\":\"\\\"\",\"doubleQuote\":true,\"header\":true},"
      "\"schema\":{\"fields\":[{\"name\":\"phrase\",\"type\":\"string\",\"title\":\"" +
          std::string(phrase.Heading) + "\",\"description\":\"" + std::string(phrase.Definition) +
          "\"},{\"name\":\"arf\",\"type\":\"number\",\"title\":\"" + std::string(arf.Heading) +
          "\",\"description\":\"" + std::string(arf.Definition) +
          "\"}],\"primaryKey\":\"phrase\"},\"bytes\":12,\"hash\":\"sha256:0ab\"}],"
          "\"korv\":{\"version\":\"1.2.0\",\"created\":\"2026-11-22T09:30:00Z\","
          "\"command\":\"korv-count \\\"a b.txt\\\"\",\"source\":{\"paths\":[\"/in.txt\"],\"files\":2,"
          "\"words\":42,\"words_taken\":40,\"skipped\":[{\"path\":\"/in/b.txt\",\"reason\":\"is "
          "zero-length\"}]},\"settings\":{\"MinWords\":2,\"CaseSignificant\":true,\"FilterText\":\"x\"},"
          "\"counts\":{\"listed\":3,\"phrases\":5,\"occurrences\":9}}}\n");
}

TEST(DataPackage, EveryFormSaysHowItIsRead) {
  for (const TableForm& form : TableForms()) {
    const std::string text = PackageOf(OutputOf(form), {.Path = "t"});
    EXPECT_FALSE(form.MediaType.empty()) << form.Name;
    EXPECT_THAT(text, HasSubstr("\"format\":\"" + std::string(form.Name) + "\",\"mediatype\":\"" +
                                std::string(form.MediaType) + "\""));
    EXPECT_EQ(text.find("\"profile\":\"tabular-data-resource\"") != text.npos, form.Tabular) << form.Name;
    EXPECT_EQ(text.find("\"encoding\":\"utf-8\"") != text.npos, !form.Binary) << form.Name;
    EXPECT_EQ(text.find("\"dialect\"") != text.npos, form.Dialect != nullptr) << form.Name;
  }
  EXPECT_THAT(PackageOf(OutputOf(TableFormOf("tsv"))),
              HasSubstr("\"dialect\":{\"delimiter\":\"\\t\",\"lineTerminator\":\"\\n\",\"header\":true}"));
}

TEST(DataPackage, SpreadsheetsHaveTheLocalesDecimalSign) {
  TableOutput table = OutputOf(SpreadsheetCsv(), {FindColumn("arf"), FindColumn("frequency")});
  EXPECT_THAT(PackageOf(table), HasSubstr("{\"delimiter\":\",\""));
  EXPECT_THAT(PackageOf(table), Not(HasSubstr("decimalChar")));
  table.About.Numbers.DecimalPoint = ",";
  EXPECT_THAT(PackageOf(table), HasSubstr("{\"delimiter\":\";\""));
  EXPECT_THAT(PackageOf(table),
              HasSubstr("{\"name\":\"arf\",\"type\":\"number\",\"decimalChar\":\",\",\"title\""));
  EXPECT_THAT(PackageOf(table), HasSubstr("{\"name\":\"frequency\",\"type\":\"integer\",\"title\""));
}

TEST(DataPackage, TheNameIsWrittenAsPackagesWantIt) {
  struct Case {
    const char* Path;
    const char* Name;
  };
  const Case cases[] = {{"Key Phrases (2).csv", "key-phrases-2"},
                        {"../a/b_c.d.csv", "b_c.d"},
                        {"\u00c4pfel.csv", "pfel"},
                        {"\u65e5\u672c.csv", "phrases"},
                        {"", "phrases"}};
  for (const Case& c : cases)
    EXPECT_THAT(PackageOf(OutputOf(TableFormOf("csv")), {.Path = c.Path}),
                testing::StartsWith("{\"name\":\"" + std::string(c.Name) + "\","))
        << c.Path;
}

TEST(DataPackage, TellsOnlyOfWhatIsThere) {
  const TableOutput table = OutputOf(TableFormOf("csv"), {FindColumn("frequency")});
  EXPECT_THAT(PackageOf(table), Not(HasSubstr("primaryKey"))) << "no phrase";
  EXPECT_THAT(PackageOf(table), Not(HasSubstr("\"path\""))) << "a stream";
  EXPECT_THAT(PackageOf(table), Not(HasSubstr("\"stopped\"")));
  EXPECT_THAT(PackageOf(table, {.Stopped = true}), HasSubstr(",\"stopped\":true}}\n"));
}

/// Tables in files of a disk in memory.
struct Description : testing::Test {
  Description() { Files.AddFolder("/out"); }

  FileListResult List(const std::filesystem::path& path, const std::filesystem::path& description) {
    NoYielder yielder;
    return ListWordsToFile(World.View(), path,
                           {.Files = Files,
                            .Dialogs = Messages,
                            .Table = OutputOf(TableFormOf("csv")),
                            .DescribeTo = description},
                           yielder);
  }
  FileListResult ListDescribed(const std::filesystem::path& path) {
    return List(path, DescriptionPath(path, Files));
  }

  FakeFiles Files;
  FakeMessages Messages;
  ReportWorld World = ReportWorld::Of({{"the cat", 2}, {"a dog", 3}});
};

TEST_F(Description, StandsBesideTheTableAndHasItsBytes) {
  EXPECT_EQ(DescriptionPath("/out/a.csv", Files), "/out/datapackage.json");
  const FileListResult result = ListDescribed("/out/a.csv");
  EXPECT_TRUE(result.Written);
  EXPECT_TRUE(result.Described);
  const std::string table = Files.Content("/out/a.csv").value_or("");
  Sha256 digest;
  digest.Add(table);
  const std::string text = Files.Content("/out/datapackage.json").value_or("");
  EXPECT_THAT(text, HasSubstr("\"path\":\"a.csv\","));
  EXPECT_THAT(text, HasSubstr("\"bytes\":" + std::to_string(table.size()) +
                              ",\"hash\":\"sha256:" + digest.Finish() + "\""));
  EXPECT_THAT(text, HasSubstr("\"counts\":{\"listed\":2,\"phrases\":2,\"occurrences\":5}"));
}

TEST_F(Description, AnotherOnesPlaceIsLeftAlone) {
  Files.Add("/out/datapackage.json", "{\"resources\":[{\"path\":\"b.csv\",\"profile\":\"x\"}]}");
  EXPECT_EQ(DescriptionPath("/out/a.csv", Files), "/out/a.datapackage.json");
  EXPECT_EQ(DescriptionPath("/out/b.csv", Files), "/out/datapackage.json") << "its own";
  Files.Refuse("/out/datapackage.json", FileFault::PermissionDenied);
  EXPECT_EQ(DescriptionPath("/out/b.csv", Files), "/out/b.datapackage.json");
}

TEST_F(Description, TheSameTableIsDescribedInTheSamePlace) {
  EXPECT_TRUE(ListDescribed("/out/a.csv").Described);
  const std::string before = Files.Content("/out/datapackage.json").value_or("");
  World = ReportWorld::Of({{"the cat", 2}});
  EXPECT_TRUE(ListDescribed("/out/a.csv").Described);
  EXPECT_NE(Files.Content("/out/datapackage.json"), before);
  EXPECT_EQ(Files.Content("/out/a.datapackage.json"), std::nullopt);
  EXPECT_TRUE(ListDescribed("/out/b.csv").Described);
  EXPECT_THAT(Files.Content("/out/b.datapackage.json").value_or(""), HasSubstr("\"path\":\"b.csv\""));
}

TEST_F(Description, NamesTheTableFromItsOwnFolder) {
  Files.AddFolder("/out/deep");
  Files.AddFolder("/other");
  struct Case {
    const char* Description;
    const char* Path;
  };
  const Case cases[] = {{"/out/deep/d.json", "../a.csv"},
                        {"/d.json", "out/a.csv"},
                        {"/out/d.json", "a.csv"},
                        {"/other/d.json", "../out/a.csv"}};
  for (const Case& c : cases) {
    EXPECT_TRUE(List("/out/a.csv", c.Description).Described);
    EXPECT_THAT(Files.Content(c.Description).value_or(""),
                HasSubstr("\"path\":\"" + std::string(c.Path) + "\","));
  }
}

TEST_F(Description, ThereIsNoneUnlessItIsAskedFor) {
  const FileListResult result = List("/out/a.csv", {});
  EXPECT_TRUE(result.Written);
  EXPECT_FALSE(result.Described);
  EXPECT_EQ(Files.Content("/out/datapackage.json"), std::nullopt);
}

TEST_F(Description, WhateverFailsLeavesTheOldOneAndIsToldOnce) {
  for (int call = 1;; ++call) {
    Files.Add("/out/datapackage.json", "old");
    Files.Erase("/out/a.csv");
    Messages.Shown.clear();
    Files.FailCall(call, FileFault::NoSpace);
    const FileListResult result = List("/out/a.csv", "/out/datapackage.json");
    if (!Files.FailureHappened()) break;
    Files.FailCall(0);
    EXPECT_FALSE(result.Described) << call;
    EXPECT_EQ(Files.Content("/out/datapackage.json"), "old") << call;
    ASSERT_EQ(Messages.Shown.size(), 1u) << call;
    if (!result.Written) continue;
    EXPECT_EQ(Messages.Shown[0].Text, "The description of the table cannot be written to " +
                                          PathToText("/out/datapackage.json") + ".\nInput/output error");
    EXPECT_EQ(Messages.Shown[0].Title, "Error");
    EXPECT_EQ(Messages.Shown[0].Icon, Icon::Exclamation);
  }
}

TEST_F(Description, AStoppedTableIsDescribedAsFarAsItIsKept) {
  World = ReportWorld();
  for (int i = 0; i < 1000; ++i) World.Say("phrase number" + std::to_string(1000 + i));
  World.Finish();
  for (const bool replaces : {false, true}) {
    if (replaces) Files.Add("/out/a.csv", "old");
    Files.Erase("/out/datapackage.json");
    StoppingYielder yielder(1500);
    const FileListResult result = ListWordsToFile(World.View(), "/out/a.csv",
                                                  {.Files = Files,
                                                   .Dialogs = Messages,
                                                   .Table = OutputOf(TableFormOf("csv")),
                                                   .DescribeTo = "/out/datapackage.json"},
                                                  yielder);
    EXPECT_EQ(result.List.Outcome, ListOutcome::Stopped);
    EXPECT_EQ(result.Described, !replaces);
    const auto text = Files.Content("/out/datapackage.json");
    EXPECT_EQ(text.has_value(), !replaces);
    if (text.has_value()) {
      EXPECT_THAT(*text, HasSubstr(",\"stopped\":true}}"));
    }
  }
}

}  // namespace
}  // namespace korv
