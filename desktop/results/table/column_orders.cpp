#include "desktop/results/table/column_orders.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>

#include "desktop/results/table/table_columns.h"
#include "report/columns/column_keys.h"

namespace korv {

namespace {

/// A bit for each entry.
using EntrySet = std::vector<bool>;

/// The phrases within a limit: neighbours in the order of its column. The ends are found by comparing some of
/// the values.
EntrySet EntriesWithin(const Limit& limit, const PhraseOrder& ascending, const ColumnSource& source) {
  ColumnKeys keys(*limit.Of, source);
  auto begin = ascending.Entries.begin();
  auto end = ascending.Entries.end() - ascending.Undefined;
  if (limit.Least)
    begin = std::partition_point(begin, end, [&](PhraseIndex i) { return keys.Of(i) < *limit.Least; });
  if (limit.Most)
    end = std::partition_point(begin, end, [&](PhraseIndex i) { return keys.Of(i) <= *limit.Most; });
  EntrySet entries(size_t{source.Table.EntryCount()} + 1);
  for (; begin != end; ++begin) entries[ValueOf(*begin)] = true;
  return entries;
}

RowTest AllOf(RowTest first, std::vector<EntrySet> sets) {
  if (sets.empty()) return first;
  return [first = std::move(first), sets = std::make_shared<const std::vector<EntrySet>>(std::move(sets))](
             std::span<const PhraseIndex> entries, uint64_t candidates) {
    uint64_t passing = candidates;
    for (const EntrySet& set : *sets)
      for (uint64_t left = passing; left != 0; left &= left - 1) {
        const int k = std::countr_zero(left);
        if (!set[ValueOf(entries[static_cast<size_t>(k)])]) passing &= ~(uint64_t{1} << k);
      }
    return passing == 0 ? 0 : first(entries, passing);
  };
}

}  // namespace

SharedOrder ColumnOrders::Find(const Column& column) {
  const auto found = std::ranges::find(kept_, &column, &Kept::Of);
  if (found == kept_.end()) return nullptr;
  std::rotate(kept_.begin(), found, found + 1);
  return kept_.front().Order;
}

SharedOrder ColumnOrders::Ascending(const Column& column, const ColumnSource& source, Yielder& yielder) {
  if (SharedOrder kept = Find(column)) return kept;
  SharedOrder order = OrderByColumn(column, SortDirection::Ascending, source, yielder);
  if (order == nullptr) return nullptr;
  if (kept_.size() == kMostKept) kept_.pop_back();
  kept_.insert(kept_.begin(), {&column, order});
  return order;
}

Expected<RowTest, std::string> ColumnOrders::Compile(const RowFilter& filter, const ColumnSource& source,
                                                     bool makeOrders, Yielder& yielder) {
  RowFilter rest{.Query = filter.Query, .Limits = {}};
  std::vector<EntrySet> sets;
  for (const Limit& limit : filter.Limits) {
    SharedOrder order;
    if (IsComputed(*limit.Of)) order = makeOrders ? Ascending(*limit.Of, source, yielder) : Find(*limit.Of);
    if (order != nullptr)
      sets.push_back(EntriesWithin(limit, *order, source));
    else
      rest.Limits.push_back(limit);
  }
  auto passes = CompileFilter(rest, source, yielder);
  if (!passes) return passes.Error();
  return AllOf(*std::move(passes), std::move(sets));
}

void ColumnOrders::Forget(const std::function<bool(const Column&)>& changed) {
  std::erase_if(kept_, [&](const Kept& kept) { return changed(*kept.Of); });
}

}  // namespace korv
