#pragma once

#include <QString>

#include "desktop/results/table/table_source.h"

namespace korv {

/// What is to be said of a cell where 0.5 stands for a frequency of 0.
struct OnlySide {
  QString Mark;      ///< Behind the number: "A" or "B" in brackets. Empty where both sides have the phrase.
  QString Sentence;  ///< "only in A".
};

/// Of the cell of a phrase in `column`: empty but for its log ratio. `source` has what the column needs.
OnlySide OnlySideOf(const TableSource& source, const Column& column, PhraseIndex entry);

}  // namespace korv
