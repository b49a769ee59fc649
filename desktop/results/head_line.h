#pragma once

#include <QLabel>
#include <QWidget>

#include "app/run/shown_result.h"
#include "base/number_format.h"

namespace korv {

class ChipRow;
class ElidingLabel;

/// One line above the views that says which run it is and what restricts it; below it, of a run that
/// compares, the rules of both sides and what to think of the test.
class HeadLine final : public QWidget {
 public:
  explicit HeadLine(QWidget* parent);

  ElidingLabel* lblHeadLine = nullptr;
  ChipRow* Chips = nullptr;
  ElidingLabel* lblBothSides = nullptr;
  QLabel* lblComparisonNote = nullptr;

  /// Null hides the line.
  void ShowRun(const ShownResult* result, const NumberFormat& numbers);
};

}  // namespace korv
