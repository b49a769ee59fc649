#include "desktop/results/contexts/contexts_pane.h"

#include <QAction>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/contexts/context_texts.h"
#include "base/translation.h"
#include "desktop/main_window/open_associated.h"
#include "desktop/results/contexts/context_options.h"
#include "desktop/results/contexts/contexts_table.h"
#include "desktop/results/contexts/text_view.h"
#include "desktop/results/contexts/why_panel.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "sources/places/phrase_cut.h"

namespace korv {

namespace {

/// So many contexts are found first, some screens of them.
constexpr size_t kFirstPage = 300;
constexpr size_t kMostCopied = 20'000;
constexpr int kTypingPause = 250;  // milliseconds
constexpr int kLongestTyped = 1000;

}  // namespace

ContextsPane::ContextsPane(const Desktop& desktop, QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      rows_(desktop.Loop, desktop.Files),
      model_(rows_, desktop.Numbers, nullptr),
      finder_(desktop.Loop),
      copier_(desktop.Loop, desktop.Files) {
  auto* layout = Bare(new QVBoxLayout(this));
  BuildOptions(*layout);
  lblContextNote = MakeLabel("lblContextNote", this);
  lblContextNote->setWordWrap(true);
  lblContextNote->hide();
  layout->addWidget(lblContextNote);
  Why = new WhyPanel(desktop_, this);
  layout->addWidget(Why);
  tblContexts = new ContextsTable(model_, this);
  layout->addWidget(tblContexts, 1);
  rows_.SetAround(Options->Width());
  ConnectOptions();
  rows_.Came = [this] { TextsCame(); };
  tblContexts->SightChanged = [this] { WantRows(); };
  BuildActions();
  Clear({});
  EnableWhy();
}

ContextsPane::~ContextsPane() {
  StopListening(*this);
  tblContexts->SightChanged = [] {};
  // These must not outlive what they show.
  delete tblContexts;
  delete frmText;
}

void ContextsPane::BuildOptions(QBoxLayout& layout) {
  auto* options = Bare(new QHBoxLayout);
  txbContextPhrase = MakeTextBox("txbContextPhrase", Tr("Phrase whose contexts are shown"), this);
  txbContextPhrase->setPlaceholderText(Tr("Type any phrase, listed or not"));
  txbContextPhrase->setClearButtonEnabled(true);
  txbContextPhrase->setMaxLength(kLongestTyped);
  options->addWidget(MakeCaption(Tr("Conte&xts of"), txbContextPhrase, this));
  options->addWidget(txbContextPhrase, 2);
  lblContextCount = MakeLabel("lblContextCount", this);
  options->addWidget(lblContextCount, 1);
  cmdWhy = MakeButton("cmdWhy", Tr("Why is it not &listed?"), this);
  cmdWhy->setToolTip(Tr("Which rule keeps this phrase out of the list"));
  options->addWidget(cmdWhy);
  layout.addLayout(options);
  Options = new ContextOptions(desktop_, this);
  layout.addWidget(Options);
}

void ContextsPane::BuildActions() {
  struct Command {
    const char* Name;
    const char* Caption;
    QList<QKeySequence> Keys;
    void (ContextsPane::*Act)();
  };
  const Command commands[] = {
      {"mnuContextText",
       TrLater("Show in the &text"),
       {Qt::Key_Return, Qt::Key_Enter},
       &ContextsPane::ShowText},
      {"mnuContextNext", TrLater("&Next occurrence"), {Qt::Key_F3}, &ContextsPane::NextOccurrence},
      {"mnuContextPrevious",
       TrLater("&Previous occurrence"),
       {Qt::SHIFT | Qt::Key_F3},
       &ContextsPane::PreviousOccurrence},
      {"mnuContextOpen", TrLater("&Open in its own program"), {}, &ContextsPane::OpenSource},
      {"mnuContextCopy", TrLater("&Copy"), {QKeySequence::Copy}, &ContextsPane::Copy}};
  for (const Command& command : commands) {
    auto* action = Named(new QAction(Tr(command.Caption), tblContexts), command.Name);
    action->setShortcuts(command.Keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this,
            Guarded(desktop_.Messages, command.Name, [this, act = command.Act] { (this->*act)(); }));
    tblContexts->addAction(action);
  }
  tblContexts->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(tblContexts, &QTableView::doubleClicked, this,
          Guarded(desktop_.Messages, "tblContexts_DoubleClick", [this] { ShowText(); }));
}

void ContextsPane::ConnectOptions() {
  const Wiring wiring(*this, desktop_.Messages);
  typed_.setSingleShot(true);
  typed_.setInterval(kTypingPause);
  connect(&typed_, &QTimer::timeout, this,
          Guarded(desktop_.Messages, "txbContextPhrase_Change", [this] { ShowTyped(); }));
  connect(txbContextPhrase, &QLineEdit::textEdited, this, [this] { typed_.start(); });
  connect(txbContextPhrase, &QLineEdit::returnPressed, this,
          Guarded(desktop_.Messages, "txbContextPhrase_Enter", [this] { ShowTyped(); }));
  wiring.OnClick(cmdWhy, "cmdWhy_Click", [this] { ShowWhy(); });
  wiring.OnText(txbContextPhrase, "txbContextPhrase_TextChanged", [this] {
    Why->Clear();
    EnableWhy();
  });
  Options->QueryChanged = [this] { FindAnew(); };
  Options->WidthChanged = [this] {
    rows_.SetAround(Options->Width());
    TextsCame();
    WantRows();
  };
}

void ContextsPane::Show(std::shared_ptr<const CountedRun> run) {
  run_ = std::move(run);
  copier_.Forget();
  Why->Clear();
  EnableWhy();
  ShowTyped();
}

void ContextsPane::ShowPhrase(PhraseIndex phrase) {
  if (run_ == nullptr) return;
  typed_.stop();
  const PhraseTable& table = run_->Table;
  txbContextPhrase->setText(ToQt(table.Text(phrase)));
  // Its words are taken from the text: cut again, they might be others.
  const WordNumber* first = table.Corpus().From(table.First(phrase));
  Find({first, first + table.Words(phrase)});
}

void ContextsPane::ShowTyped() {
  typed_.stop();
  const std::string text = FromQt(txbContextPhrase->text());
  if (run_ == nullptr || text.empty()) return Clear({});
  if (!HasText()) return Clear(Tr("The text of this run is not there. Count it again to see contexts."));
  CutPhrase cut = CutTypedPhrase(text, run_->Table.Corpus());
  if (cut.Length == 0) return Clear(Tr("The rules in force leave no word of it."));
  if (cut.Length > static_cast<size_t>(kMostWords)) return Clear(Tr("That is more than 25 words."));
  Find(std::move(cut.Words));
}

bool ContextsPane::HasText() const {
  return run_ != nullptr && run_->Table.Corpus().Lists != nullptr;
}

void ContextsPane::EnableWhy() {
  cmdWhy->setEnabled(HasText() && !txbContextPhrase->text().isEmpty());
}

void ContextsPane::ShowWhy() {
  if (HasText()) Why->Explain(run_, FromQt(txbContextPhrase->text()));
}

void ContextsPane::Find(std::vector<WordNumber> words) {
  query_ = Options->Query();
  query_.Words = std::move(words);
  finder_.Start([this, run = run_, query = query_](NewestJob::Turn& turn) {
    FindContexts(run, query, kFirstPage, turn.Yielder(), [&](std::shared_ptr<const ContextList> list) {
      turn.Tell([this, list = std::move(list)] { Take(list); });
    });
  });
}

void ContextsPane::FindAnew() {
  if (model_.List() != nullptr || !finder_.Idle()) Find(std::move(query_.Words));
}

void ContextsPane::Take(const std::shared_ptr<const ContextList>& list) {
  // The whole list begins with the rows that are there.
  const bool goesOn = model_.List() != nullptr && !model_.List()->Whole() && list->Whole();
  const int current = goesOn ? tblContexts->currentIndex().row() : -1;
  const auto inSight = goesOn ? tblContexts->RowsInSight() : std::nullopt;
  rows_.Show(list);
  model_.Show(list);
  if (current >= 0) tblContexts->selectRow(current);
  if (inSight) tblContexts->scrollTo(model_.index(inSight->first, 0), QTableView::PositionAtTop);
  lblContextCount->setText(ToQt(OccurrencesText(*list, desktop_.Numbers)));
  if (!list->Places().empty() && !goesOn) {
    const int row = static_cast<int>(list->RowOf(0));
    tblContexts->FitPhrase(model_.index(row, static_cast<int>(ContextColumn::Phrase)).data().toString());
    tblContexts->GoTo(row);
    tblContexts->scrollToTop();
  }
  ShowChanged();
  WantRows();
}

void ContextsPane::Clear(const std::string& why) {
  finder_.Stop();
  rows_.Show(nullptr);
  model_.Show(nullptr);
  lblContextCount->setText(ToQt(why));
  ShowChanged();
}

void ContextsPane::WantRows() {
  const auto inSight = tblContexts->RowsInSight();
  if (!inSight || model_.List() == nullptr) return;
  const auto [first, last] = *inSight;
  std::vector<Place> seen;
  std::vector<Place> near;
  const int page = last - first + 1;
  for (int row = std::max(0, first - page); row <= std::min(model_.rowCount() - 1, last + page); ++row)
    if (const auto place = model_.PlaceAt(row)) (row < first || row > last ? near : seen).push_back(*place);
  rows_.Want(std::move(seen), std::move(near));
}

void ContextsPane::TextsCame() {
  model_.TextsCame();
  ShowChanged();
}

void ContextsPane::ShowChanged() {
  const QString text = model_.List() == nullptr
                           ? QString()
                           : ToQt(ChangedTextsText(model_.List()->Run(), rows_.Changed(), desktop_.Numbers));
  lblContextNote->setText(text);
  lblContextNote->setVisible(!text.isEmpty());
}

std::optional<size_t> ContextsPane::CurrentPlace() const {
  const int row = tblContexts->currentIndex().row();
  if (model_.List() == nullptr || row < 0) return std::nullopt;
  return model_.List()->PlaceAt(static_cast<size_t>(row));
}

void ContextsPane::GoBy(int rows) {
  const ContextList* list = model_.List();
  if (list == nullptr || list->Places().empty()) return;
  const auto count = static_cast<int64_t>(list->Places().size());
  const auto at = CurrentPlace();
  const int64_t index = at ? (static_cast<int64_t>(*at) + rows + count) % count : 0;
  tblContexts->GoTo(static_cast<int>(list->RowOf(static_cast<size_t>(index))));
  if (frmText != nullptr && frmText->isVisible()) ShowText();
}

void ContextsPane::ShowText() {
  const auto index = CurrentPlace();
  if (!index) return;
  if (frmText == nullptr) {
    frmText = new TextView(desktop_, this);
    frmText->Step = [this](int step) { GoBy(step); };
  }
  frmText->ShowPlace(model_.SharedList(), *index);
  if (!frmText->isVisible()) frmText->show();
}

void ContextsPane::OpenSource() {
  const auto index = CurrentPlace();
  if (!index) return;
  const Corpus& corpus = run_->Table.Corpus();
  const auto& path = corpus.Sources[corpus.SourceAt(model_.List()->Places()[*index])].Path;
  if (!path.empty()) OpenWithAssociatedProgram(desktop_.Launcher, desktop_.Messages, PathToText(path));
}

void ContextsPane::Copy() {
  const ContextList* list = model_.List();
  if (list == nullptr) return;
  std::vector<Place> places;
  for (const RowRange& range : tblContexts->SelectedRows())
    for (int row = range.First; row <= range.Last && places.size() <= kMostCopied; ++row)
      if (const auto place = model_.PlaceAt(row)) places.push_back(*place);
  if (places.size() > kMostCopied) {
    lblContextNote->setText(Tr("Select at most 20,000 contexts to copy them."));
    lblContextNote->show();
    return;
  }
  copier_.Copy(model_.SharedList(), std::move(places), rows_.Around());
}

std::vector<QWidget*> ContextsPane::TabOrder() const {
  std::vector<QWidget*> order = Options->TabOrder();
  order.insert(order.begin(), txbContextPhrase);
  order.push_back(tblContexts);
  return order;
}

bool ContextsPane::Idle() const {
  return !typed_.isActive() && finder_.Idle() && rows_.Idle() && copier_.Idle() && Why->Idle() &&
         (frmText == nullptr || frmText->Idle());
}

}  // namespace korv
