#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "base/number_format.h"
#include "engine/analysis/keyness.h"

namespace korv {

/// What a table tells of how it came about, beside what the run itself knows. Plain data, UTF-8.
struct TableDescription {
  using Value = std::variant<bool, int64_t, std::string>;

  std::string Version = {};  ///< Of the program: "1.2.0".
  std::string Created = {};  ///< UTC, as in "2026-11-22T09:30:00Z".
  std::string Command = {};  ///< As a shell takes it; empty where there was none.
  /// The settings of the run by their names, in the order in which they are saved.
  std::vector<std::pair<std::string, Value>> Settings = {};
  /// The paths that were counted, as given; "-" for a text that came from no file.
  std::vector<std::string> Paths = {};
  /// Of a run that compares.
  ComparisonBasis ComparedBy = ComparisonBasis::Words;
  double SimpleMathsK = 1;
  NumberFormat Numbers = {};  ///< For the forms that follow the locale.
  /// The forms that are for reading end after a number of rows unless all are wished.
  bool AllRows = false;
};

}  // namespace korv
