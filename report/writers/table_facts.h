#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "report/columns/column.h"
#include "report/writers/table_description.h"

namespace korv {

/// One thing to know of a list, for people.
struct TableFact {
  std::string Name;
  std::string Value;
};

/// How a list came about: source, words and files, program, command, settings, and the files that were
/// skipped.
std::vector<TableFact> FactsOf(const ColumnSource& source, const TableDescription& about);

/// What is to be said below a table that was given `rows` rows and shows at most `limit`: how many phrases
/// are left out, and that the list was stopped.
std::vector<std::string> RowNotes(uint64_t rows, uint64_t limit, bool stopped, const NumberFormat& numbers);

}  // namespace korv
