#include "desktop/results/filter_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"
#include "report/filter.h"

namespace korv {

FilterPanel::FilterPanel(const Desktop& desktop, QWidget* parent)
    : QGroupBox(Tr("Filter"), parent), desktop_(desktop) {
  setObjectName(QStringLiteral("fraFilterResults"));
  Build();
  TabToTheSelected(Modes());
  Connect();
}

FilterPanel::~FilterPanel() {
  StopListening(*this);
}

void FilterPanel::Build() {
  auto* layout = Tight(new QGridLayout(this));
  optIncludeAllWords = MakeOption("optIncludeAllWords", Tr("All words below included"), this);
  optIncludeAllWordsInSameOrder = MakeOption("optIncludeAllWordsInSameOrder", Tr("in same order"), this);
  optIncludeAllWordsAsSubphrase = MakeOption("optIncludeAllWordsAsSubphrase", Tr("as subphrase"), this);
  txbFilterWords = MakeTextBox("txbFilterWords", Tr("Filter words"), this);
  txbFilterWords->setFont(WordsFont());
  cmdFilterResults = MakeButton("cmdFilterResults", Tr("Fil&ter results"), this);
  cmdClear = Described(MakeButton("cmdClear", Tr("C&lear"), this), Tr("Clear the filter words"));
  auto* modes = new QHBoxLayout;
  for (QRadioButton* mode : Modes()) modes->addWidget(mode);
  modes->addStretch(1);
  auto* note = MakeHint(Tr("Case is not significant."), this);
  note->setWordWrap(false);
  layout->addLayout(modes, 0, 0, 1, 4);
  layout->addWidget(txbFilterWords, 1, 0);
  layout->addWidget(note, 1, 1);
  layout->addWidget(cmdFilterResults, 1, 2);
  layout->addWidget(cmdClear, 1, 3);
  layout->setColumnStretch(0, 1);
}

void FilterPanel::Connect() {
  const Wiring wiring(*this, desktop_.Messages);
  for (QRadioButton* mode : Modes()) {
    wiring.OnClick(mode, "optFilterMode_Click", [this] { optFilterMode_Click(); });
  }
  wiring.OnClick(cmdFilterResults, "cmdFilterResults_Click", [this] { cmdFilterResults_Click(); });
  wiring.OnClick(cmdClear, "cmdClear_Click", [this] { cmdClear_Click(); });
  wiring.OnText(txbFilterWords, "txbFilterWords_Change", [this] { EnableClearButton(); });
  txbFilterWords->installEventFilter(this);
}

bool FilterPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txbFilterWords) {
    if (event->type() == QEvent::FocusOut) {
      Guarded(desktop_.Messages, "txbFilterWords_LostFocus", [this] { txbFilterWords_LostFocus(); })();
    } else if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key != Qt::Key_Tab && key != Qt::Key_Backtab && key != Qt::Key_Escape) {
        Guarded(desktop_.Messages, "txbFilterWords_KeyPress",
                [this, key] { txbFilterWords_KeyPress(key); })();
      }
    }
  }
  return QGroupBox::eventFilter(watched, event);
}

void FilterPanel::txbFilterWords_LostFocus() {
  const QString normalised = ToQt(NormaliseFilterText(Words()));
  if (normalised != txbFilterWords->text()) txbFilterWords->setText(normalised);
}

void FilterPanel::txbFilterWords_KeyPress(int key) {
  if (key != Qt::Key_Return && key != Qt::Key_Enter) return;
  txbFilterWords_LostFocus();
  cmdFilterResults_Click();
}

void FilterPanel::cmdFilterResults_Click() {
  txbFilterWords_LostFocus();
  if (!txbFilterWords->text().isEmpty()) FilterResults();
}

void FilterPanel::optFilterMode_Click() {
  txbFilterWords_LostFocus();
  if (WantsFilter()) ModeChosen();
}

void FilterPanel::cmdClear_Click() {
  txbFilterWords->clear();
  txbFilterWords->setFocus();
  cmdClear->setEnabled(false);
}

std::string FilterPanel::Words() const {
  return FromQt(txbFilterWords->text());
}

bool FilterPanel::WantsFilter() const {
  return !NormaliseFilterText(Words()).empty();
}

void FilterPanel::EnableClearButton() {
  cmdClear->setEnabled(!txbFilterWords->text().isEmpty());
}

void FilterPanel::StartTyping() {
  txbFilterWords->setFocus(Qt::ShortcutFocusReason);
  txbFilterWords->selectAll();
}

std::vector<QRadioButton*> FilterPanel::Modes() const {
  return {optIncludeAllWords, optIncludeAllWordsInSameOrder, optIncludeAllWordsAsSubphrase};
}

std::vector<QWidget*> FilterPanel::TabOrder() const {
  return {optIncludeAllWords,
          optIncludeAllWordsInSameOrder,
          optIncludeAllWordsAsSubphrase,
          txbFilterWords,
          cmdFilterResults,
          cmdClear};
}

}  // namespace korv
