#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "report/columns/column.h"
#include "report/report_form.h"
#include "report/run_summary.h"

namespace korv {

/// A table as it was written.
struct WrittenTable {
  /// From the folder of the description, names separated by "/", UTF-8. Empty for a table that went to a
  /// stream.
  std::string Path = {};
  uint64_t Bytes = 0;
  std::string Sha256 = {};   ///< Of these bytes, in hexadecimal digits.
  uint32_t Listed = 0;       ///< Phrases of the list. Forms that are for reading may show fewer.
  uint32_t Phrases = 0;      ///< Those that there are to list without filters and limits.
  uint64_t Occurrences = 0;  ///< Sum of the counts of the listed ones.
  bool Stopped = false;      ///< There would have been more rows.
};

/// A table's description: a tabular data package (specs.frictionlessdata.io) with one resource, and in "korv"
/// how the table came about: version, command, source, settings, counts. A JSON object on one line, with an
/// LF. `table` has a Form.
std::string DataPackageText(const TableOutput& table, std::span<const Column* const> columns,
                            const RunSummary& facts, const WrittenTable& written);

/// What the text of DataPackageText() has of the path of its table, and no description of a table elsewhere.
std::string DataPackagePathMember(const std::string& path);

}  // namespace korv
