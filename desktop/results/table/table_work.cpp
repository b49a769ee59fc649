#include "desktop/results/table/table_work.h"

#include <utility>

#include "report/columns/column_keys.h"

namespace korv {

void TableWork::Answer(const TableRequest& request, Yielder& yielder, const Tell& tell) {
  if (source_ == nullptr) source_ = TableSource::Of(run_, yielder);
  if (source_ != nullptr && Order(request, yielder)) Filter(request, yielder, tell);
}

bool TableWork::Order(const TableRequest& request, Yielder& yielder) {
  const bool sameColumn = all_.Order() && last_.SortBy == request.SortBy;
  if (sameColumn && last_.Direction == request.Direction) return true;
  const SharedOrder order = sameColumn
                                ? Reversed(*all_.Order(), yielder)
                                : OrderByColumn(*request.SortBy, request.Direction, source_->View(), yielder);
  if (!order) return false;
  // Those that passed pass in any order.
  std::optional<PhraseList> rows = InOrder(source_->Table(), rows_, order, yielder);
  if (!rows) return false;
  all_ = AllRows(source_->Table(), order);
  rows_ = rows_.Filtered() ? *std::move(rows) : all_;
  last_.SortBy = request.SortBy;
  last_.Direction = request.Direction;
  return true;
}

void TableWork::Filter(const TableRequest& request, Yielder& yielder, const Tell& tell) {
  if (request.Filter == last_.Filter) return tell({.Source = source_, .Rows = rows_});
  const ColumnSource view = source_->View();
  const auto passes = CompileFilter(request.Filter, view, yielder);
  if (!passes) return tell({.Source = source_, .Fault = passes.Error()});
  std::optional<PhraseList> rows = all_;
  if (!PassesAll(request.Filter)) {
    rows = FilterRows(
        source_->Table(), all_.Order(), *passes, yielder,
        [&](const PhraseList& found, uint32_t) { tell({.Source = source_, .Rows = found, .Whole = false}); },
        Narrows(last_.Filter, request.Filter) ? &rows_ : nullptr);
  }
  if (!rows || yielder.Stopped()) return;
  rows_ = *std::move(rows);
  last_.Filter = request.Filter;
  tell({.Source = source_, .Rows = rows_});
}

}  // namespace korv
