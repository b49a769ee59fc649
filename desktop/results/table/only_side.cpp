#include "desktop/results/table/only_side.h"

#include "base/translation.h"

namespace korv {

OnlySide OnlySideOf(const TableSource& source, const Column& column, PhraseIndex entry) {
  const PhraseAnalysis* const analysis = source.View().Analysis;
  if (column.Id != "log_ratio" || analysis == nullptr) return {};
  const auto a = analysis->Compared(entry, Side::A);
  const auto b = analysis->Compared(entry, Side::B);
  if (!a || !b || (*a > 0) == (*b > 0)) return {};
  const Side missing = *a == 0 ? Side::A : Side::B;
  const QString mark = missing == Side::A ? QStringLiteral("(B)") : QStringLiteral("(A)");
  // On its own it may be on one side, in longer phrases on both.
  if (analysis->FrequencyOn(entry, missing).value_or(0) > 0)
    return {mark, missing == Side::A ? Tr("on its own only in B") : Tr("on its own only in A")};
  return {mark, missing == Side::A ? Tr("only in B") : Tr("only in A")};
}

}  // namespace korv
