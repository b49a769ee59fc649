#pragma once

#include <QElapsedTimer>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/results/table/phrase_table_model.h"
#include "desktop/widgets/row_table.h"

namespace korv {

/// The table itself: keys work as in a list, and typing jumps to a phrase.
class PhraseGrid final : public RowTable {
 public:
  PhraseGrid(PhraseTableModel& model, QWidget* parent);

  std::function<void(PhraseIndex)> Opened = [](PhraseIndex) {};  ///< Enter, F4 or a double click.
  std::function<void(bool)> CopyAsked = [](bool) {};             ///< With the heading or without.
  /// The row to go to when `typed` was typed in row `from`, which may itself be meant; -1 for none.
  std::function<int(int from, const QString& typed)> Find = [](int, const QString&) { return -1; };

  /// Shows these rows. The current phrase stays current where it is among them, at the same height.
  void Show(std::shared_ptr<const TableSource> source, PhraseList rows);
  /// The phrase that the keys act on; kNoPhrase when no row is selected.
  PhraseIndex CurrentPhrase() const;
  /// Those of the selected rows, from the top, but no more than `most`.
  std::vector<PhraseIndex> SelectedPhrases(size_t most) const;
  /// Selects the row, and scrolls to it where it is not in sight.
  void GoTo(int row);

  void keyboardSearch(const QString& search) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void OpenCurrent();
  /// The column of the current cell, or the first one in sight.
  int CurrentColumn() const;

  PhraseTableModel& model_;
  PhraseIndex lost_ = kNoPhrase;  ///< The current phrase before a filter hid it.
  QString typed_;                 ///< By keys that followed each other at once.
  QElapsedTimer sinceLastKey_;
};

}  // namespace korv
