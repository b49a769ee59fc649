#pragma once

#include "desktop/widgets/row_table.h"

namespace korv {

/// Paints the cells of a list of contexts: the left context cut at its left, and headings over all columns.
class ContextsDelegate final : public RowDelegate {
 public:
  using RowDelegate::RowDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace korv
