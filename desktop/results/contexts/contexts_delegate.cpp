#include "desktop/results/contexts/contexts_delegate.h"

#include <QPainter>
#include <QTableView>

#include "desktop/results/contexts/contexts_model.h"

namespace korv {

void ContextsDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  RowDelegate::initStyleOption(option, index);
  if (index.column() == static_cast<int>(ContextColumn::Left)) option->textElideMode = Qt::ElideLeft;
}

void ContextsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  if (!index.data(ContextsModel::kIsHeading).toBool()) {
    RowDelegate::paint(painter, option, index);
    return;
  }
  // Each cell paints its part of the heading.
  QStyleOptionViewItem part = option;
  initStyleOption(&part, index);
  part.text.clear();
  const auto* view = static_cast<const QTableView*>(option.widget);
  view->style()->drawControl(QStyle::CE_ItemViewItem, &part, painter, view);
  const QRect row(0, option.rect.top(), view->viewport()->width(), option.rect.height());
  painter->save();
  painter->setClipRect(option.rect);
  painter->setFont(part.font);
  const bool selected = part.state.testFlag(QStyle::State_Selected);
  painter->setPen(part.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
  painter->drawText(row.adjusted(6, 0, -6, 0), Qt::AlignVCenter | Qt::AlignLeft,
                    index.siblingAtColumn(0).data().toString());
  painter->restore();
}

}  // namespace korv
