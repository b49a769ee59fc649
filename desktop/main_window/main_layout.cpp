#include "desktop/main_window/main_layout.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "desktop/main_window/compare_panel.h"
#include "desktop/main_window/output_file_panel.h"
#include "desktop/main_window/phrases_panel.h"
#include "desktop/main_window/report_panel.h"
#include "desktop/main_window/run_panel.h"
#include "desktop/main_window/source_panel.h"
#include "desktop/main_window/source_surveyor.h"
#include "desktop/main_window/status_line.h"
#include "desktop/main_window/words_to_ignore_panel.h"
#include "desktop/results/result_frame.h"
#include "desktop/results/result_panel.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/scroll_column.h"

namespace korv {
namespace {

constexpr int kColumnWidth = 360;

QWidget* MakeGroups(MainPanels& panels, const Desktop& desktop, Workspace& work, QWidget* parent) {
  auto* groups = new QWidget(parent);
  panels.Source = new SourcePanel(desktop, groups);
  panels.Compare = new ComparePanel(desktop, work, *panels.Source, groups);
  panels.Phrases = new PhrasesPanel(groups);
  panels.WordsToIgnore = new WordsToIgnorePanel(desktop, groups);
  auto* stack = Bare(new QVBoxLayout(groups));
  // Groups have air of their own.
  stack->setSpacing(2);
  stack->addWidget(panels.Source, 1);
  stack->addWidget(panels.Compare);
  stack->addWidget(panels.Phrases);
  stack->addWidget(panels.WordsToIgnore);
  return groups;
}

/// What says how the report is listed and where it goes.
QWidget* MakeReportOptions(MainPanels& panels, const Desktop& desktop, Workspace& work, QWidget* parent) {
  auto* options = Named(new QWidget(parent), "fraReportOptions");
  panels.Report = new ReportPanel(desktop, work, options);
  panels.OutputFile = new OutputFilePanel(desktop, options);
  auto* stack = Tight(new QVBoxLayout(options), QMargins(0, 4, 0, 4));
  stack->addWidget(panels.Report);
  stack->addWidget(panels.OutputFile);
  return options;
}

QWidget* MakeColumn(MainPanels& panels, const Desktop& desktop, Workspace& work, QWidget* parent) {
  auto* column = new QWidget(parent);
  auto* layout = Bare(new QVBoxLayout(column));
  // On a low screen the groups scroll; the count button below them does not.
  auto* scroll = Named(new ScrollColumn(column), "scrOptions");
  QWidget* groups = MakeGroups(panels, desktop, work, scroll);
  scroll->setWidget(groups);
  // The width that the groups need, and room for the scroll bar beside them.
  const int bar = scroll->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, scroll);
  column->setFixedWidth(std::max(kColumnWidth, groups->minimumSizeHint().width()) + bar);
  panels.Compare->hide();
  layout->addWidget(scroll, 1);
  panels.Run = new RunPanel(desktop, column);
  layout->addWidget(panels.Run);
  return column;
}

void SetTabOrder(const MainPanels& panels) {
  std::vector<QWidget*> order;
  std::vector<QWidget*> options = panels.Report->TabOrder();
  const std::vector<QWidget*> file = panels.OutputFile->TabOrder();
  options.insert(options.end(), file.begin(), file.end());
  for (const auto& part : {panels.Source->TabOrder(), panels.Compare->TabOrder(), panels.Phrases->TabOrder(),
                           panels.WordsToIgnore->TabOrder(), panels.Run->TabOrder(),
                           panels.Frame->TabOrder(options, panels.Report->chkSortByNumberOfFiles)}) {
    order.insert(order.end(), part.begin(), part.end());
  }
  for (size_t i = 1; i < order.size(); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}

}  // namespace

MainPanels LayOutPanels(QMainWindow& window, const Desktop& desktop, Workspace& work,
                        const OutputBoxHooks& hooks) {
  MainPanels panels;
  auto* centre = new QWidget(&window);
  auto* row = new QHBoxLayout(centre);
  row->setContentsMargins(8, 4, 8, 2);
  row->setSpacing(10);
  panels.Column = Named(MakeColumn(panels, desktop, work, centre), "fraColumn");
  row->addWidget(panels.Column);
  panels.Frame = new ResultFrame(desktop, hooks, centre);
  panels.Result = panels.Frame->Report;
  panels.Result->AddOptions(MakeReportOptions(panels, desktop, work, panels.Result));
  panels.Result->AddBelow(panels.Report->chkSortByNumberOfFiles);
  row->addWidget(panels.Frame, 1);
  window.setCentralWidget(centre);
  panels.Surveyor = new SourceSurveyor(desktop, work, *panels.Source);
  panels.Status = new StatusLine(desktop.Numbers, &window);
  window.setStatusBar(panels.Status);
  SetTabOrder(panels);
  return panels;
}

}  // namespace korv
