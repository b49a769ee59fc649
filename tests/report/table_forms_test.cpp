#include "report/writers/table_forms.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/report/written_table.h"

namespace korv {
namespace {

using testing::HasSubstr;

constexpr const char* kHeading =
    "rank\tphrase\tfrequency\tper_million\twords\tcharacters\tfiles\tdispersion\tnet_frequency\tfirst_file\t"
    "first_line\n";

ReportWorld World() {
  ReportWorld world = ReportWorld::Of({{"the cat", 3}, {"a dog now", 1}});
  world.Facts.Words.Taken = 8;
  return world;
}

std::string Listed(const ReportWorld& world) {
  return TextOf(world.View(),
                {.LineLayout = Layout::Tabs, .File = true, .Table = {.Form = &TableFormOf("tsv")}});
}

TEST(Tables, AreTheDefaultColumnsWhateverTheFormat) {
  ReportWorld world = World();
  world.Options = {.DisplayFormat = 9, .RelativeFrequency = true};
  EXPECT_EQ(Listed(world), kHeading + std::string("1\tthe cat\t3\t375000\t2\t7\t1\t\t\t-\t\n"
                                                  "2\ta dog now\t1\t125000\t3\t9\t1\t\t\t-\t\n"));
}

TEST(Tables, FollowOrderAndFilterWithoutANotice) {
  ReportWorld world = World();
  world.Options.WordOrder = kAlphabetical;
  EXPECT_NE(Listed(world).find("first_line\n2\ta dog now"), std::string::npos);
  world.Options.FilterActive = true;
  world.Options.FilterText = "cat";
  EXPECT_NE(Listed(world).find("first_line\n1\tthe cat"), std::string::npos);
  EXPECT_EQ(Listed(world).find("dog"), std::string::npos);
  world.Options.FilterText = "mouse";
  EXPECT_TRUE(Listed(world).ends_with("\tfirst_line\n"));
}

TEST(Tables, OfNothingAreTheHeading) {
  EXPECT_EQ(Listed(ReportWorld()), kHeading);
}

TEST(TableForms, AreFoundByExtension) {
  struct Case {
    const char* Path;
    const char* Form;
  };
  const Case cases[] = {{"a.tsv", "tsv"},   {"/b.c/a.TSV", "tsv"},  {"a.txt.tsv", "tsv"},  {"a.csv", "csv"},
                        {"a.json", "json"}, {"a.ndjson", "ndjson"}, {"a.JSONL", "ndjson"}, {"a.html", "html"},
                        {"a.md", "md"},     {"a.xlsx", "xlsx"},     {"a.sqlite", "sqlite"}};
  for (const Case& c : cases) {
    const TableForm* form = TableFormOfFile(c.Path);
    ASSERT_NE(form, nullptr) << c.Path;
    EXPECT_EQ(form->Name, c.Form) << c.Path;
  }
  for (const char* path : {"a.txt", "tsv", "a.tsv/b", "a.tsv.bak", ".tsv", "", "a.", "a.htm", "a.xls"})
    EXPECT_EQ(TableFormOfFile(path), nullptr) << path;
}

TEST(TableForms, HaveNamesAndTitlesOfTheirOwn) {
  std::set<std::string_view> names;
  std::set<std::string_view> titles{SpreadsheetCsv().Title};
  for (const TableForm& form : TableForms()) {
    EXPECT_TRUE(names.insert(form.Name).second) << form.Name;
    EXPECT_TRUE(titles.insert(form.Title).second) << form.Title;
    EXPECT_EQ(&TableFormOf(form.Name), &form);
  }
}

/// What the forms make of the same texts, in a row "7, TEXT".
TEST(TableForms, WriteTextsSoThatTheirReadersGetThemBack) {
  struct Case {
    const char* Text;
    const char* Csv;
    const char* Json;
    const char* Html;
    const char* Markdown;
  };
  const Case cases[] = {
      {"the big cat", "the big cat", "\"the big cat\"", "the big cat", "the big cat"},
      {"c\u00F4t\u00E9, d'or", "\"c\u00F4t\u00E9, d'or\"", "\"c\u00F4t\u00E9, d'or\"", "c\u00F4t\u00E9, d'or",
       "c\u00F4t\u00E9, d'or"},
      {"say \"yes\"", "\"say \"\"yes\"\"\"", "\"say \\\"yes\\\"\"", "say &quot;yes&quot;", "say \"yes\""},
      {"\"", "\"\"\"\"", "\"\\\"\"", "&quot;", "\""},
      {"a\tb", "a\tb", "\"a\\tb\"", "a\tb", "a b"},
      {"a\r\nb\rc", "\"a\r\nb\rc\"", "\"a\\r\\nb\\rc\"", "a\r\nb\rc", "a  b c"},
      {"a\\b|c", "a\\b|c", "\"a\\\\b|c\"", "a\\b|c", "a\\\\b\\|c"},
      {"<i>*x*</i> & co", "<i>*x*</i> & co", "\"<i>*x*</i> & co\"", "&lt;i&gt;*x*&lt;/i&gt; &amp; co",
       "\\<i>\\*x\\*\\</i> & co"},
      {"=1+2", "=1+2", "\"=1+2\"", "=1+2", "=1+2"},
      {"\u05E9\u05DC\u05D5\u05DD \U0001F600", "\u05E9\u05DC\u05D5\u05DD \U0001F600",
       "\"\u05E9\u05DC\u05D5\u05DD \U0001F600\"", "\u05E9\u05DC\u05D5\u05DD \U0001F600",
       "\u05E9\u05DC\u05D5\u05DD \U0001F600"},
      {"\x01\x1F", "\x01\x1F", "\"\\u0001\\u001f\"", "\x01\x1F", "\x01\x1F"},
      // A file's name need not be text.
      {"a\xFF", "a\xFF", "\"a\uFFFD\"", "a\xFF", "a\xFF"},
  };
  for (const Case& c : cases) {
    const auto written = [&](const char* form) {
      return WrittenTable(TableFormOf(form), {"rank", "phrase"}, {{int64_t{7}, std::string_view(c.Text)}});
    };
    EXPECT_EQ(written("csv"), std::string("rank,phrase\r\n7,") + c.Csv + "\r\n");
    EXPECT_EQ(written("ndjson"), std::string("{\"rank\":7,\"phrase\":") + c.Json + "}\n");
    EXPECT_THAT(written("json"), testing::EndsWith(std::string("\"phrases\":[\n{\"rank\":7,\"phrase\":") +
                                                   c.Json + "}\n]}\n"));
    EXPECT_THAT(written("html"), HasSubstr(std::string("<tr><td class=\"n\">7</td><td dir=\"auto\">") +
                                           c.Html + "</td></tr>\n"));
    EXPECT_EQ(written("md"), std::string("| Rank | Phrase |\n| ---: | --- |\n| 7 | ") + c.Markdown + " |\n");
  }
}

TEST(TableForms, WriteNumbersForPrograms) {
  struct Case {
    korv::Cell Cell;
    const char* Text;
    const char* Json;
  };
  const Case cases[] = {{korv::Cell(), "", "null"},
                        {int64_t{1234567}, "1234567", "1234567"},
                        {int64_t{-3}, "-3", "-3"},
                        {0.5, "0.5", "0.5"},
                        {1e6 * 2 / 3, "666666.667", "666666.667"},
                        {0.00001234, "1.234e-05", "1.234e-05"}};
  for (const Case& c : cases) {
    const auto written = [&](const char* form) {
      return WrittenTable(TableFormOf(form), {"rank", "mi"}, {{int64_t{1}, c.Cell}});
    };
    EXPECT_EQ(written("csv"), std::string("rank,mi\r\n1,") + c.Text + "\r\n");
    EXPECT_EQ(written("ndjson"), std::string("{\"rank\":1,\"mi\":") + c.Json + "}\n");
    EXPECT_THAT(written("html"), HasSubstr(std::string("<td class=\"n\">") + c.Text + "</td></tr>"));
    EXPECT_THAT(written("md"), HasSubstr(std::string("| 1 | ") + c.Text + " |\n"));
  }
}

TEST(SpreadsheetCsv, HasASignatureAndNoFormulaAndTheLocalesNumbers) {
  const NumberFormat german{.DecimalPoint = ",", .GroupSeparator = "."};
  const Rows rows = {{std::string_view("=1+2"), 0.5},          {std::string_view("+a"), int64_t{1000}},
                     {std::string_view("-a;b"), korv::Cell()}, {std::string_view("@x"), 1.0},
                     {std::string_view("\tx"), 1.0},           {std::string_view("\rx"), 1.0},
                     {std::string_view("a=b, c"), 1e-5}};
  EXPECT_EQ(WrittenTable(SpreadsheetCsv(), {"phrase", "mi"}, rows),
            "\uFEFFphrase,mi\r\n'=1+2,0.5\r\n'+a,1000\r\n'-a;b,\r\n'@x,1\r\n'\tx,1\r\n\"'\rx\",1\r\n"
            "\"a=b, c\",1e-05\r\n");
  EXPECT_EQ(WrittenTable(SpreadsheetCsv(), {"phrase", "mi"}, rows, {.Numbers = german}),
            "\uFEFFphrase;mi\r\n'=1+2;0,5\r\n'+a;1000\r\n\"'-a;b\";\r\n'@x;1\r\n'\tx;1\r\n\"'\rx\";1\r\n"
            "a=b, c;1e-05\r\n");
}

TEST(TableForms, ForReadingEndAfterManyRowsAndSaySo) {
  struct Case {
    const char* Form;
    size_t Limit;
    const char* Row;
  };
  for (const Case& c : {Case{"md", 100, "\n| 1"}, Case{"html", 10000, "<tr><td"}}) {
    const auto written = [&](size_t rows, bool all, bool stopped = false) {
      return WrittenTable(TableFormOf(c.Form), {"rank"}, Rows(rows, {int64_t{1}}), {.AllRows = all}, {},
                          stopped);
    };
    const auto count = [&](const std::string& text) {
      size_t n = 0;
      for (size_t at = 0; (at = text.find(c.Row, at)) != text.npos; ++at) ++n;
      return n;
    };
    const std::string full = written(c.Limit, false);
    EXPECT_EQ(count(full), c.Limit);
    EXPECT_EQ(full.find("left out"), full.npos);
    EXPECT_EQ(count(written(c.Limit + 1, false)), c.Limit);
    EXPECT_THAT(written(c.Limit + 1, false), HasSubstr("1 more phrase is left out."));
    EXPECT_THAT(written(c.Limit + 1234, false), HasSubstr("1,234 more phrases are left out."));
    EXPECT_EQ(count(written(c.Limit + 1234, true)), c.Limit + 1234);
    EXPECT_EQ(written(c.Limit + 1234, true).find("left out"), full.npos);
    EXPECT_THAT(written(1, false, true), HasSubstr("The list was stopped: there are more phrases."));
  }
}

TEST(TableForms, DescribeThemselves) {
  RunSummary facts;
  facts.Options.SourceKind = TextSource::Folder;
  facts.FilesScanned = 2;
  facts.Words.Taken = 90;
  facts.Words.DroppedBy[0] = 10;
  facts.SkippedFiles = {{"/t/<x>.bin", "is binary"}};
  const TableDescription about{
      .Version = "1.2",
      .Created = "2026-11-22T09:30:00Z",
      .Command = "korv-count /t",
      .Settings = {{"MinWords", int64_t{2}}, {"CaseSignificant", true}, {"Filter", "a \"b\""}},
      .Paths = {"/t"}};
  const std::string json = WrittenTable(TableFormOf("json"), {"frequency"}, {}, about, facts);
  EXPECT_EQ(
      json,
      "{\"korv\":{\"version\":\"1.2\",\"created\":\"2026-11-22T09:30:00Z\",\"command\":\"korv-count /t\"},"
      "\"source\":{\"paths\":[\"/t\"],\"files\":2,\"words\":100,\"words_taken\":90,"
      "\"skipped\":[{\"path\":\"/t/<x>.bin\",\"reason\":\"is binary\"}]},"
      "\"settings\":{\"MinWords\":2,\"CaseSignificant\":true,\"Filter\":\"a \\\"b\\\"\"},"
      "\"columns\":[{\"name\":\"frequency\",\"type\":\"integer\",\"unit\":\"occurrences\",\"title\":\"Freq\","
      "\"description\":\"f, the number of times that the phrase occurs.\",\"formula\":\"f\"}],"
      "\"phrases\":[\n]}\n");
  EXPECT_THAT(WrittenTable(TableFormOf("json"), {"frequency"}, {}, about, facts, true),
              testing::EndsWith("\n],\"stopped\":true}\n"));
  const std::string html = WrittenTable(TableFormOf("html"), {"frequency"}, {}, about, facts);
  for (const char* fact :
       {"<dt>Source</dt><dd>/t</dd>", "<dt>Files</dt><dd>2</dd>", "<dt>Running words (N)</dt><dd>100</dd>",
        "<dt>Words taken</dt><dd>90</dd>", "<dt>Program</dt><dd>Korv 1.2</dd>",
        "<dt>Made</dt><dd>2026-11-22T09:30:00Z</dd>", "<dt>Command</dt><dd>korv-count /t</dd>",
        "<dt>MinWords</dt><dd>2</dd>", "<dt>CaseSignificant</dt><dd>yes</dd>",
        "<dt>Filter</dt><dd>a &quot;b&quot;</dd>", "<dt>Skipped</dt><dd>/t/&lt;x&gt;.bin is binary</dd>",
        "<dt>Freq</dt><dd>f, the number of times that the phrase occurs.</dd>"})
    EXPECT_THAT(html, HasSubstr(fact));
}

TEST(TableForms, RefuseRowsWhenTheSinkTakesNoMore) {
  for (const TableForm& form : TableForms()) {
    if (form.Binary) continue;  // They hand over in the end.
    StringSink sink;
    sink.Takes = 0;
    const PhraseTable table;
    const RunSummary facts;
    const Column* columns[] = {FindColumn("rank")};
    const auto writer = form.Make(sink, {}, nullptr);
    writer->Begin(columns, ColumnSource{table, facts});
    const Cell cells[] = {int64_t{1}};
    EXPECT_FALSE(writer->Row({cells, {}})) << form.Name;
  }
}

}  // namespace
}  // namespace korv
