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
  needs.Sides = needs.Sides || request.Tab.has_value();
  return needs;
}

/// Those of the entries that pass and stand in the tab.
RowTest InTab(RowTest passes, const std::optional<KeyTab>& tab, const std::shared_ptr<const KeyTabs>& tabs) {
  if (!tab) return passes;
  return [passes = std::move(passes), which = tab->Which, tabs](std::span<const PhraseIndex> entries,
                                                                uint64_t candidates) {
    uint64_t within = candidates;
    for (size_t k = 0; k < entries.size(); ++k)
      if (!tabs->Holds(which, entries[k])) within &= ~(uint64_t{1} << k);
    return within == 0 ? 0 : passes(entries, within);
  };
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
  ForgetOtherValues(request.Values);
  if (!Prepare(NeedsOfRows(request), request.Values, yielder)) return;
  if (!Order(request, yielder) || !SortOut(request, yielder) || !Filter(request, yielder, tell)) return;
  if (source_->Has(request.Shown)) return;
  if (Prepare(request.Shown, request.Values, yielder)) tell({.Source = source_});
}

bool TableWork::Prepare(const AnalysisNeeds& needs, const ValueChoice& choice, Yielder& yielder) {
  if (source_ == nullptr) source_ = TableSource::Of(run_, yielder);
  if (source_ == nullptr) return false;
  if (source_->Has(needs) && source_->Choice() == choice) return true;
  std::shared_ptr<const TableSource> prepared = source_->With(needs, choice, yielder);
  if (prepared == nullptr) return false;
  source_ = std::move(prepared);
  return true;
}

void TableWork::ForgetOtherValues(const ValueChoice& choice) {
  if (source_ == nullptr || source_->Choice() == choice) return;
  const bool otherParts = source_->Choice().Parts != choice.Parts;
  const bool otherSides = source_->Choice().ComparedBy != choice.ComparedBy ||
                          source_->Choice().SimpleMathsK != choice.SimpleMathsK;
  const auto changed = [&](const Column& column) {
    return (otherParts && (column.Needs.Parts || column.Needs.SideParts)) ||
           (otherSides && column.Needs.Sides);
  };
  orders_.Forget(changed);
  if (otherSides) tabs_ = nullptr;
  const bool filtered =
      std::ranges::any_of(last_.Filter.Limits, [&](const Limit& limit) { return changed(*limit.Of); });
  if (filtered || (otherSides && last_.Tab)) FilterAnew();
  // The rows that are there are put into the new order.
  if (last_.SortBy != nullptr && changed(*last_.SortBy)) all_ = {};
}

void TableWork::FilterAnew() {
  last_.Filter = {};
  last_.LeftOut.clear();
  last_.Tab.reset();
  rows_ = all_;
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

bool TableWork::SortOut(const TableRequest& request, Yielder& yielder) {
  if (!request.Tab || (tabs_ && tabs_->Serve(*request.Tab))) return true;
  tabs_ = KeyTabs::Of(*source_, all_.Order(), *request.Tab, yielder);
  return tabs_ != nullptr;
}

bool TableWork::Filter(const TableRequest& request, Yielder& yielder, const Tell& tell) {
  const auto answer = [&](const PhraseList& rows, std::string fault = {}) {
    tell({.Source = source_, .Rows = rows, .Fault = std::move(fault), .Tabs = request.Tab ? tabs_ : nullptr});
    return true;
  };
  const bool samePhrases = request.LeftOut == last_.LeftOut && request.Tab == last_.Tab;
  if (samePhrases && request.Filter == last_.Filter) return answer(rows_);
  const ColumnSource view = source_->View();
  const bool narrows = request.LeftOut == last_.LeftOut && (!last_.Tab || request.Tab == last_.Tab) &&
                       Narrows(last_.Filter, request.Filter);
  RowFilter filter = request.Filter;
  std::string fault;
  auto passes = orders_.Compile(filter, view, !narrows, yielder);
  if (!passes) {
    if (samePhrases) return answer(rows_, passes.Error());
    // Another tab shows its phrases by the last filter that made sense.
    fault = passes.Error();
    filter = last_.Filter;
    passes = orders_.Compile(filter, view, true, yielder);
    if (!passes) return false;
  }
  std::optional<PhraseList> rows = all_;
  if (!PassesAll(filter) || !request.LeftOut.empty() || request.Tab) {
    const RowTest inTab = InTab(*std::move(passes), request.Tab, tabs_);
    rows = FilterRows(
        source_->Table(), all_.Order(), Without(inTab, request.LeftOut), yielder,
        [&](const PhraseList& found, uint32_t) {
          tell({.Source = source_, .Rows = found, .Whole = false, .Tabs = request.Tab ? tabs_ : nullptr});
        },
        narrows && fault.empty() ? &rows_ : nullptr);
  }
  if (!rows || yielder.Stopped()) return false;
  rows_ = *std::move(rows);
  last_.Filter = std::move(filter);
  last_.LeftOut = request.LeftOut;
  last_.Tab = request.Tab;
  return answer(rows_, std::move(fault));
}

}  // namespace korv
