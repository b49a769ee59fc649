#include "desktop/results/table/phrase_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <utility>

namespace korv {

namespace {

/// More rows than these are selected by the flag: the toolkit takes some 0.1 s a million of them.
constexpr int kMostSelectedOneByOne = 100'000;

class RowDelegate final : public QStyledItemDelegate {
 public:
  RowDelegate(const PhraseGrid& grid, QObject* parent) : QStyledItemDelegate(parent), grid_(grid) {}

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (grid_.IsAllSelected()) option->state |= QStyle::State_Selected;
  }

 private:
  const PhraseGrid& grid_;
};

}  // namespace

PhraseGrid::PhraseGrid(PhraseTableModel& model, QWidget* parent) : QTableView(parent), model_(model) {
  setModel(&model);
  setItemDelegate(new RowDelegate(*this, this));
  setSelectionBehavior(SelectRows);
  setSelectionMode(ExtendedSelection);
  setEditTriggers(NoEditTriggers);
  setAlternatingRowColors(true);
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setVerticalScrollMode(ScrollPerItem);
  setHorizontalScrollMode(ScrollPerPixel);
  setContextMenuPolicy(Qt::CustomContextMenu);
  // Rows of one height, so that the toolkit measures none of them.
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setSectionsMovable(true);
  horizontalHeader()->setSectionsClickable(true);
  horizontalHeader()->setHighlightSections(false);
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

std::vector<RowRange> PhraseGrid::SelectedRows() const {
  std::vector<RowRange> rows;
  if (allSelected_) return {{0, model_.rowCount() - 1}};
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

PhraseIndex PhraseGrid::CurrentPhrase() const {
  const QModelIndex current = currentIndex();
  const bool selected = allSelected_ || (current.isValid() && selectionModel()->isSelected(current));
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

void PhraseGrid::selectAll() {
  if (model_.rowCount() <= kMostSelectedOneByOne) return QTableView::selectAll();
  clearSelection();
  allSelected_ = true;
  viewport()->update();
  SelectionMoved();
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

void PhraseGrid::reset() {
  allSelected_ = false;
  QTableView::reset();
}

void PhraseGrid::keyPressEvent(QKeyEvent* event) {
  const bool copy = event->modifiers().testFlag(Qt::ControlModifier) && event->key() == Qt::Key_C;
  if (copy) return CopyAsked(!event->modifiers().testFlag(Qt::ShiftModifier));
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter || event->key() == Qt::Key_F4) return OpenCurrent();
  QTableView::keyPressEvent(event);
}

QModelIndex PhraseGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (model_.rowCount() > 0 && (action == MoveHome || action == MoveEnd)) {
    return model_.index(action == MoveHome ? 0 : model_.rowCount() - 1, CurrentColumn());
  }
  return QTableView::moveCursor(action, modifiers);
}

void PhraseGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  if (!selected.isEmpty()) lost_ = kNoPhrase;
  if (allSelected_ && !selectionModel()->selection().isEmpty()) {
    allSelected_ = false;
    viewport()->update();
  }
  SelectionMoved();
}

void PhraseGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  SelectionMoved();
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
