#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace korv {

/// In place of the rows where there are none: why, and the way out where there is one.
class EmptyTableNote final : public QWidget {
 public:
  explicit EmptyTableNote(QWidget* parent);

  QLabel* lblEmptyTable = nullptr;
  QPushButton* cmdClearMatch = nullptr;

  enum class Reason { NoRun, NothingListed, NothingPasses, NothingInTab };
  void Say(Reason reason);
};

}  // namespace korv
