#include "desktop/results/contexts/contexts_pane.h"

#include <QAction>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include "base/translation.h"
#include "desktop/results/contexts/context_options.h"
#include "desktop/results/contexts/contexts_of_side.h"
#include "desktop/results/contexts/contexts_table.h"
#include "desktop/results/contexts/why_panel.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "sources/places/phrase_cut.h"

namespace korv {

namespace {

constexpr int kTypingPause = 250;  // milliseconds
constexpr int kLongestTyped = 1000;

}  // namespace

ContextsPane::ContextsPane(const Desktop& desktop, QWidget* parent) : QWidget(parent), desktop_(desktop) {
  auto* layout = Bare(new QVBoxLayout(this));
  BuildOptions(*layout);
  lblContextNote = MakeLabel("lblContextNote", this);
  lblContextNote->setWordWrap(true);
  lblContextNote->hide();
  layout->addWidget(lblContextNote);
  Why = new WhyPanel(desktop_, this);
  layout->addWidget(Why);
  layout->addWidget(BuildLists(), 1);
  ConnectOptions();
  BuildActions();
  ShowSides();
  Clear({});
  EnableWhy();
}

ContextsPane::~ContextsPane() {
  StopListening(*this);
  for (ContextsOfSide* list : {OfA, OfB}) {
    list->Counted = [](const QString&) {};
    list->NoteChanged = [] {};
  }
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

QWidget* ContextsPane::BuildLists() {
  auto* lists = Named(new QSplitter(this), "splContexts");
  lists->setChildrenCollapsible(false);
  OfA = new ContextsOfSide(desktop_, Side::A, lists);
  OfB = new ContextsOfSide(desktop_, Side::B, lists);
  for (ContextsOfSide* list : {OfA, OfB}) {
    list->SetAround(Options->Width());
    list->NoteChanged = [this] { ShowNotes(); };
  }
  tblContexts = OfA->tblContexts;
  OfA->Counted = [this](const QString& count) {
    // Two sides have their numbers above their lists.
    lblContextCount->setText(OfB->isHidden() ? count : QString());
  };
  tblContexts->Focused = [this] { ofB_ = false; };
  OfB->tblContexts->Focused = [this] { ofB_ = true; };
  return lists;
}

void ContextsPane::BuildActions() {
  struct Command {
    const char* Name;
    const char* Caption;
    QList<QKeySequence> Keys;
    std::function<void(ContextsOfSide&)> Act;
  };
  const Command commands[] = {
      {"mnuContextText",
       TrLater("Show in the &text"),
       {Qt::Key_Return, Qt::Key_Enter},
       [](ContextsOfSide& list) { list.ShowText(); }},
      {"mnuContextNext",
       TrLater("&Next occurrence"),
       {Qt::Key_F3},
       [](ContextsOfSide& list) { list.GoBy(1); }},
      {"mnuContextPrevious",
       TrLater("&Previous occurrence"),
       {Qt::SHIFT | Qt::Key_F3},
       [](ContextsOfSide& list) { list.GoBy(-1); }},
      {"mnuContextOpen",
       TrLater("&Open in its own program"),
       {},
       [](ContextsOfSide& list) { list.OpenSource(); }},
      {"mnuContextCopy", TrLater("&Copy"), {QKeySequence::Copy}, [](ContextsOfSide& list) { list.Copy(); }}};
  for (const Command& command : commands) {
    auto* action = Named(new QAction(Tr(command.Caption), tblContexts), command.Name);
    action->setShortcuts(command.Keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this,
            Guarded(desktop_.Messages, command.Name, [this, act = command.Act] { act(Active()); }));
    for (const ContextsOfSide* list : {OfA, OfB}) list->tblContexts->addAction(action);
  }
  for (const ContextsOfSide* list : {OfA, OfB})
    list->tblContexts->setContextMenuPolicy(Qt::ActionsContextMenu);
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
    for (ContextsOfSide* list : {OfA, OfB}) list->SetAround(Options->Width());
  };
}

void ContextsPane::Show(std::shared_ptr<const CountedRun> run) {
  run_ = std::move(run);
  for (ContextsOfSide* list : {OfA, OfB}) list->ForgetCopy();
  ShowSides();
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
  ContextQuery query = Options->Query();
  query.Words = std::move(words);
  OfA->Find(run_, query);
  if (run_->Facts.SecondSide) return OfB->Find(run_, std::move(query));
  OfB->Clear({});
}

void ContextsPane::FindAnew() {
  if (OfA->HasPhrase()) Find(OfA->Words());
}

void ContextsPane::Clear(const std::string& why) {
  for (ContextsOfSide* list : {OfA, OfB}) list->Clear(why);
}

void ContextsPane::ShowNotes() {
  QStringList notes;
  for (const ContextsOfSide* list : {OfA, OfB})
    if (!list->Note().isEmpty() && !notes.contains(list->Note())) notes.append(list->Note());
  lblContextNote->setText(notes.join(u'\n'));
  lblContextNote->setVisible(!notes.isEmpty());
}

ContextsOfSide& ContextsPane::Active() const {
  return ofB_ && !OfB->isHidden() ? *OfB : *OfA;
}

void ContextsPane::ShowSides() {
  const bool compares = run_ != nullptr && run_->Facts.SecondSide.has_value();
  OfB->setVisible(compares);
  OfA->lblSideCount->setVisible(compares);
  OfB->lblSideCount->setVisible(compares);
  Described(OfA->tblContexts, compares ? Tr("Contexts in A") : Tr("Contexts"));
  if (compares) lblContextCount->clear();
}

std::vector<QWidget*> ContextsPane::TabOrder() const {
  std::vector<QWidget*> order = Options->TabOrder();
  order.insert(order.begin(), txbContextPhrase);
  order.insert(order.end(), {tblContexts, OfB->tblContexts});
  return order;
}

bool ContextsPane::Idle() const {
  return !typed_.isActive() && OfA->Idle() && OfB->Idle() && Why->Idle();
}

}  // namespace korv
