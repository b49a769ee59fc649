#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tests/reference/naive_run.h"

namespace korv::reference {

/// What a table says of a listed phrase. Nothing where there is nothing to divide by.
struct ColumnValues {
  int64_t Rank = 0;
  std::string Phrase;
  int64_t Frequency = 0;
  std::optional<double> PerMillion;
  std::optional<double> Percent;
  int64_t Words = 0;
  int64_t Characters = 0;
  int64_t Files = 0;
  std::optional<double> FilesPercent;
  std::string FirstFile;  ///< Folder only.
};

/// Those of all listed phrases of a finished run, in alphabetical order. `folder`: the texts were the files
/// of a folder; else all of it is one file.
std::vector<ColumnValues> ValuesOfColumns(const CountingRun& run, bool folder);

}  // namespace korv::reference
