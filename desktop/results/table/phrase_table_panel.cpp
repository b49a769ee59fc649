#include "desktop/results/table/phrase_table_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/results/table/column_choice.h"
#include "desktop/results/table/empty_table_note.h"
#include "desktop/results/table/match_bar.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_table_model.h"
#include "desktop/results/table/row_count_text.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "report/columns/registry.h"

namespace korv {

namespace {

/// After the last key, before the table is filtered.
constexpr int kPauseOfTyping = 150;  // milliseconds

SortDirection DirectionOf(Qt::SortOrder order) {
  return order == Qt::AscendingOrder ? SortDirection::Ascending : SortDirection::Descending;
}

}  // namespace

PhraseTablePanel::PhraseTablePanel(const Desktop& desktop, QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      model_(new PhraseTableModel(desktop.Numbers, this)),
      tmrMatch_(new QTimer(this)),
      job_(desktop.Loop) {
  Build();
  columns_ = new ColumnChoice(*tblPhrases->horizontalHeader(), *model_, desktop_.Store);
  columns_->setParent(this);
  tblPhrases->horizontalHeader()->setSortIndicator(model_->SectionOf("rank"), Qt::AscendingOrder);
  request_.SortBy = FindColumn("rank");
  tmrMatch_->setSingleShot(true);
  tmrMatch_->setInterval(kPauseOfTyping);
  Connect();
  Show(nullptr);
}

PhraseTablePanel::~PhraseTablePanel() {
  StopListening(*this);
}

void PhraseTablePanel::Build() {
  auto* layout = Bare(new QVBoxLayout(this));
  Match = new MatchBar(desktop_, this);
  cmdColumns = Named(new QToolButton(this), "cmdColumns");
  cmdColumns->setText(QStringLiteral("Columns"));
  cmdColumns->setToolTip(QStringLiteral("Choose the columns of the table."));
  cmdColumns->setFocusPolicy(Qt::StrongFocus);
  cmdColumns->setPopupMode(QToolButton::InstantPopup);
  cmdColumns->setMenu(new QMenu(cmdColumns));
  auto* bar = Bare(new QHBoxLayout);
  bar->addWidget(Match, 1);
  bar->addWidget(cmdColumns);
  layout->addLayout(bar);
  lblPhraseCount = MakeLabel("lblPhraseCount", this);
  lblMatchFault = MakeLabel("lblMatchFault", this);
  lblMatchFault->setWordWrap(true);
  layout->addWidget(lblMatchFault);
  layout->addWidget(lblPhraseCount);
  tblPhrases = Described(Named(new PhraseGrid(*model_, this), "tblPhrases"), "Phrases");
  layout->addWidget(tblPhrases, 1);
  empty_ = new EmptyTableNote(tblPhrases->viewport());
  Bare(new QVBoxLayout(tblPhrases->viewport()))->addWidget(empty_);
}

void PhraseTablePanel::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  Match->Typed = [this] { tmrMatch_->start(); };
  Match->Chosen = [this] { FilterNow(); };
  Match->Entered = [this] {
    FilterNow();
    tblPhrases->setFocus(Qt::TabFocusReason);
  };
  connect(tmrMatch_, &QTimer::timeout, this,
          Guarded(desktop_.Messages, "tmrMatch_Timer", [this] { FilterNow(); }));
  wiring.OnClick(empty_->cmdClearMatch, "cmdClearMatch_Click", [this] { cmdClearMatch_Click(); });
  QHeaderView* const header = tblPhrases->horizontalHeader();
  connect(header, &QHeaderView::sortIndicatorChanged, this, &PhraseTablePanel::SortBy);
  connect(cmdColumns->menu(), &QMenu::aboutToShow, this, [this] {
    cmdColumns->menu()->clear();
    columns_->FillMenu(*cmdColumns->menu());
  });
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QWidget::customContextMenuRequested, this,
          [this, header](const QPoint& at) { cmdColumns->menu()->popup(header->mapToGlobal(at)); });
  tblPhrases->Opened = [this](PhraseIndex phrase) { ShowContexts(phrase); };
  tblPhrases->SelectionMoved = [this] { CurrentChanged(CurrentPhrase()); };
}

void PhraseTablePanel::Show(std::shared_ptr<const CountedRun> run) {
  // What the last run left is freed on the thread of the job.
  job_.Start([gone = std::exchange(work_, nullptr)](NewestJob::Turn&) {});
  if (run == nullptr) {
    job_.Stop();
    tblPhrases->Show(nullptr, {});
    return ShowCount(true);
  }
  work_ = std::make_shared<TableWork>(std::move(run));
  Ask();
}

bool PhraseTablePanel::Idle() const {
  return job_.Idle() && !tmrMatch_->isActive();
}

PhraseIndex PhraseTablePanel::CurrentPhrase() const {
  return tblPhrases->CurrentPhrase();
}

void PhraseTablePanel::StartFiltering() {
  Match->StartTyping();
}

std::vector<QWidget*> PhraseTablePanel::TabOrder() const {
  std::vector<QWidget*> order = Match->TabOrder();
  for (QWidget* next : {static_cast<QWidget*>(cmdColumns), static_cast<QWidget*>(tblPhrases),
                        static_cast<QWidget*>(empty_->cmdClearMatch)}) {
    order.push_back(next);
  }
  return order;
}

void PhraseTablePanel::SortBy(int section, Qt::SortOrder order) {
  request_.SortBy = model_->Columns()[static_cast<size_t>(section)];
  request_.Direction = DirectionOf(order);
  Ask();
}

void PhraseTablePanel::FilterNow() {
  tmrMatch_->stop();
  request_.Filter.Query = Match->Query();
  Ask();
}

void PhraseTablePanel::cmdClearMatch_Click() {
  Match->Clear();
  FilterNow();
  tblPhrases->setFocus(Qt::OtherFocusReason);
}

void PhraseTablePanel::Ask() {
  if (work_ == nullptr) return;
  job_.Start([this, work = work_, request = request_](NewestJob::Turn& turn) {
    work->Answer(request, turn.Yielder(), [this, &turn](TableAnswer answer) {
      turn.Tell([this, answer = std::move(answer)] { Take(answer); });
    });
  });
}

void PhraseTablePanel::Take(const TableAnswer& answer) {
  Match->ShowFault(answer.Fault);
  lblMatchFault->setText(ToQt(answer.Fault));
  lblMatchFault->setVisible(!answer.Fault.empty());
  if (!answer.Fault.empty()) return;
  columns_->SetOneFile(answer.Source->IsOneFile());
  tblPhrases->Show(answer.Source, answer.Rows);
  ShowCount(answer.Whole);
}

void PhraseTablePanel::ShowCount(bool whole) {
  using Reason = EmptyTableNote::Reason;
  const PhraseList& rows = model_->Rows();
  const bool none = model_->rowCount() == 0 && whole;
  empty_->setVisible(none);
  empty_->Say(model_->Source() == nullptr ? Reason::NoRun
              : rows.Phrases() == 0       ? Reason::NothingListed
                                          : Reason::NothingPasses);
  lblPhraseCount->setText(model_->Source() ? ToQt(CountOfRows(rows, whole, desktop_.Numbers)) : QString());
}

}  // namespace korv
