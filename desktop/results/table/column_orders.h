#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/expected.h"
#include "base/yielder.h"
#include "engine/analysis/phrase_order.h"
#include "report/columns/row_filter.h"

namespace korv {

/// Orders of the listed phrases of one run by columns that IsComputed(), so that a second sort or another
/// limit computes nothing again. An order tells as much as the values, exactly, in half the memory: 4 bytes a
/// phrase. Those of the kMostKept columns that were asked for last are kept.
class ColumnOrders {
 public:
  static constexpr size_t kMostKept = 3;

  /// Null when stopped. `source` has what the column needs.
  SharedOrder Ascending(const Column& column, const ColumnSource& source, Yielder& yielder);
  /// CompileFilter(), with limits of computed columns that look into orders: those that are kept, and where
  /// `makeOrders`, which pays off where many phrases are tested, new ones too.
  Expected<RowTest, std::string> Compile(const RowFilter& filter, const ColumnSource& source, bool makeOrders,
                                         Yielder& yielder);
  /// Forgets those by columns of which `changed` says so.
  void Forget(const std::function<bool(const Column&)>& changed);

 private:
  struct Kept {
    const Column* Of;
    SharedOrder Order;
  };

  SharedOrder Find(const Column& column);

  std::vector<Kept> kept_;  ///< The one that was asked for last in front.
};

}  // namespace korv
