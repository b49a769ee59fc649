#include "desktop/results/table/phrase_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace korv {

PhraseGrid::PhraseGrid(PhraseTableModel& model, QWidget* parent) : RowTable(parent), model_(model) {
  setModel(&model);
  setItemDelegate(new RowDelegate(*this));
  setHorizontalScrollMode(ScrollPerPixel);
  setContextMenuPolicy(Qt::CustomContextMenu);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setSectionsMovable(true);
  horizontalHeader()->setSectionsClickable(true);
  horizontalHeader()->setSortIndicatorShown(true);
  horizontalHeader()->setMinimumSectionSize(3 * fontMetrics().averageCharWidth());
  connect(this, &QAbstractItemView::doubleClicked, this, [this] { OpenCurrent(); });
}

void PhraseGrid::Show(std::shared_ptr<const TableSource> source, PhraseList rows) {
  const bool sameRun =
      source != nullptr && model_.Source() != nullptr && &source->Table() == &model_.Source()->Table();
  const PhraseIndex current = sameRun ? CurrentPhrase() : kNoPhrase;
  const PhraseIndex phrase = current != kNoPhrase || !sameRun ? current : lost_;
  const int top = verticalScrollBar()->value();
  const int height = current == kNoPhrase ? -1 : currentIndex().row() - top;
  const bool inSight = height >= 0 && height < viewport()->height() / verticalHeader()->defaultSectionSize();
  model_.Show(std::move(source), std::move(rows));
  executeDelayedItemsLayout();
  if (sameRun)
    verticalScrollBar()->setValue(top);
  else
    scrollToTop();
  const std::optional<uint32_t> row = phrase == kNoPhrase ? std::nullopt : model_.Rows().RowOf(phrase);
  lost_ = row ? kNoPhrase : phrase;
  if (!row) return SelectionMoved();
  GoTo(static_cast<int>(*row));
  if (inSight) verticalScrollBar()->setValue(static_cast<int>(*row) - height);
}

PhraseIndex PhraseGrid::CurrentPhrase() const {
  const QModelIndex current = currentIndex();
  const bool selected = IsAllSelected() || (current.isValid() && selectionModel()->isSelected(current));
  return current.isValid() && selected ? model_.EntryAt(current.row()) : kNoPhrase;
}

std::vector<PhraseIndex> PhraseGrid::SelectedPhrases(size_t most) const {
  std::vector<PhraseIndex> phrases;
  for (const RowRange& range : SelectedRows())
    for (int row = range.First; row <= range.Last && phrases.size() < most; ++row)
      phrases.push_back(model_.EntryAt(row));
  return phrases;
}

void PhraseGrid::GoTo(int row) {
  const QModelIndex index = model_.index(row, CurrentColumn());
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(index);
}

void PhraseGrid::keyboardSearch(const QString& search) {
  const bool goesOn =
      sinceLastKey_.isValid() && sinceLastKey_.elapsed() < QApplication::keyboardInputInterval();
  typed_ = goesOn ? typed_ + search : search;
  sinceLastKey_.restart();
  // A blank alone finds nothing; it may go on with what was typed.
  if (typed_.trimmed().isEmpty() || model_.rowCount() == 0) return;
  const int current = currentIndex().isValid() ? currentIndex().row() : -1;
  // The first key goes on from the row below, the next ones may stay.
  const int found = Find(goesOn ? std::max(current, 0) : current + 1, typed_);
  if (found >= 0) GoTo(found);
}

void PhraseGrid::keyPressEvent(QKeyEvent* event) {
  const bool copy = event->modifiers().testFlag(Qt::ControlModifier) && event->key() == Qt::Key_C;
  if (copy) return CopyAsked(!event->modifiers().testFlag(Qt::ShiftModifier));
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter || event->key() == Qt::Key_F4) return OpenCurrent();
  RowTable::keyPressEvent(event);
}

QModelIndex PhraseGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (model_.rowCount() > 0 && (action == MoveHome || action == MoveEnd)) {
    return model_.index(action == MoveHome ? 0 : model_.rowCount() - 1, CurrentColumn());
  }
  return RowTable::moveCursor(action, modifiers);
}

void PhraseGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  if (!selected.isEmpty()) lost_ = kNoPhrase;
  RowTable::selectionChanged(selected, deselected);
}

int PhraseGrid::CurrentColumn() const {
  const QHeaderView& header = *horizontalHeader();
  if (currentIndex().isValid() && !header.isSectionHidden(currentIndex().column()))
    return currentIndex().column();
  int visual = 0;
  while (visual + 1 < header.count() && header.isSectionHidden(header.logicalIndex(visual))) ++visual;
  return header.logicalIndex(visual);
}

void PhraseGrid::OpenCurrent() {
  const PhraseIndex phrase = CurrentPhrase();
  if (phrase != kNoPhrase) Opened(phrase);
}

}  // namespace korv
