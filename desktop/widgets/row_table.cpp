#include "desktop/widgets/row_table.h"

#include <QHeaderView>
#include <algorithm>

namespace korv {

namespace {

/// More rows than these are selected by the flag: the toolkit takes some 0.1 s a million of them.
constexpr int kMostSelectedOneByOne = 100'000;

}  // namespace

RowTable::RowTable(QWidget* parent) : QTableView(parent) {
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setVerticalScrollMode(ScrollPerItem);
  // Rows of one height, so that the toolkit measures none of them.
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + 6);
  horizontalHeader()->setHighlightSections(false);
}

std::vector<RowRange> RowTable::SelectedRows() const {
  if (allSelected_) return {{0, model()->rowCount() - 1}};
  std::vector<RowRange> rows;
  for (const QItemSelectionRange& range : selectionModel()->selection())
    rows.push_back({range.top(), range.bottom()});
  std::ranges::sort(rows, {}, &RowRange::First);
  std::vector<RowRange> joined;
  for (const RowRange& range : rows) {
    if (!joined.empty() && range.First <= joined.back().Last + 1)
      joined.back().Last = std::max(joined.back().Last, range.Last);
    else
      joined.push_back(range);
  }
  return joined;
}

void RowTable::selectAll() {
  if (model()->rowCount() <= kMostSelectedOneByOne) return QTableView::selectAll();
  clearSelection();
  allSelected_ = true;
  viewport()->update();
  SelectionMoved();
}

void RowTable::reset() {
  allSelected_ = false;
  QTableView::reset();
}

void RowTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (allSelected_ && !selectionModel()->selection().isEmpty()) {
    allSelected_ = false;
    viewport()->update();
  }
  SelectionMoved();
}

void RowTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  SelectionMoved();
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (table_.IsAllSelected()) option->state |= QStyle::State_Selected;
}

}  // namespace korv
