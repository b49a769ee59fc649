#pragma once

#include <array>
#include <vector>

#include "base/yielder.h"
#include "engine/analysis/phrase_order.h"
#include "report/columns/column.h"
#include "report/row_builder.h"

namespace korv {

/// Whether phrases can be ordered and limited by a column: one that has a value of the phrase, a number or a
/// text with an OrderKey.
bool HasKeys(const Column& column);

/// Numbers are mostly wanted from the greatest one down, texts from their beginning.
SortDirection UsualDirection(const Column& column);

/// The values of such a column as numbers, of texts their OrderKeys; a NaN where the value is not defined.
/// `source` has what the column needs and outlives this. One thread at a time.
class ColumnKeys {
 public:
  ColumnKeys(const Column& column, const ColumnSource& source);

  double Of(PhraseIndex entry);

 private:
  const Column& column_;
  const ColumnSource& source_;
  RowBuilder cells_;
};

/// Those of all listed phrases, by entry: element ValueOf(i) is that of entry i. On all cores. 8 bytes an
/// entry. Empty when stopped.
std::vector<double> KeysOfColumn(const Column& column, const ColumnSource& source, Yielder& yielder);

/// The listed phrases ordered by a column that HasKeys(): undefined values last whatever the direction,
/// phrases with equal values in alphabetical order. Null when stopped.
SharedOrder OrderByColumn(const Column& column, SortDirection direction, const ColumnSource& source,
                          Yielder& yielder);

}  // namespace korv
