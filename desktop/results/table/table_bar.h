#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "desktop/desktop.h"
#include "report/columns/row_filter.h"

class QToolButton;

namespace korv {

class ElidingLabel;
class LimitsBar;
class MatchBar;

/// What stands above the table: the filter, how many phrases pass it, the menus, and the limits, which fold
/// away.
class TableBar final : public QWidget {
 public:
  TableBar(const Desktop& desktop, QWidget* parent);
  ~TableBar() override;

  MatchBar* Match = nullptr;
  ElidingLabel* lblPhraseCount = nullptr;
  LimitsBar* Limits = nullptr;
  QToolButton* cmdLimits = nullptr;
  QToolButton* cmdColumns = nullptr;
  QToolButton* cmdPresets = nullptr;
  QToolButton* cmdRowDetails = nullptr;

  std::function<void()> Typed = [] {};   ///< The filter has changed; more may follow at once.
  std::function<void()> Chosen = [] {};  ///< It has changed.

  RowFilter Filter() const;
  /// Whether all limits make sense.
  bool Check();
  /// Nothing is filtered any more. Tells nobody.
  void Clear();
  /// Only these limits hold. Tells nobody.
  void Limit(const std::vector<korv::Limit>& limits);
  std::vector<QWidget*> TabOrder() const;

  void cmdLimits_Click();

 private:
  QToolButton* MakeTool(const char* name, const char* caption, const char* tip);
  void SayHowManyLimits();

  bool telling_ = true;
};

}  // namespace korv
