#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/expected.h"
#include "base/yielder.h"
#include "engine/analysis/phrase_list.h"
#include "engine/analysis/phrase_query.h"
#include "report/columns/column.h"

namespace korv {

/// The least and the greatest value that a column may have, both included. A phrase for which the value is
/// not defined does not pass.
struct Limit {
  const Column* Of;  ///< HasKeys().
  std::optional<double> Least = {};
  std::optional<double> Most = {};

  bool operator==(const Limit&) const = default;
};

/// What a table shows: the phrases that pass the query and all limits.
struct RowFilter {
  PhraseQuery Query;
  std::vector<Limit> Limits;

  bool operator==(const RowFilter&) const = default;
};

/// Whether every phrase passes.
bool PassesAll(const RowFilter& filter);

/// Whether every phrase that passes `after` certainly passes `before`. Only its rows need to be tested then.
bool Narrows(const RowFilter& before, const RowFilter& after);

/// The filter ready for FilterRows(). The error says why a regular expression makes no sense. `source`, with
/// what the columns of the limits need, outlives the test. When stopped, the test must not be used.
Expected<RowTest, std::string> CompileFilter(const RowFilter& filter, const ColumnSource& source,
                                             Yielder& yielder);

}  // namespace korv
