#include "desktop/results/table/table_work.h"

#include <algorithm>
#include <span>
#include <utility>

#include "desktop/results/table/table_columns.h"
#include "report/columns/column_keys.h"

namespace korv {

namespace {

/// What has to be computed before the rows are known.
AnalysisNeeds NeedsOfRows(const TableRequest& request) {
  AnalysisNeeds needs = request.SortBy->Needs;
  for (const Limit& limit : request.Filter.Limits) needs |= limit.Of->Needs;
  return needs;
}

/// Those of the entries that pass but for the ones that are left out.
RowTest Without(RowTest passes, const std::vector<PhraseIndex>& leftOut) {
  if (leftOut.empty()) return passes;
  return [passes = std::move(passes), &leftOut](std::span<const PhraseIndex> entries, uint64_t candidates) {
    uint64_t passing = passes(entries, candidates);
    for (size_t k = 0; k < entries.size(); ++k)
      if (std::ranges::binary_search(leftOut, entries[k])) passing &= ~(uint64_t{1} << k);
    return passing;
  };
}

}  // namespace

void TableWork::Answer(const TableRequest& request, Yielder& yielder, const Tell& tell) {
  ForgetOtherParts(request.Parts);
  if (!Prepare(NeedsOfRows(request), request.Parts, yielder)) return;
  if (!Order(request, yielder) || !Filter(request, yielder, tell)) return;
  if (source_->Has(request.Shown)) return;
  if (Prepare(request.Shown, request.Parts, yielder)) tell({.Source = source_});
}

bool TableWork::Prepare(const AnalysisNeeds& needs, PartChoice parts, Yielder& yielder) {
  if (source_ == nullptr) source_ = TableSource::Of(run_, yielder);
  if (source_ == nullptr) return false;
  if (source_->Has(needs) && source_->Parts() == parts) return true;
  std::shared_ptr<const TableSource> prepared = source_->With(needs, parts, yielder);
  if (prepared == nullptr) return false;
  source_ = std::move(prepared);
  return true;
}

void TableWork::ForgetOtherParts(PartChoice parts) {
  if (source_ == nullptr || source_->Parts() == parts) return;
  orders_.ForgetParts();
  const bool filtered =
      std::ranges::any_of(last_.Filter.Limits, [](const Limit& limit) { return limit.Of->Needs.Parts; });
  if (filtered) {
    last_.Filter = {};
    last_.LeftOut.clear();
    rows_ = all_;
  }
  // The rows that are there are put into the new order.
  if (last_.SortBy != nullptr && last_.SortBy->Needs.Parts) all_ = {};
}

bool TableWork::Order(const TableRequest& request, Yielder& yielder) {
  const bool sameColumn = all_.Order() && last_.SortBy == request.SortBy;
  if (sameColumn && last_.Direction == request.Direction) return true;
  const SharedOrder order = sameColumn ? Reversed(*all_.Order(), yielder) : NewOrder(request, yielder);
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

SharedOrder TableWork::NewOrder(const TableRequest& request, Yielder& yielder) {
  const ColumnSource view = source_->View();
  if (!IsComputed(*request.SortBy)) return OrderByColumn(*request.SortBy, request.Direction, view, yielder);
  SharedOrder order = orders_.Ascending(*request.SortBy, view, yielder);
  return order && request.Direction == SortDirection::Descending ? Reversed(*order, yielder) : order;
}

bool TableWork::Filter(const TableRequest& request, Yielder& yielder, const Tell& tell) {
  const bool sameLeftOut = request.LeftOut == last_.LeftOut;
  if (sameLeftOut && request.Filter == last_.Filter) {
    tell({.Source = source_, .Rows = rows_});
    return true;
  }
  const ColumnSource view = source_->View();
  const bool narrows = sameLeftOut && Narrows(last_.Filter, request.Filter);
  auto passes = orders_.Compile(request.Filter, view, !narrows, yielder);
  if (!passes) {
    tell({.Source = source_, .Rows = rows_, .Fault = passes.Error()});
    return true;
  }
  std::optional<PhraseList> rows = all_;
  if (!PassesAll(request.Filter) || !request.LeftOut.empty()) {
    rows = FilterRows(
        source_->Table(), all_.Order(), Without(*std::move(passes), request.LeftOut), yielder,
        [&](const PhraseList& found, uint32_t) { tell({.Source = source_, .Rows = found, .Whole = false}); },
        narrows ? &rows_ : nullptr);
  }
  if (!rows || yielder.Stopped()) return false;
  rows_ = *std::move(rows);
  last_.Filter = request.Filter;
  last_.LeftOut = request.LeftOut;
  tell({.Source = source_, .Rows = rows_});
  return true;
}

}  // namespace korv
