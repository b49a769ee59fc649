#include "desktop/results/table/match_bar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>

#include "base/translation.h"
#include "desktop/results/table/wrong_mark.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"

namespace korv {

namespace {

struct ModeItem {
  MatchMode Mode;
  const char* Caption;
  const char* Tip;
};

constexpr ModeItem kModes[] = {
    {MatchMode::Contains, TrLater("Contains"),
     TrLater("The text stands anywhere in the phrase, within words too.")},
    {MatchMode::WholeWords, TrLater("Whole words"),
     TrLater("The text stands in the phrase as whole words, in a row.")},
    {MatchMode::StartsWith, TrLater("Starts with"), TrLater("The phrase begins with the text.")},
    {MatchMode::EndsWith, TrLater("Ends with"), TrLater("The phrase ends with the text.")},
    {MatchMode::Wildcards, TrLater("Wildcards"),
     TrLater("The text is the whole phrase; * stands for any characters and ? for one.")},
    {MatchMode::Expression, TrLater("Regular expression"),
     TrLater("The expression matches somewhere in the phrase.")},
    {MatchMode::WordsInAnyOrder, TrLater("Words in any order"),
     TrLater("Each word of the text is a word of the phrase.")},
};

}  // namespace

MatchBar::MatchBar(const Desktop& desktop, QWidget* parent) : QWidget(parent) {
  cboMatchMode = MakeCombo("cboMatchMode", Tr("How the text is looked for"), this);
  cboMatchMode->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  for (const ModeItem& item : kModes) {
    cboMatchMode->addItem(Tr(item.Caption));
    cboMatchMode->setItemData(cboMatchMode->count() - 1, QString(Tr(item.Tip)), Qt::ToolTipRole);
  }
  txbMatch = MakeTextBox("txbMatch", Tr("Text that the listed phrases match"), this);
  txbMatch->setPlaceholderText(Tr("Filter the phrases"));
  txbMatch->setClearButtonEnabled(true);
  // The hint is read in full, beside the sign that clears the field.
  txbMatch->setMinimumWidth(fontMetrics().horizontalAdvance(txbMatch->placeholderText()) +
                            3 * fontMetrics().height());
  txbMatch->installEventFilter(this);
  // Translators: stands between "Contains" (or another such choice) and the text that is looked for.
  chkMatchNot = MakeCheckBox("chkMatchNot", Tr("n&ot"), this);
  chkMatchNot->setToolTip(Tr("List the phrases that do not match. A \"-\" before the text does the same."));
  Described(chkMatchNot, Tr("List the phrases that do not match"));
  chkMatchAccents = MakeCheckBox("chkMatchAccents", Tr("any accents"), this);
  chkMatchAccents->setToolTip(Tr("Letters match with and without their accents."));
  auto* layout = Bare(new QHBoxLayout(this));
  layout->addWidget(cboMatchMode);
  layout->addWidget(chkMatchNot);
  layout->addWidget(txbMatch, 1);
  layout->addWidget(chkMatchAccents);
  Connect(desktop.Messages);
}

MatchBar::~MatchBar() {
  StopListening(*this);
}

void MatchBar::Connect(Messages& messages) {
  const Wiring wiring(*this, messages);
  wiring.OnText(txbMatch, "txbMatch_Change", [this] { Typed(); });
  wiring.OnChoice(cboMatchMode, "cboMatchMode_Click", [this] {
    cboMatchMode->setToolTip(Tr(kModes[cboMatchMode->currentIndex()].Tip));
    Chosen();
  });
  wiring.OnToggle(chkMatchNot, "chkMatchNot_Click", [this] { Chosen(); });
  wiring.OnToggle(chkMatchAccents, "chkMatchAccents_Click", [this] { Chosen(); });
  cboMatchMode->setToolTip(Tr(kModes[0].Tip));
}

PhraseQuery MatchBar::Query() const {
  return {.Text = FromQt(txbMatch->text()),
          .Mode = kModes[cboMatchMode->currentIndex()].Mode,
          .Not = chkMatchNot->isChecked(),
          .FoldAccents = chkMatchAccents->isChecked()};
}

void MatchBar::Clear() {
  txbMatch->clear();
  chkMatchNot->setChecked(false);
}

void MatchBar::ShowFault(const std::string& reason) {
  MarkWrong(*txbMatch, ToQt(reason));
}

void MatchBar::StartTyping() {
  txbMatch->setFocus(Qt::ShortcutFocusReason);
  txbMatch->selectAll();
}

std::vector<QWidget*> MatchBar::TabOrder() const {
  return {cboMatchMode, chkMatchNot, txbMatch, chkMatchAccents};
}

bool MatchBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched == txbMatch && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down) {
      Entered();
      return true;
    }
    if (key == Qt::Key_Escape && !txbMatch->text().isEmpty()) {
      txbMatch->clear();
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace korv
