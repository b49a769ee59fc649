#include "desktop/results/result_frame.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSettings>
#include <QSpinBox>
#include <QSplitter>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "base/translation.h"
#include "desktop/results/contexts/contexts_pane.h"
#include "desktop/results/contexts/contexts_table.h"
#include "desktop/results/filter_panel.h"
#include "desktop/results/head_line.h"
#include "desktop/results/pictures/picture_canvas.h"
#include "desktop/results/pictures/pictures_pane.h"
#include "desktop/results/result_notes_panel.h"
#include "desktop/results/result_panel.h"
#include "desktop/results/run_tabs.h"
#include "desktop/results/table/comparison_bar.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_panel.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"

namespace korv {
namespace {

constexpr char kTableLayout[] = "layout/table";
constexpr char kReportOptions[] = "layout/report_options";

}  // namespace

ResultFrame::ResultFrame(const Desktop& desktop, const OutputBoxHooks& hooks, QWidget* parent)
    : QWidget(parent), desktop_(desktop) {
  auto* layout = Bare(new QVBoxLayout(this));
  Tabs = new RunTabs(this);
  Head = new HeadLine(this);
  Notes = Named(new ResultNotesPanel(this), "notes");
  Views = Described(Named(new QTabWidget(this), "tabViews"), Tr("Views of the run"));
  Views->setDocumentMode(true);
  Report = new ResultPanel(desktop, hooks, Views);
  Views->addTab(MakeTable(), Tr("Table"));
  Views->addTab(Report, Tr("Report"));
  Pictures = new PicturesPane(desktop, Views);
  Views->addTab(Pictures, Tr("Pictures"));
  Pictures->PhrasePicked = [this](PhraseIndex phrase) { return Table->GoTo(phrase); };
  MakeOptionsButton();
  layout->addWidget(Tabs);
  layout->addWidget(Head);
  layout->addWidget(Notes);
  layout->addWidget(Views, 1);
  connect(Views, &QTabWidget::tabBarClicked, this, [this](int index) { chosen_ = RunView{index}; });
  ShowRun(nullptr);
  connect(Views, &QTabWidget::currentChanged, this, [this] {
    ShowReportOptions();
    PictureSelected();
    ViewChanged();
  });
}

QSize ResultFrame::minimumSizeHint() const {
  // Notes take a second and a third line in a narrow window, which the layout does not foresee.
  constexpr int kFurtherLines = 3;
  const QSize least = QWidget::minimumSizeHint();
  return {least.width(), least.height() + kFurtherLines * fontMetrics().lineSpacing()};
}

void ResultFrame::MakeOptionsButton() {
  cmdReportOptions = Named(new QToolButton(Views), "cmdReportOptions");
  cmdReportOptions->setText(Tr("Report options"));
  cmdReportOptions->setToolTip(Tr("Show or fold away order, format and output file of the report"));
  cmdReportOptions->setCheckable(true);
  cmdReportOptions->setFocusPolicy(Qt::StrongFocus);
  cmdReportOptions->setAutoRaise(true);
  cmdReportOptions->setChecked(desktop_.Store.value(QLatin1String(kReportOptions), true).toBool());
  connect(cmdReportOptions, &QToolButton::toggled, this, [this] { ShowReportOptions(); });
}

void ResultFrame::ShowReportOptions() {
  const bool tabs = Views->tabBar()->isVisibleTo(Views);
  // A corner that is only hidden leaves a line behind.
  Views->setCornerWidget(tabs && View() == RunView::Report ? cmdReportOptions : nullptr);
  cmdReportOptions->setVisible(tabs && View() == RunView::Report);
  Report->ShowOptions(!tabs || cmdReportOptions->isChecked());
}

QWidget* ResultFrame::MakeTable() {
  splTable = Named(new QSplitter(Qt::Vertical, Views), "splTable");
  Table = new PhraseTablePanel(desktop_, splTable);
  Contexts = new ContextsPane(desktop_, splTable);
  splTable->setStretchFactor(0, 3);
  splTable->setStretchFactor(1, 2);
  splTable->setCollapsible(0, false);
  splTable->restoreState(desktop_.Store.value(QLatin1String(kTableLayout)).toByteArray());
  Table->ShowContexts = [this](PhraseIndex phrase) {
    ShowContexts();
    Contexts->ShowPhrase(phrase);
  };
  Table->Actions.ShowWhy = [this](PhraseIndex phrase) {
    ShowContexts();
    Contexts->ShowPhrase(phrase);
    Contexts->ShowWhy();
  };
  return splTable;
}

void ResultFrame::ShowContexts() {
  const QList<int> heights = splTable->sizes();
  // The user may have folded them away.
  if (heights[1] == 0) splTable->setSizes({heights[0] * 3, heights[0] * 2});
}

void ResultFrame::ShowRun(const std::shared_ptr<ShownResult>& result) {
  Head->ShowRun(result.get(), desktop_.Numbers);
  const bool first = result != nullptr && !Views->tabBar()->isVisibleTo(Views);
  Views->tabBar()->setVisible(result != nullptr);
  if (result == nullptr) Views->setCurrentWidget(Report);
  if (first) ShowView(chosen_);
  ShowReportOptions();
  const std::shared_ptr<const CountedRun> run =
      result ? std::shared_ptr<const CountedRun>(result, &result->Run) : nullptr;
  Table->Sides->KeepBasis = [this, kept = std::weak_ptr(result)](ComparisonBasis basis) {
    if (const auto shown = kept.lock()) shown->ComparedBy = basis;
    Pictures->CompareBy(basis);
  };
  Table->Show(run, result ? result->ComparedBy : std::nullopt);
  Contexts->Show(run);
  Pictures->Show(run, result ? result->ComparedBy : std::nullopt);
}

void ResultFrame::PictureSelected() {
  if (View() != RunView::Pictures) return;
  const auto* model = static_cast<const PhraseTableModel*>(Table->tblPhrases->model());
  std::vector<PhraseIndex> phrases;
  size_t selected = 0;
  for (const RowRange& rows : Table->tblPhrases->SelectedRows()) {
    selected += static_cast<size_t>(rows.Last - rows.First) + 1;
    for (int row = rows.First; row <= rows.Last && phrases.size() < kMostPicturedPhrases; ++row)
      phrases.push_back(model->EntryAt(row));
  }
  Pictures->ShowPhrases(std::move(phrases), selected);
}

RunView ResultFrame::View() const {
  return RunView{Views->currentIndex()};
}

void ResultFrame::ShowView(RunView view) {
  chosen_ = view;
  if (Views->tabBar()->isVisibleTo(Views)) Views->setCurrentIndex(static_cast<int>(view));
}

void ResultFrame::StartFiltering() {
  View() == RunView::Report ? Report->Filter->StartTyping() : Table->StartFiltering();
}

void ResultFrame::StoreLayout() const {
  desktop_.Store.setValue(QLatin1String(kTableLayout), splTable->saveState());
  desktop_.Store.setValue(QLatin1String(kReportOptions), cmdReportOptions->isChecked());
}

std::vector<QWidget*> ResultFrame::TabOrder(const std::vector<QWidget*>& options, QWidget* below) const {
  std::vector<QWidget*> order = {Tabs, Notes, Views->tabBar(), cmdReportOptions};
  const std::vector<QWidget*> contexts = Contexts->TabOrder();
  const std::vector<QWidget*> pictures = {Pictures->cboPicture, Pictures->cmdSavePicture,
                                          Pictures->picCanvas};
  for (const auto& view : {Table->TabOrder(), contexts, options, Report->TabOrder(below), pictures})
    order.insert(order.end(), view.begin(), view.end());
  return order;
}

}  // namespace korv
