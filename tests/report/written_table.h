#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "report/columns/registry.h"
#include "report/writers/table_forms.h"
#include "tests/report/report_world.h"

namespace korv {

using Rows = std::vector<std::vector<Cell>>;

/// Has a writer write these cells.
inline void WriteTable(ListWriter& writer, std::initializer_list<const char*> ids, const Rows& rows,
                       const RunSummary& facts, bool stopped) {
  std::vector<const Column*> columns;
  for (const char* id : ids) columns.push_back(FindColumn(id));
  const PhraseTable table;
  const ColumnSource source{table, facts};
  writer.Begin(columns, source);
  for (const std::vector<Cell>& row : rows) EXPECT_TRUE(writer.Row({row, {}}));
  EXPECT_TRUE(writer.End(stopped));
}

/// What a form makes of these cells. Binary ones need `files`.
inline std::string WrittenTable(const TableForm& form, std::initializer_list<const char*> ids,
                                const Rows& rows, const TableDescription& about = {},
                                const RunSummary& facts = {}, bool stopped = false,
                                FileSystem* files = nullptr) {
  StringSink sink;
  sink.Piece = 1 << 20;
  WriteTable(*form.Make(sink, about, files), ids, rows, facts, stopped);
  return sink.Text;
}

}  // namespace korv
