#include "desktop/results/table/key_tabs.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "engine/analysis/phrase_list.h"
#include "report/columns/row_filter.h"

namespace korv {

namespace {

/// c + d: what frequencies are compared with.
uint64_t UnitsOf(const TableSource& source) {
  uint64_t units = 0;
  for (const Side side : {Side::A, Side::B}) {
    units += source.Choice().ComparedBy == ComparisonBasis::Files
                 ? source.View().Analysis->FilesWithWords(side).value_or(0)
                 : SizeOf(source.Run().Facts, side).Words.Read();
  }
  return std::max<uint64_t>(units, 1);
}

}  // namespace

std::shared_ptr<const KeyTabs> KeyTabs::Of(const TableSource& source, const SharedOrder& order,
                                           const KeyTab& tab, Yielder& yielder) {
  auto found = std::make_shared<KeyTabs>();
  found->made_ = tab;
  found->tabs_.resize(size_t{source.Table().EntryCount()} + 1);
  const ColumnSource view = source.View();
  const size_t listed = order->Entries.size();
  const auto leastBic = LeastBicOf(tab.Test, UnitsOf(source), std::max<size_t>(listed, 1));
  for (const KeyPhrases which : KeyTablesOf(tab.OfDrafts())) {
    RowFilter filter;
    filter.Limits = RowsOf(which, leastBic).Limits;
    const auto passes = CompileFilter(filter, view, yielder);
    const std::optional<PhraseList> rows =
        passes ? FilterRows(source.Table(), order, *passes, yielder) : std::nullopt;
    if (!rows || yielder.Stopped()) return nullptr;
    found->phrases_[static_cast<size_t>(which)] = rows->Rows();
    const auto bit = static_cast<uint16_t>(1 << static_cast<int>(which));
    for (uint32_t row = 0; row < rows->Rows(); ++row) found->tabs_[ValueOf(rows->EntryAt(row))] |= bit;
  }
  return found;
}

}  // namespace korv
