#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "desktop/widgets/row_table.h"

namespace korv {

class ContextsModel;

/// The table of a list of contexts.
class ContextsTable final : public RowTable {
 public:
  /// `model` outlives the table.
  ContextsTable(ContextsModel& model, QWidget* parent);

  std::function<void()> SightChanged = [] {};  ///< Other rows may be in sight.
  std::function<void()> Focused = [] {};       ///< It has got the focus.

  /// The first and the last row in sight; nothing where there is none.
  std::optional<std::pair<int, int>> RowsInSight() const;
  /// Makes room for the phrase, which is about so wide as this text.
  void FitPhrase(const QString& phrase);
  /// Selects one row and brings it into sight.
  void GoTo(int row);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
};

}  // namespace korv
