#pragma once

#include <QStyledItemDelegate>
#include <QTableView>
#include <functional>
#include <vector>

#include "desktop/widgets/row_range.h"

namespace korv {

/// A table of rows that are selected whole, of which there may be millions.
///
/// Selecting all of many rows is kept as a flag, because the toolkit looks at every row of a selection. The
/// delegate of such a table is a RowDelegate, which knows the flag.
class RowTable : public QTableView {
 public:
  explicit RowTable(QWidget* parent);

  std::function<void()> SelectionMoved = [] {};  ///< Current or selected rows have changed.

  /// The selected rows from the top, adjoining ones in one range.
  std::vector<RowRange> SelectedRows() const;
  bool IsAllSelected() const { return allSelected_; }

  void selectAll() override;
  void reset() override;

 protected:
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  bool allSelected_ = false;
};

/// Paints the cells of a RowTable.
class RowDelegate : public QStyledItemDelegate {
 public:
  /// `table` outlives this, as its parent does.
  explicit RowDelegate(RowTable& table) : QStyledItemDelegate(&table), table_(table) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  const RowTable& table_;
};

}  // namespace korv
