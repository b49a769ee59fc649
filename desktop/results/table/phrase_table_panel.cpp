#include "desktop/results/table/phrase_table_panel.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>
#include <utility>

#include "base/translation.h"
#include "desktop/results/table/column_choice.h"
#include "desktop/results/table/comparison_bar.h"
#include "desktop/results/table/empty_table_note.h"
#include "desktop/results/table/limits_bar.h"
#include "desktop/results/table/match_bar.h"
#include "desktop/results/table/parts_menu.h"
#include "desktop/results/table/phrase_grid.h"
#include "desktop/results/table/phrase_jump.h"
#include "desktop/results/table/phrase_table_model.h"
#include "desktop/results/table/preset_note.h"
#include "desktop/results/table/row_count_text.h"
#include "desktop/results/table/row_details.h"
#include "desktop/results/table/table_bar.h"
#include "desktop/results/table/table_columns.h"
#include "desktop/results/table/table_menus.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "engine/corpus/corpus.h"
#include "report/columns/registry.h"

namespace korv {

namespace {

/// After the last key, before the table is filtered.
constexpr int kPauseOfTyping = 150;  // milliseconds
/// Phrases that can be left out at once.
constexpr size_t kMostLeftOut = 1000;

SortDirection DirectionOf(Qt::SortOrder order) {
  return order == Qt::AscendingOrder ? SortDirection::Ascending : SortDirection::Descending;
}

}  // namespace

PhraseTablePanel::PhraseTablePanel(const Desktop& desktop, QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      model_(new PhraseTableModel(desktop, this)),
      tmrMatch_(new QTimer(this)),
      copier_(desktop),
      job_(desktop.Loop) {
  tmrMatch_->setSingleShot(true);
  tmrMatch_->setInterval(kPauseOfTyping);
  auto* layout = Bare(new QVBoxLayout(this));
  Sides = Named(new ComparisonBar(desktop_, this), "fraSides");
  Sides->hide();
  Bar = new TableBar(desktop_, this);
  layout->addWidget(Sides);
  layout->addWidget(Bar);
  layout->addLayout(MakeNotes());
  layout->addWidget(MakeRows(), 1);
  columns_ = new ColumnChoice(*tblPhrases->horizontalHeader(), *model_, desktop_.Store);
  columns_->setParent(this);
  tblPhrases->horizontalHeader()->setSortIndicator(model_->SectionOf("rank"), Qt::AscendingOrder);
  request_.SortBy = FindColumn("rank");
  request_.Values.Parts = KeptParts(desktop_.Store);
  Connect();
  ColumnsChanged();
  const std::vector<QWidget*> order = TabOrder();
  for (size_t k = 1; k < order.size(); ++k) setTabOrder(order[k - 1], order[k]);
  Show(nullptr);
}

PhraseTablePanel::~PhraseTablePanel() {
  StopListening(*this);
}

QBoxLayout* PhraseTablePanel::MakeNotes() {
  auto* notes = Bare(new QVBoxLayout);
  lblMatchFault = Named(new ElidingLabel(this), "lblMatchFault");
  presetNote_ = new PresetNote(this);
  presetNote_->Say({}, false);
  notes->addWidget(lblMatchFault);
  notes->addWidget(presetNote_);
  return notes;
}

QWidget* PhraseTablePanel::MakeRows() {
  auto* splitter = Named(new QSplitter(this), "splRowDetails");
  tblPhrases = Described(Named(new PhraseGrid(*model_, splitter), "tblPhrases"), Tr("Phrases"));
  Details = new RowDetails(desktop_, splitter);
  Details->hide();
  splitter->setChildrenCollapsible(false);
  splitter->setStretchFactor(0, 3);
  splitter->setStretchFactor(1, 1);
  empty_ = new EmptyTableNote(tblPhrases->viewport());
  Bare(new QVBoxLayout(tblPhrases->viewport()))->addWidget(empty_);
  return splitter;
}

void PhraseTablePanel::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  Bar->Typed = [this] { tmrMatch_->start(); };
  Bar->Chosen = [this] { FilterNow(); };
  Bar->Match->Entered = [this] {
    FilterNow();
    tblPhrases->setFocus(Qt::TabFocusReason);
  };
  connect(tmrMatch_, &QTimer::timeout, this,
          Guarded(desktop_.Messages, "tmrMatch_Timer", [this] { FilterNow(); }));
  wiring.OnClick(empty_->cmdClearMatch, "cmdClearMatch_Click", [this] { cmdClearMatch_Click(); });
  wiring.OnClick(Bar->cmdRowDetails, "cmdRowDetails_Click", [this] { cmdRowDetails_Click(); });
  wiring.OnClick(presetNote_->cmdCountShortWords, "cmdCountShortWords_Click",
                 [this] { CountWithShortWords(); });
  auto* details = new QShortcut(Qt::Key_F2, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
  connect(details, &QShortcut::activated, Bar->cmdRowDetails, &QToolButton::click);
  Sides->TabChosen = [this] { ShowTab(); };
  Sides->TestChosen = [this] {
    request_.Tab = Sides->Tab();
    Ask();
  };
  Sides->BasisChosen = [this] {
    request_.Values.ComparedBy = Sides->Basis();
    Sides->KeepBasis(Sides->Basis());
    Ask();
  };
  Details->PhraseChosen = [this](PhraseIndex phrase) { GoTo(phrase); };
  Details->ContextsAsked = [this](PhraseIndex phrase) { ShowContexts(phrase); };
  columns_->Changed = [this] { ColumnsChanged(); };
  ConnectGrid();
  ConnectMenus();
}

void PhraseTablePanel::ConnectGrid() {
  connect(tblPhrases->horizontalHeader(), &QHeaderView::sortIndicatorChanged, this,
          &PhraseTablePanel::SortBy);
  tblPhrases->Opened = [this](PhraseIndex phrase) { ShowContexts(phrase); };
  tblPhrases->SelectionMoved = [this] {
    CurrentChanged(CurrentPhrase());
    ShowDetails();
  };
  tblPhrases->CopyAsked = [this](bool heading) { Copy(heading); };
  tblPhrases->Find = [this](int from, const QString& typed) { return Find(from, typed); };
  connect(tblPhrases, &QWidget::customContextMenuRequested, this, &PhraseTablePanel::ShowRowMenu);
}

void PhraseTablePanel::ConnectMenus() {
  QMenu* const columns = Bar->cmdColumns->menu();
  connect(columns, &QMenu::aboutToShow, this, [this, columns] {
    FillColumnsMenu(*columns, *tblPhrases, *model_, *columns_, [this](QMenu& parts) {
      FillPartsMenu(parts, request_.Values.Parts, desktop_.Messages,
                    [this](PartChoice choice) { ChooseParts(choice); });
    });
  });
  QHeaderView* const header = tblPhrases->horizontalHeader();
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QWidget::customContextMenuRequested, this,
          [columns, header](const QPoint& at) { columns->popup(header->mapToGlobal(at)); });
  FillPresetsMenu(*Bar->cmdPresets->menu(), [this](const Preset& preset) { Follow(preset); });
}

void PhraseTablePanel::Show(std::shared_ptr<const CountedRun> run,
                            std::optional<ComparisonBasis> comparedBy) {
  // What the last run left is freed on the thread of the job.
  job_.Start([gone = std::exchange(work_, nullptr)](NewestJob::Turn&) {});
  request_.LeftOut.clear();
  presetNote_->Say({}, false);
  UseSides(run.get(), comparedBy);
  if (run == nullptr) {
    job_.Stop();
    tblPhrases->Show(nullptr, {});
    lblMatchFault->hide();
    return ShowCount(true);
  }
  work_ = std::make_shared<TableWork>(std::move(run));
  Ask();
}

void PhraseTablePanel::UseSides(const CountedRun* run, std::optional<ComparisonBasis> comparedBy) {
  ComparisonChoice compared;
  if (run != nullptr) compared = run->Comparison;
  compared.Basis = comparedBy.value_or(compared.Basis);
  const bool compares = run != nullptr && run->Facts.SecondSide.has_value();
  QHeaderView& header = *tblPhrases->horizontalHeader();
  Sides->setVisible(compares);
  if (compares && !request_.Tab)
    Sides->OrderOfOthers = {header.sortIndicatorSection(), header.sortIndicatorOrder()};
  const bool otherKind = compares != request_.Tab.has_value();
  Sides->Use(compared.Drafts, compared.Basis);
  Sides->ShowCounts(nullptr);
  request_.Values.ComparedBy = compared.Basis;
  request_.Values.SimpleMathsK = compared.SimpleMathsK;
  columns_->Use(!compares ? TableKind::OneSide : compared.Drafts ? TableKind::Drafts : TableKind::Comparison);
  if (!compares) {
    request_.Tab.reset();
    if (otherKind) header.setSortIndicator(Sides->OrderOfOthers.first, Sides->OrderOfOthers.second);
    return;
  }
  if (otherKind || request_.Tab != Sides->Tab()) ShowTab();
}

void PhraseTablePanel::ShowTab() {
  request_.Tab = Sides->Tab();
  const KeyRows rows = RowsOf(request_.Tab->Which);
  tblPhrases->horizontalHeader()->setSortIndicator(
      model_->SectionOf(rows.OrderBy->Id),
      rows.Direction == SortDirection::Ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
  Ask();
}

bool PhraseTablePanel::Idle() const {
  return job_.Idle() && !tmrMatch_->isActive() && model_->Idle() && copier_.Idle() && Details->Idle();
}

TableInSight PhraseTablePanel::InSight() const {
  TableInSight shown{.Rows = model_->Rows(), .Columns = {}, .Values = request_.Values};
  for (const int section : columns_->Shown())
    std::ranges::copy(ColumnsForOthers(*model_->Columns()[static_cast<size_t>(section)]),
                      std::back_inserter(shown.Columns));
  return shown;
}

PhraseIndex PhraseTablePanel::CurrentPhrase() const {
  return tblPhrases->CurrentPhrase();
}

bool PhraseTablePanel::GoTo(PhraseIndex phrase) {
  const std::optional<uint32_t> row = model_->Rows().RowOf(phrase);
  if (row) tblPhrases->GoTo(static_cast<int>(*row));
  return row.has_value();
}

void PhraseTablePanel::LeaveOut(std::vector<PhraseIndex> phrases) {
  std::ranges::sort(phrases);
  request_.LeftOut = std::move(phrases);
  Ask();
}

void PhraseTablePanel::StartFiltering() {
  Bar->Match->StartTyping();
}

std::vector<QWidget*> PhraseTablePanel::TabOrder() const {
  std::vector<QWidget*> order = Sides->TabOrder();
  std::ranges::copy(Bar->TabOrder(), std::back_inserter(order));
  order.insert(order.end(), {presetNote_->cmdCountShortWords, tblPhrases, empty_->cmdClearMatch, Details});
  return order;
}

void PhraseTablePanel::SortBy(int section, Qt::SortOrder order) {
  request_.SortBy = model_->Columns()[static_cast<size_t>(section)];
  request_.Direction = DirectionOf(order);
  Ask();
}

void PhraseTablePanel::FilterNow() {
  tmrMatch_->stop();
  // While a limit makes no sense, the last list stays.
  if (!Bar->Check()) return;
  request_.Filter = Bar->Filter();
  Ask();
}

void PhraseTablePanel::cmdClearMatch_Click() {
  presetNote_->Say({}, false);
  Bar->Clear();
  FilterNow();
  tblPhrases->setFocus(Qt::OtherFocusReason);
}

void PhraseTablePanel::cmdRowDetails_Click() {
  Details->setVisible(Bar->cmdRowDetails->isChecked());
  // They need values of their own. Hidden ones hold no run.
  ColumnsChanged();
  if (!Bar->cmdRowDetails->isChecked()) return Details->Show(nullptr, {}, kNoPhrase);
  ShowDetails();
}

void PhraseTablePanel::Ask() {
  if (work_ == nullptr) return;
  job_.Start([this, work = work_, request = request_](NewestJob::Turn& turn) {
    work->Answer(request, turn.Yielder(), [this, &turn](TableAnswer answer) {
      turn.Tell([this, answer = std::move(answer)] { Take(answer); });
    });
  });
}

void PhraseTablePanel::ChooseParts(PartChoice parts) {
  KeepParts(desktop_.Store, parts);
  request_.Values.Parts = parts;
  Ask();
}

void PhraseTablePanel::Take(const TableAnswer& answer) {
  if (!answer.Rows) {
    model_->ShowValues(answer.Source);
    return ShowDetails();
  }
  Bar->Match->ShowFault(answer.Fault);
  lblMatchFault->setText(ToQt(answer.Fault));
  lblMatchFault->setVisible(!answer.Fault.empty());
  Sides->ShowCounts(answer.Tabs.get());
  columns_->SetOneFile(answer.Source->IsOneFile());
  Bar->Limits->SetOneFile(answer.Source->IsOneFile());
  tblPhrases->Show(answer.Source, *answer.Rows);
  ShowCount(answer.Whole);
}

void PhraseTablePanel::ShowCount(bool whole) {
  using Reason = EmptyTableNote::Reason;
  const PhraseList& rows = model_->Rows();
  empty_->setVisible(model_->rowCount() == 0 && whole);
  empty_->Say(model_->Source() == nullptr ? Reason::NoRun
              : rows.Phrases() == 0       ? Reason::NothingListed
              : request_.Tab && PassesAll(request_.Filter) && request_.LeftOut.empty()
                  ? Reason::NothingInTab
                  : Reason::NothingPasses);
  Bar->lblPhraseCount->setText(model_->Source() ? ToQt(CountOfRows(rows, whole, desktop_.Numbers))
                                                : QString());
}

void PhraseTablePanel::ColumnsChanged() {
  request_.Shown = Bar->cmdRowDetails->isChecked() ? PhraseDetails::kNeeds : AnalysisNeeds{};
  bool alone = false;
  for (const int section : columns_->Shown()) {
    const Column& column = *model_->Columns()[static_cast<size_t>(section)];
    request_.Shown |= column.Needs;
    alone = alone || column.Id == "net_frequency";
  }
  findChild<QLabel*>(QStringLiteral("lblAlone"))->setVisible(alone);
  Ask();
}

void PhraseTablePanel::ShowDetails() {
  if (Bar->cmdRowDetails->isChecked()) Details->Show(model_->Source(), model_->Rows(), CurrentPhrase());
}

void PhraseTablePanel::Copy(bool heading) {
  CopyRequest request{
      .Rows = model_->Rows(), .Ranges = tblPhrases->SelectedRows(), .Columns = {}, .Heading = heading};
  for (const int section : columns_->Shown())
    request.Columns.push_back(model_->Columns()[static_cast<size_t>(section)]);
  copier_.ExportWanted = ExportWanted;
  copier_.Copy(model_->Source(), std::move(request));
}

int PhraseTablePanel::Find(int from, const QString& typed) const {
  const std::string text = FromQt(typed);
  const bool byPhrase = request_.SortBy->Id == "phrase";
  const auto row =
      FindRow(model_->Source()->Table(), model_->Rows(),
              byPhrase ? std::optional(request_.Direction) : std::nullopt, static_cast<uint32_t>(from), text);
  return row ? static_cast<int>(*row) : -1;
}

void PhraseTablePanel::ShowRowMenu(const QPoint& at) {
  const PhraseIndex phrase = CurrentPhrase();
  if (phrase == kNoPhrase) return;
  const PhraseTable& table = model_->Source()->Table();
  const Corpus& corpus = table.Corpus();
  std::vector<std::string> words;
  for (int k = 0; k < table.Words(phrase); ++k) {
    const std::string word(corpus.Words.Text(corpus.From(table.First(phrase))[k]));
    if (std::ranges::find(words, word) == words.end()) words.push_back(word);
  }
  auto* menu = Named(new QMenu(this), "mnuRow");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(Tr("Show &contexts"), Qt::Key_F4, this, [this, phrase] { ShowContexts(phrase); })
      ->setObjectName(QStringLiteral("mnuShowContexts"));
  FillRowMenu(*menu, Actions, phrase, words, tblPhrases->SelectedPhrases(kMostLeftOut));
  menu->addSeparator();
  menu->addAction(Tr("C&opy"), QKeySequence::Copy, this, [this] { Copy(true); });
  menu->addAction(Tr("Copy wit&hout heading"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, this,
                  [this] { Copy(false); });
  menu->popup(tblPhrases->viewport()->mapToGlobal(at));
}

void PhraseTablePanel::Follow(const Preset& preset) {
  const std::shared_ptr<const TableSource> source = model_->Source();
  if (source == nullptr) return;
  Bar->Limit(LimitsOf(preset, *source));
  presetNote_->Say(NoteOf(preset, *source), DropsShortWords(preset, *source) && CountWithShortWords);
  request_.Filter = Bar->Filter();
  QStringList more;
  for (const std::string_view id : preset.Columns) more.append(ToQt(id));
  columns_->ShowForNow(more);
  const QVariant usual =
      model_->headerData(model_->SectionOf(preset.SortBy), Qt::Horizontal, Qt::InitialSortOrderRole);
  tblPhrases->horizontalHeader()->setSortIndicator(model_->SectionOf(preset.SortBy),
                                                   static_cast<Qt::SortOrder>(usual.toInt()));
  Ask();
}

}  // namespace korv
