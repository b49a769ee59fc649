#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "report/columns/column_keys.h"
#include "report/columns/registry.h"
#include "report/columns/row_filter.h"
#include "report/list_source.h"
#include "tests/engine/counting_world.h"
#include "tests/reference/naive_columns.h"
#include "tests/reference/naive_query.h"

// Orders by columns and limits of columns against the values of the naive model, over whole runs.

namespace korv {
namespace {

using Values = std::vector<std::optional<double>>;

/// A column and what the model says of each listed phrase.
struct Known {
  const char* Id;
  std::optional<double> (*Of)(const reference::ColumnValues& values);
};
constexpr Known kColumns[] = {
    {"rank", [](const reference::ColumnValues& v) { return std::optional<double>(v.Rank); }},
    {"frequency", [](const reference::ColumnValues& v) { return std::optional<double>(v.Frequency); }},
    {"per_million", [](const reference::ColumnValues& v) { return v.PerMillion; }},
    {"words", [](const reference::ColumnValues& v) { return std::optional<double>(v.Words); }},
    {"characters", [](const reference::ColumnValues& v) { return std::optional<double>(v.Characters); }},
    {"files", [](const reference::ColumnValues& v) { return std::optional<double>(v.Files); }},
    {"files_percent", [](const reference::ColumnValues& v) { return v.FilesPercent; }},
};

/// A run of a folder with what the columns need, and the model's values.
struct ListWorld {
  ListWorld()
      : World(DrawWorld({.Lists = true, .Rules = true, .Folder = true})), Run(CountedByEngine(World)) {
    RC_LOG() << World;
    World.Order = ChainOrder::ByCount;  // The rank of the columns, whatever the chain goes by.
    Facts.Options = World.Options;
    Facts.Words = Run.Words;
    // The chain may go by files, or be threaded anew meanwhile.
    Options.SortByNumberOfFiles = true;
    Model = reference::ValuesOfColumns(ModelRun(World), true);
    for (const PhraseIndex i : Run.Table.All())
      if (Run.Table.Listed(i)) Listed.push_back(i);
    RC_ASSERT(Listed.size() == Model.size());
  }

  Values Of(const Known& column) const {
    Values values;
    for (const reference::ColumnValues& v : Model) values.push_back(column.Of(v));
    return values;
  }

  CountingWorld World;
  EngineRun Run;
  RunSummary Facts;
  ReportOptions Options;
  NumberFormat Numbers;
  std::vector<reference::ColumnValues> Model;
  std::vector<PhraseIndex> Listed;
};

RC_GTEST_PROP(ListProperties, OrdersByAnyColumn, ()) {
  const ListWorld world;
  const Report report{world.Run.Table, world.Facts, world.Options, world.Numbers};
  NoYielder yielder;
  for (const Known& known : kColumns) {
    const Column& column = *FindColumn(known.Id);
    const Column* columns[] = {&column};
    ListSource source(report, columns, {});
    source.Prepare(yielder);
    for (const bool descending : {false, true}) {
      std::vector<PhraseIndex> expected;
      for (const size_t i : reference::OrderOfValues(world.Of(known), descending))
        expected.push_back(world.Listed[i]);
      const SharedOrder order = OrderByColumn(
          column, descending ? SortDirection::Descending : SortDirection::Ascending, source.View(), yielder);
      RC_ASSERT(std::vector(order->Entries.begin(), order->Entries.end()) == expected);
    }
  }
}

RC_GTEST_PROP(ListProperties, LimitsLetPassWhatLiesBetween, ()) {
  const ListWorld world;
  const Report report{world.Run.Table, world.Facts, world.Options, world.Numbers};
  NoYielder yielder;
  const Known& one = *rc::gen::elementOf(std::vector<Known>(std::begin(kColumns), std::end(kColumns)));
  const Known& two = *rc::gen::elementOf(std::vector<Known>(std::begin(kColumns), std::end(kColumns)));
  const auto bound = [](int end) {
    const int n = *rc::gen::inRange(-1, end);
    return n < 0 ? std::optional<double>() : n;
  };
  const auto limit = [&](const Known& known) { return Limit{FindColumn(known.Id), bound(6), bound(40)}; };
  RowFilter filter;
  filter.Query.Text = *rc::gen::elementOf(std::vector<std::string>{"", "a", "-a", "he"});
  filter.Limits = {limit(one), limit(two)};
  const Column* columns[] = {filter.Limits[0].Of, filter.Limits[1].Of};
  ListSource source(report, columns, {});
  source.Prepare(yielder);
  const auto test = CompileFilter(filter, source.View(), yielder);
  const SharedOrder order = OrderByPhrase(world.Run.Table, SortDirection::Ascending, yielder);
  const auto list = FilterRows(world.Run.Table, order, *test, yielder);
  std::vector<PhraseIndex> found;
  for (uint32_t row = 0; row < list->Rows(); ++row) found.push_back(list->EntryAt(row));
  std::vector<PhraseIndex> expected;
  for (size_t i = 0; i < world.Listed.size(); ++i)
    if (reference::PassesQuery(world.Model[i].Phrase, filter.Query, world.World.Rules.CaseSignificant) &&
        reference::WithinLimits(one.Of(world.Model[i]), filter.Limits[0].Least, filter.Limits[0].Most) &&
        reference::WithinLimits(two.Of(world.Model[i]), filter.Limits[1].Least, filter.Limits[1].Most))
      expected.push_back(world.Listed[i]);
  RC_ASSERT(found == expected);
}

}  // namespace
}  // namespace korv
