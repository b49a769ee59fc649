#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include "report/columns/registry.h"
#include "report/list_words.h"
#include "tests/engine/counting_world.h"
#include "tests/reference/naive_columns.h"

// The columns of tables against the naive model, over whole runs.

namespace korv {
namespace {

constexpr const char* kIds[] = {"rank",  "phrase",     "frequency", "per_million",   "percent",
                                "words", "characters", "files",     "files_percent", "first_file"};

/// Keeps the cells, texts too.
class CellKeeper final : public ListWriter {
 public:
  void Begin(std::span<const Column* const>, const ColumnSource&) override {}
  bool Row(const RowCells& cells) override {
    std::vector<std::string>& row = Rows.emplace_back();
    for (const Cell& cell : cells.OfPhrase) row.push_back(Said(cell));
    return true;
  }
  bool End(bool) override { return true; }

  /// Exact: equal texts are equal values.
  static std::string Said(const Cell& cell) {
    char text[40] = "undefined";
    if (const auto* said = std::get_if<std::string_view>(&cell)) return std::string(*said);
    if (const auto* whole = std::get_if<int64_t>(&cell)) return std::to_string(*whole);
    if (const auto* real = std::get_if<double>(&cell)) std::snprintf(text, sizeof text, "%a", *real);
    return text;
  }

  std::vector<std::vector<std::string>> Rows;
};

std::string Real(const std::optional<double>& value) {
  return CellKeeper::Said(value ? Cell(*value) : Cell());
}

void CompareWithModel(const WorldKind& kind) {
  const CountingWorld world = DrawWorld(kind);
  RC_LOG() << world;
  const EngineRun run = CountedByEngine(world);
  RunSummary facts;
  facts.Options = world.Options;
  facts.Words = run.Words;
  const ReportOptions options{.WordOrder = kAlphabetical,
                              .SortByNumberOfFiles = world.Order == ChainOrder::ByFiles};
  const NumberFormat numbers;
  std::vector<const Column*> columns;
  for (const char* id : kIds) columns.push_back(FindColumn(id));
  CellKeeper cells;
  NoYielder yielder;
  WriteList({run.Table, facts, options, numbers}, columns, {}, cells, yielder);

  std::vector<std::vector<std::string>> expected;
  for (const reference::ColumnValues& v : reference::ValuesOfColumns(ModelRun(world), kind.Folder))
    expected.push_back({std::to_string(v.Rank), v.Phrase, std::to_string(v.Frequency), Real(v.PerMillion),
                        Real(v.Percent), std::to_string(v.Words), std::to_string(v.Characters),
                        std::to_string(v.Files), Real(v.FilesPercent), kind.Folder ? v.FirstFile : "0"});
  RC_ASSERT(cells.Rows == expected);
}

RC_GTEST_PROP(ColumnsProperties, OfAFileAreThoseOfTheModel, ()) {
  CompareWithModel({.Lists = true, .Rules = true});
}

RC_GTEST_PROP(ColumnsProperties, OfAFolderAreThoseOfTheModel, ()) {
  CompareWithModel({.Lists = true, .Rules = true, .Folder = true});
}

}  // namespace
}  // namespace korv
