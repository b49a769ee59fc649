#include "desktop/results/contexts/contexts_table.h"

#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

#include "base/translation.h"
#include "desktop/results/contexts/contexts_delegate.h"
#include "desktop/results/contexts/contexts_model.h"
#include "desktop/widgets/control_factory.h"

namespace korv {

ContextsTable::ContextsTable(ContextsModel& model, QWidget* parent) : RowTable(parent) {
  Described(Named(this, "tblContexts"), Tr("Contexts"));
  setModel(&model);
  setItemDelegate(new ContextsDelegate(*this));
  QHeaderView& columns = *horizontalHeader();
  columns.setMinimumSectionSize(40);
  columns.setSectionResizeMode(QHeaderView::Interactive);
  for (const ContextColumn column : {ContextColumn::Left, ContextColumn::Right})
    columns.setSectionResizeMode(static_cast<int>(column), QHeaderView::Stretch);
  columns.resizeSection(static_cast<int>(ContextColumn::Place), fontMetrics().averageCharWidth() * 24);
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { SightChanged(); });
}

std::optional<std::pair<int, int>> ContextsTable::RowsInSight() const {
  const int rows = model()->rowCount();
  const int first = rowAt(0);
  if (rows == 0 || first < 0) return std::nullopt;
  const int last = rowAt(viewport()->height() - 1);
  return std::pair(first, last < 0 ? rows - 1 : last);
}

void ContextsTable::FitPhrase(const QString& phrase) {
  QFont bold = font();
  bold.setBold(true);
  const int wanted = QFontMetrics(bold).horizontalAdvance(phrase.left(200)) + 24;
  horizontalHeader()->resizeSection(static_cast<int>(ContextColumn::Phrase),
                                    std::clamp(wanted, 80, std::max(80, viewport()->width() / 3)));
}

void ContextsTable::GoTo(int row) {
  selectRow(row);
  scrollTo(model()->index(row, 0));
}

void ContextsTable::resizeEvent(QResizeEvent* event) {
  RowTable::resizeEvent(event);
  SightChanged();
}

void ContextsTable::showEvent(QShowEvent* event) {
  RowTable::showEvent(event);
  SightChanged();
}

void ContextsTable::focusInEvent(QFocusEvent* event) {
  RowTable::focusInEvent(event);
  Focused();
}

}  // namespace korv
