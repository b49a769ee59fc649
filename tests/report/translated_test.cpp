// Reports in another language: what people read is in it, what programs read is not.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/translation.h"
#include "report/describe_table.h"
#include "report/digest_sink.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/report/written_table.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kMark = "⟦";

RunSummary FactsWithASkippedFile() {
  RunSummary facts;
  facts.Options.SourceKind = TextSource::Folder;
  facts.SkippedFiles = {{"/t/empty.txt", "is zero-length"}};
  return facts;
}

class Translated : public testing::Test {
 protected:
  Translated() { UseTranslations(KORV_PSEUDO_LOCALE); }

  static std::string Table(const char* form) {
    return WrittenTable(TableFormOf(form), {"rank", "phrase"}, {{int64_t{1}, "the cat"}}, {},
                        FactsWithASkippedFile(), true);
  }
};

TEST_F(Translated, TablesForProgramsAreTheSame) {
  for (const char* form : {"tsv", "csv", "json", "ndjson"})
    EXPECT_THAT(Table(form), Not(HasSubstr(kMark))) << form;
  EXPECT_TRUE(Table("tsv").starts_with("rank\tphrase\n"));
}

TEST_F(Translated, DescriptionsOfTablesAreTheSame) {
  FakeFiles files;
  files.AddFolder("/t");
  FakeMessages messages;
  StringSink sink;
  DigestSink bytes(sink);
  const TableOutput table{.Form = &TableFormOf("csv"), .Columns = TableColumns()};
  const RunSummary facts = FactsWithASkippedFile();
  const ListResult list;
  ASSERT_TRUE(
      WriteDescription({table, facts, list, bytes, "/t/a.csv"}, "/t/datapackage.json", files, messages));
  const std::string text = files.Content("/t/datapackage.json").value_or("");
  EXPECT_THAT(text, HasSubstr("\"title\":\"Rank\""));
  EXPECT_THAT(text, HasSubstr("is zero-length"));
  EXPECT_THAT(text, Not(HasSubstr(kMark)));
}

TEST_F(Translated, WebPagesNameTheirLanguage) {
  const std::string page = Table("html");
  EXPECT_THAT(page, HasSubstr("<html lang=\"qps\" dir=\"ltr\">"));
  for (const char* text :
       {"<title>⟦Phrases⟧</title>", "<h1>⟦Phrases⟧</h1>", "<summary>⟦How this list came about⟧</summary>",
        "<dt>⟦Skipped⟧</dt><dd>/t/empty.txt ⟦is zero-length⟧</dd>", ">⟦Rank⟧</th>",
        "<p>⟦The list was stopped: there are more phrases.⟧</p>", "<h2>⟦Columns⟧</h2>"})
    EXPECT_THAT(page, HasSubstr(text));
}

TEST_F(Translated, HeadingsOfMarkdownAreForPeople) {
  EXPECT_THAT(Table("md"), HasSubstr("| ⟦Rank⟧ | ⟦Phrase⟧ |\n"));
}

TEST_F(Translated, ReportsAreInThatLanguage) {
  ReportWorld world = ReportWorld::Of({{"the cat", 3}, {"a dog now", 1}});
  const std::string text = TextOf(world.View(), kBoxForm);
  EXPECT_THAT(text, HasSubstr("⟦There are 2 phrases ⟦with 2 to 3 words⟧ which occur at least ⟦once⟧⟧.\r\n"));
  EXPECT_THAT(text, HasSubstr("⟦[longest has 9 characters]⟧"));
}

TEST_F(Translated, CellsStandBelowHeadingsThatHaveMoreBytesThanCharacters) {
  ReportWorld world = ReportWorld::Of({{"the cat", 3}, {"a dog now", 1}});
  world.Options.DisplayFormat = 2;  // Rank and frequency, both aligned to the right.
  EXPECT_THAT(TextOf(world.View(), kBoxForm), HasSubstr("\r\n ⟦Rank⟧  ⟦Freq⟧\r\n"
                                                        "      1       3\r\n"
                                                        "      2       1\r\n"));
}

}  // namespace
}  // namespace korv
