#include "report/writers/tsv_writer.h"

#include <gtest/gtest.h>

#include "tests/report/written_table.h"

namespace korv {
namespace {

std::string Table(std::initializer_list<const char*> ids, const Rows& rows) {
  return WrittenTable(TableFormOf("tsv"), ids, rows);
}

TEST(TsvWriter, HeadingIsTheNamesForMachinesAndStandsAlone) {
  EXPECT_EQ(Table({"rank", "phrase", "per_million"}, {}), "rank\tphrase\tper_million\n");
}

struct CellCase {
  korv::Cell Cell;
  const char* Text;
};

TEST(TsvWriter, CellsAreWrittenForMachines) {
  const CellCase cases[] = {
      {Cell(), ""},
      {std::string_view("côté d'or"), "côté d'or"},
      {std::string_view("say \"a, b\""), "say \"a, b\""},
      {std::string_view("a\tb\rc\nd\r\ne\n\nf"), "a b c d e  f"},
      {std::string_view("\t"), " "},
      {int64_t{0}, "0"},
      {int64_t{1234567}, "1234567"},
      {100.0, "100"},
      {0.5, "0.5"},
      {100.0 / 3, "33.3333333"},
      {1e6 * 2 / 3, "666666.667"},
      {1234567890.123, "1.23456789e+09"},
      {0.00001234, "1.234e-05"},
  };
  for (const CellCase& c : cases)
    EXPECT_EQ(Table({"rank", "words"}, {{int64_t{1}, c.Cell}}),
              std::string("rank\twords\n1\t") + c.Text + "\n");
}

}  // namespace
}  // namespace korv
