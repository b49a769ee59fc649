#pragma once

#include <QTabWidget>
#include <QWidget>
#include <memory>

#include "app/run/output_box.h"
#include "app/run/shown_result.h"
#include "desktop/desktop.h"

namespace korv {

class HeadLine;
class ResultPanel;
class RunTabs;

/// All that is shown of the finished runs: their tabs, and of the one in front a line of what it is and its
/// views. Before the first run only the text box is there, which says how to begin.
class ResultFrame final : public QWidget {
 public:
  ResultFrame(const Desktop& desktop, const OutputBoxHooks& hooks, QWidget* parent);

  RunTabs* Tabs = nullptr;
  HeadLine* Head = nullptr;
  QTabWidget* Views = nullptr;
  ResultPanel* Report = nullptr;

  /// Brings `result` into all views; null for none.
  void ShowRun(const std::shared_ptr<ShownResult>& result);
  std::vector<QWidget*> TabOrder(QWidget* below) const;

 private:
  const Desktop& desktop_;
};

}  // namespace korv
