#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "engine/analysis/phrase_list.h"
#include "engine/analysis/phrase_order.h"
#include "report/columns/row_filter.h"

namespace korv {

/// Which of its phrases a report lists, beside the words that its options filter by, and in which order.
/// Ranks stay those of the whole list, and nothing in the report tells of it.
struct RowChoice {
  static constexpr uint32_t kAll = std::numeric_limits<uint32_t>::max();

  RowFilter Filter = {};            ///< Its query has no FaultOf().
  const Column* OrderBy = nullptr;  ///< HasKeys(); null for the order of the report's options.
  SortDirection Direction = SortDirection::Descending;  ///< Of OrderBy.
  uint32_t Most = kAll;                                 ///< At most so many rows, the first ones.
  /// These rows, in their order; the filter and the order above have no effect then. Null where they have.
  const PhraseList* Given = nullptr;

  /// Whether the report is the same without it.
  bool Empty() const { return PassesAll(Filter) && OrderBy == nullptr && Most == kAll && Given == nullptr; }
  /// The columns whose values it goes by.
  std::vector<const Column*> Columns() const {
    std::vector<const Column*> columns;
    if (OrderBy != nullptr) columns.push_back(OrderBy);
    for (const Limit& limit : Filter.Limits) columns.push_back(limit.Of);
    return columns;
  }
};

}  // namespace korv
