#include "report/writers/text_writer.h"

#include <gtest/gtest.h>

#include "report/columns/registry.h"
#include "tests/report/report_world.h"

namespace korv {
namespace {

/// What the writer makes of one row behind its heading.
std::string LineOf(const ReportWorld& world, const ReportForm& form, const ListExtent& extent,
                   const RowCells& cells) {
  StringSink sink;
  sink.Piece = 1 << 20;
  const Report report = world.View();
  TextWriter writer(report, form, sink);
  const auto columns = ColumnsOfFormat(FormatOf(world.Options.DisplayFormat), world.Options);
  writer.Begin(columns, ColumnSource{world.Table, world.Facts, extent});
  EXPECT_TRUE(writer.Row(cells));
  EXPECT_TRUE(writer.End(false));
  std::string text = sink.Text.substr(0, sink.Text.size() - form.LineEnd.size());
  return text.substr(text.rfind(form.LineEnd) + form.LineEnd.size());
}

struct WidthCase {
  ListExtent Extent;
  bool Relative;
  size_t Phrase, Rank, Frequency;
};

std::string RightAligned(const std::string& text, size_t width) {
  return std::string(width - text.size(), ' ') + text;
}

TEST(TextWriter, WidthsAreThoseOfTheWidestCellOrTheHeading) {
  const WidthCase cases[] = {
      {{.Phrases = 1, .HighestCount = 1, .LongestCharacters = 3}, false, 6, 4, 4},
      {{.Phrases = 9999, .HighestCount = 9999, .LongestCharacters = 6}, false, 6, 4, 4},
      {{.Phrases = 10000, .HighestCount = 10000, .LongestCharacters = 7}, false, 7, 5, 5},
      {{.Phrases = 2000000, .HighestCount = 4294967295u, .LongestCharacters = 100}, false, 100, 7, 10},
      {{.Phrases = 1, .HighestCount = 20, .LongestCharacters = 3}, true, 6, 4, 8},
      {{.Phrases = 1, .HighestCount = 2000, .LongestCharacters = 3}, true, 6, 4, 9},
  };
  ReportWorld world = ReportWorld::Of({{"a b", 20}});
  for (const WidthCase& c : cases) {
    world.Options = {.DisplayFormat = 1, .RelativeFrequency = c.Relative};
    const Cell cells[] = {std::string_view("a b"), int64_t{7}, c.Relative ? Cell(0.5) : Cell(int64_t{5})};
    EXPECT_EQ(LineOf(world, kBoxForm, c.Extent, {cells, {}}),
              " a b" + std::string(c.Phrase - 3, ' ') + "  " + RightAligned("7", c.Rank) + "  " +
                  RightAligned(c.Relative ? "0.50%" : "5", c.Frequency));
  }
}

TEST(TextWriter, APhraseWithoutFilesEndsItsLine) {
  ReportWorld world = ReportWorld::Of({{"a b", 2}});
  world.Options.DisplayFormat = 11;
  const Cell cells[] = {std::string_view("a b")};
  EXPECT_EQ(LineOf(world, kBoxForm, {}, {cells, {}}), " a b");
  EXPECT_EQ(LineOf(world, kFileForm, {}, {cells, {}}), "a b\t");
}

TEST(TextWriter, AValueThatIsNotDefinedIsAnEmptyCell) {
  ReportWorld world = ReportWorld::Of({{"a b", 2}});
  world.Options.DisplayFormat = 2;
  const Cell cells[] = {Cell(), int64_t{5}};
  EXPECT_EQ(LineOf(world, kBoxForm, {}, {cells, {}}), "          5");
  EXPECT_EQ(LineOf(world, kFileForm, {}, {cells, {}}), "\t5");
}

}  // namespace
}  // namespace korv
