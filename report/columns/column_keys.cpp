#include "report/columns/column_keys.h"

#include <algorithm>
#include <limits>

#include "base/workers.h"
#include "report/look_ahead.h"

namespace korv {

namespace {

constexpr double kUndefined = std::numeric_limits<double>::quiet_NaN();
constexpr size_t kEntriesOfTask = 16'384;

}  // namespace

bool HasKeys(const Column& column) {
  return column.Type == ColumnType::Text ? column.OrderKey != nullptr : column.Value != nullptr;
}

SortDirection UsualDirection(const Column& column) {
  return column.Type == ColumnType::Text ? SortDirection::Ascending : SortDirection::Descending;
}

ColumnKeys::ColumnKeys(const Column& column, const ColumnSource& source)
    : column_(column), source_(source), cells_(std::array{&column}, source) {}

double ColumnKeys::Of(PhraseIndex entry) {
  if (column_.OrderKey != nullptr) return column_.OrderKey(source_, entry);
  const Cell& cell = cells_.Cells(entry, {}).OfPhrase.front();
  if (const auto* whole = std::get_if<int64_t>(&cell)) return static_cast<double>(*whole);
  const auto* real = std::get_if<double>(&cell);
  return real != nullptr ? *real : kUndefined;
}

std::vector<double> KeysOfColumn(const Column& column, const ColumnSource& source, Yielder& yielder) {
  const PhraseTable& table = source.Table;
  const uint32_t entries = table.EntryCount();
  std::vector<double> keys(size_t{entries} + 1, kUndefined);
  const size_t tasks = (size_t{entries} + kEntriesOfTask - 1) / kEntriesOfTask;
  const bool finished = RunTasks(tasks, tasks <= 1, yielder, [&](size_t task, size_t) {
    ColumnKeys ofColumn(column, source);
    const auto begin = static_cast<uint32_t>(task * kEntriesOfTask + 1);
    const auto end = static_cast<uint32_t>(std::min<size_t>(entries + size_t{1}, begin + kEntriesOfTask));
    for (PhraseIndex i{begin}; ValueOf(i) < end && !yielder.Stopped(); ++i) {
      table.Prefetch(i + kLookAhead, i + 2 * kLookAhead);
      if (table.Listed(i)) keys[ValueOf(i)] = ofColumn.Of(i);
    }
  });
  return finished ? std::move(keys) : std::vector<double>();
}

SharedOrder OrderByColumn(const Column& column, SortDirection direction, const ColumnSource& source,
                          Yielder& yielder) {
  // The two orders that are wanted most often need no keys.
  if (column.Id == "phrase") return OrderByPhrase(source.Table, direction, yielder);
  if (column.Id == "frequency") return OrderByCount(source.Table, direction, yielder);
  const std::vector<double> keys = KeysOfColumn(column, source, yielder);
  return keys.empty() ? nullptr : OrderByKeys(source.Table, keys, direction, yielder);
}

}  // namespace korv
