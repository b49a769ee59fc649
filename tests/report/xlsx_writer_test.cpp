#include "report/writers/xlsx_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>

#include "tests/fakes/fake_files.h"
#include "tests/report/read_book.h"
#include "tests/report/written_table.h"

namespace korv {
namespace {

using testing::HasSubstr;
using testing::Not;

const std::string kHeading =
    "<row r=\"1\"><c r=\"A1\" s=\"1\" t=\"inlineStr\"><is><t>Rank</t></is></c>"
    "<c r=\"B1\" s=\"1\" t=\"inlineStr\"><is><t>Phrase</t></is></c></row>";

std::string RowOf(int row, int rank, const std::string& text) {
  const std::string r = std::to_string(row);
  return "<row r=\"" + r + "\"><c r=\"A" + r + "\" s=\"2\"><v>" + std::to_string(rank) + "</v></c><c r=\"B" +
         r + "\" t=\"inlineStr\"><is><t>" + text + "</t></is></c></row>";
}

class XlsxWriterTest : public testing::Test {
 protected:
  std::string Written(std::initializer_list<const char*> ids, const Rows& rows,
                      const TableDescription& about = {}, const RunSummary& facts = {}) {
    return WrittenTable(TableFormOf("xlsx"), ids, rows, about, facts, false, files.get());
  }
  /// Of sheets with so many rows, and cells with so many characters.
  std::string Limited(const SheetLimits& limits, const Rows& rows, const TableDescription& about = {}) {
    StringSink sink;
    sink.Piece = 1 << 20;
    XlsxWriter writer(sink, about, *files, limits);
    WriteTable(writer, {"rank", "phrase"}, rows, {}, false);
    return sink.Text;
  }

