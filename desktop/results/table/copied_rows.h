#pragma once

#include <QString>
#include <cstdint>
#include <span>
#include <vector>

#include "base/number_format.h"
#include "base/yielder.h"
#include "desktop/results/table/table_source.h"
#include "desktop/widgets/row_range.h"
#include "engine/analysis/phrase_list.h"

namespace korv {

/// What is to be copied of a table.
struct CopyRequest {
  PhraseList Rows;
  std::vector<RowRange> Ranges;
  std::vector<const Column*> Columns;
  bool Heading = true;
};

/// The same rows for programs that take text, a tab between columns and a line feed behind each row, and for
/// those that take tables.
struct CopiedRows {
  QString Text;
  QString Html;
};

uint64_t CountRows(std::span<const RowRange> ranges);
/// The first so many rows of them.
std::vector<RowRange> FirstRowsOf(std::span<const RowRange> ranges, uint64_t most);

/// Numbers are as CopiedCell() has them. Tabs and line ends within a text become blanks. Stops where it is
/// when it is asked to.
CopiedRows CopyRows(const TableSource& source, const CopyRequest& request, const NumberFormat& numbers,
                    Yielder& yielder);

}  // namespace korv
