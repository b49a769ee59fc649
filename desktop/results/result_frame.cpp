#include "desktop/results/result_frame.h"

#include <QTabBar>
#include <QVBoxLayout>

#include "desktop/results/head_line.h"
#include "desktop/results/result_panel.h"
#include "desktop/results/run_tabs.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"

namespace korv {

ResultFrame::ResultFrame(const Desktop& desktop, const OutputBoxHooks& hooks, QWidget* parent)
    : QWidget(parent), desktop_(desktop) {
  auto* layout = Bare(new QVBoxLayout(this));
  Tabs = new RunTabs(this);
  Head = new HeadLine(this);
  Views = Described(Named(new QTabWidget(this), "tabViews"), "Views of the run");
  Views->setDocumentMode(true);
  Report = new ResultPanel(desktop, hooks, Views);
  Views->addTab(Report, QStringLiteral("Report"));
  Views->tabBar()->setAutoHide(true);
  layout->addWidget(Tabs);
  layout->addWidget(Head);
  layout->addWidget(Views, 1);
}

void ResultFrame::ShowRun(const std::shared_ptr<ShownResult>& result) {
  Head->ShowRun(result.get(), desktop_.Numbers);
}

std::vector<QWidget*> ResultFrame::TabOrder(QWidget* below) const {
  std::vector<QWidget*> order = {Tabs, Views->tabBar()};
  const std::vector<QWidget*> report = Report->TabOrder(below);
  order.insert(order.end(), report.begin(), report.end());
  return order;
}

}  // namespace korv