  const std::unique_ptr<FileSystem> files = MakeSystemFiles();
};

TEST_F(XlsxWriterTest, CellsAreTextsAndNumbersWithTheirFormats) {
  const std::string book =
      Written({"rank", "phrase", "mi"}, {{int64_t{1234567}, std::string_view("=1+2"), 0.25},
                                         {Cell(), std::string_view("http://a.b/<&>"), Cell()}});
  const std::string sheet = MemberOf(book, "xl/worksheets/sheet1.xml");
  EXPECT_THAT(
      sheet, HasSubstr("<row r=\"2\"><c r=\"A2\" s=\"2\"><v>1234567</v></c>"
                       "<c r=\"B2\" t=\"inlineStr\"><is><t>=1+2</t></is></c>"
                       "<c r=\"C2\" s=\"3\"><v>0.25</v></c></row>"
                       "<row r=\"3\"><c r=\"B3\" t=\"inlineStr\"><is><t>http://a.b/&lt;&amp;&gt;</t></is></c>"
                       "</row></sheetData>"));
  EXPECT_THAT(sheet, Not(HasSubstr("<f>")));
  EXPECT_THAT(sheet, Not(HasSubstr("hyperlink")));
  const std::string styles = MemberOf(book, "xl/styles.xml");
  EXPECT_THAT(styles, HasSubstr("<numFmt numFmtId=\"164\" formatCode=\"0\"/>"
                                "<numFmt numFmtId=\"165\" formatCode=\"0.00\"/>"));
  // The styles 2 and 3 of cells.
  const std::string cells = styles.substr(styles.find("<cellXfs count=\"4\">"));
  EXPECT_LT(cells.find("numFmtId=\"164\""), cells.find("numFmtId=\"165\""));
  EXPECT_EQ(std::ranges::count(cells.substr(0, cells.find("numFmtId=\"164\"")), '<'), 4) << "the third one";
}

TEST_F(XlsxWriterTest, TheHeadingStaysInSightAndFilters) {
  const std::string sheet = MemberOf(Written({"rank", "phrase"}, {{int64_t{1}, std::string_view("a b")},
                                                                  {int64_t{2}, std::string_view("c d")}}),
                                     "xl/worksheets/sheet1.xml");
  EXPECT_THAT(
      sheet, HasSubstr("<pane ySplit=\"1\" topLeftCell=\"A2\" activePane=\"bottomLeft\" state=\"frozen\"/>"));
  EXPECT_THAT(sheet, HasSubstr("<autoFilter ref=\"A1:B3\"/>"));
  EXPECT_THAT(sheet,
              HasSubstr("<sheetData>" + kHeading + RowOf(2, 1, "a b") + RowOf(3, 2, "c d") + "</sheetData>"));
  EXPECT_THAT(sheet, HasSubstr("<col min=\"2\" max=\"2\" width=\"40.7109375\""));
}

TEST_F(XlsxWriterTest, AFullSheetIsFollowedByAnother) {
  struct Case {
    int Rows;
    std::vector<std::string> Sheets;
  };
  const Case cases[] = {{0, {"Phrases", "About"}},
                        {2, {"Phrases", "About"}},
                        {3, {"Phrases", "Phrases 2", "About"}},
                        {4, {"Phrases", "Phrases 2", "About"}},
                        {5, {"Phrases", "Phrases 2", "Phrases 3", "About"}}};
  for (const Case& c : cases) {
    Rows rows;
    for (int k = 1; k <= c.Rows; ++k) rows.push_back({int64_t{k}, std::string_view("a b")});
    const std::string book = Limited({.Rows = 3}, rows);
    const std::string names = MemberOf(book, "xl/workbook.xml");
    size_t at = 0;
    for (const std::string& name : c.Sheets) {
      at = names.find("<sheet name=\"" + name + "\"", at);
      EXPECT_NE(at, names.npos) << name << " of " << c.Rows;
    }
    const size_t sheets = c.Sheets.size() - 1;
    EXPECT_EQ(MemberOf(book, "xl/worksheets/sheet" + std::to_string(sheets + 2) + ".xml"), "");
    for (size_t s = 0; s < sheets; ++s) {
      std::string data = "<sheetData>" + kHeading;
      const int first = static_cast<int>(2 * s) + 1;
      for (int k = first; k < first + 2 && k <= c.Rows; ++k) data += RowOf(k - first + 2, k, "a b");
      const std::string sheet = MemberOf(book, "xl/worksheets/sheet" + std::to_string(s + 1) + ".xml");
      EXPECT_THAT(sheet, HasSubstr(data + "</sheetData>"));
      const int last = std::min(3, c.Rows - first + 2);
      EXPECT_THAT(sheet, HasSubstr("<autoFilter ref=\"A1:B" + std::to_string(last) + "\"/>"));
    }
  }
}

TEST_F(XlsxWriterTest, ASheetHoldsAMillionRows) {
  EXPECT_EQ(SheetLimits().Rows, 1048576u);
  EXPECT_EQ(SheetLimits().Characters, 32767u);
}

TEST_F(XlsxWriterTest, ALongTextEndsWithAnEllipsis) {
  const std::string sheet =
      MemberOf(Limited({.Characters = 7}, {{int64_t{1}, std::string_view("the big cat")}}),
               "xl/worksheets/sheet1.xml");
  EXPECT_THAT(sheet, HasSubstr(RowOf(2, 1, "the bi\u2026")));
  const std::string most(kMostInCell, 'a');
  const std::string more(kMostInCell + 1, 'b');
  const std::string whole =
      MemberOf(Limited({}, {{int64_t{1}, std::string_view(most)}, {int64_t{2}, std::string_view(more)}}),
               "xl/worksheets/sheet1.xml");
  EXPECT_THAT(whole, HasSubstr(">" + most + "<"));
  EXPECT_THAT(whole, HasSubstr(">" + more.substr(2) + "\u2026<"));
}

TEST_F(XlsxWriterTest, ASheetTellsHowTheListCameAbout) {
  RunSummary facts;
  facts.Options.SourceKind = TextSource::Folder;
  facts.FilesScanned = 1200;
  facts.Words.Taken = 90;
  const TableDescription about{.Version = "1.2",
                               .Created = "2026-11-22T09:30:00Z",
                               .Command = "korv-count /t",
                               .Settings = {{"MinWords", int64_t{2}}},
                               .Paths = {"/t"}};
  const std::string book = Written({"frequency"}, {}, about, facts);
  const std::string sheet = MemberOf(book, "xl/worksheets/sheet2.xml");
  const auto at = [](const std::string& cell, const std::string& style, const std::string& text) {
    return "<c r=\"" + cell + "\"" + style + " t=\"inlineStr\"><is><t>" + text + "</t></is></c>";
  };
  const std::string bold = " s=\"1\"";
  const std::vector<std::pair<std::string, std::string>> told = {{"Source", "/t"},
                                                                 {"Files", "1,200"},
                                                                 {"Running words (N)", "90"},
                                                                 {"Words taken", "90"},
                                                                 {"Program", "Korv 1.2"},
                                                                 {"Made", "2026-11-22T09:30:00Z"},
                                                                 {"Command", "korv-count /t"},
                                                                 {"MinWords", "2"}};
  int row = 0;
  for (const auto& [name, value] : told) {
    const std::string r = std::to_string(++row);
    EXPECT_THAT(sheet, HasSubstr(at("A" + r, bold, name) + at("B" + r, "", value)));
  }
  EXPECT_THAT(sheet, HasSubstr(at("A10", bold, "Column") + at("B10", bold, "Name") +
                               at("C10", bold, "Meaning") + at("D10", bold, "Formula")));
  EXPECT_THAT(
      sheet, HasSubstr(at("A11", "", "Freq") + at("B11", "", "frequency") +
                       at("C11", "", "f, the number of times that the phrase occurs.") + at("D11", "", "f")));
  EXPECT_THAT(MemberOf(book, "docProps/core.xml"), HasSubstr(">2026-11-22T09:30:00Z</dcterms:created>"));
  EXPECT_EQ(book, Written({"frequency"}, {}, about, facts)) << "the same list is the same file";
}

TEST_F(XlsxWriterTest, LongFactsGoOnInFurtherRows) {
  const std::string sheet =
      MemberOf(Limited({.Characters = 20}, {}, {.Command = "korv-count /t --quiet --force"}),
               "xl/worksheets/sheet2.xml");
  EXPECT_THAT(sheet, HasSubstr("<t>Command</t>"));
  EXPECT_THAT(sheet,
              HasSubstr("<t>korv-count /t --quie</t></is></c></row><row r=\"7\"><c r=\"B7\" t=\"inlineStr\">"
                        "<is><t>t --force</t>"));
}

TEST_F(XlsxWriterTest, NumbersHaveAPointWhateverTheLocale) {
  struct InGerman {
    const char* Name = std::setlocale(LC_ALL, "de_DE.UTF-8");
    ~InGerman() { std::setlocale(LC_ALL, "C"); }
  } german;
  if (german.Name == nullptr) GTEST_SKIP() << "there is no locale de_DE.UTF-8 here";
  ASSERT_EQ(std::localeconv()->decimal_point, std::string(","));
  const std::string book = Written({"mi"}, {{0.25}, {0.5}});
  EXPECT_EQ(std::localeconv()->decimal_point, std::string(",")) << "the locale stays what it was";
  const std::string sheet = MemberOf(book, "xl/worksheets/sheet1.xml");
  EXPECT_THAT(sheet, HasSubstr("<v>0.25</v>"));
  EXPECT_THAT(sheet, HasSubstr("<v>0.5</v>"));
  EXPECT_EQ(sheet.find(','), sheet.npos);
}

TEST_F(XlsxWriterTest, AfterAStopThereIsNone) {
  StringSink sink;
  const auto writer = TableFormOf("xlsx").Make(sink, {}, files.get());
  const PhraseTable table;
  const RunSummary facts;
  const Column* columns[] = {FindColumn("rank")};
  writer->Begin(columns, ColumnSource{table, facts});
  const Cell cells[] = {int64_t{1}};
  EXPECT_TRUE(writer->Row({cells, {}}));
  EXPECT_FALSE(writer->End(true));
  EXPECT_FALSE(writer->Fault());
  EXPECT_EQ(sink.Text, "");
}

TEST_F(XlsxWriterTest, WhatCannotBeWrittenIsAFault) {
  FakeFiles nowhere;  // Its folders are none that the library could write to.
  ExpectFault(TableFormOf("xlsx"), nowhere, FileFault::Other);
  nowhere.Refuse("/tmp", FileFault::PermissionDenied);
  ExpectFault(TableFormOf("xlsx"), nowhere, FileFault::PermissionDenied);
}

}  // namespace
}  // namespace korv
