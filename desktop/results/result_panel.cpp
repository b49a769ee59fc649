#include "desktop/results/result_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/translation.h"
#include "desktop/results/filter_panel.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"

namespace korv {

ResultPanel::ResultPanel(const Desktop& desktop, OutputBoxHooks hooks, QWidget* parent)
    : QWidget(parent),
      txbOutput(Described(Named(new QPlainTextEdit(this), "txbOutput"), Tr("Result"))),
      desktop_(desktop),
      box_(*txbOutput),
      output_(box_, std::move(hooks)) {
  stack_ = Bare(new QVBoxLayout(this));
  BuildLabels(*stack_);
  BuildBox(*stack_);
  BuildFoot(*stack_);
  Filter = new FilterPanel(desktop_, this);
  stack_->addWidget(Filter);
  const Wiring wiring(*this, desktop_.Messages);
  wiring.OnClick(cmdClearOutput, "cmdClearOutput_Click", [this] { cmdClearOutput_Click(); });
  wiring.OnClick(cmdTrySample, "cmdTrySample_Click", [this] { SampleWanted(); });
}

ResultPanel::~ResultPanel() {
  StopListening(*this);
}

void ResultPanel::BuildLabels(QBoxLayout& layout) {
  summary_ = new QWidget(this);
  lblNumberOfWords = MakeLabel("lblNumberOfWords", summary_);
  lblNumOccurrences = MakeLabel("lblNumOccurrences", summary_);
  lblTotalNumOccurrences = MakeLabel("lblTotalNumOccurrences", summary_);
  lblNumWordsExcluded = MakeLabel("lblNumWordsExcluded", summary_);
  // In a narrow window they take a second line; they never widen it.
  for (QLabel* label : Labels()) label->setWordWrap(true);
  auto* summary = Bare(new QGridLayout(summary_));
  summary->addWidget(lblNumberOfWords, 0, 0);
  summary->addWidget(lblTotalNumOccurrences, 0, 1);
  summary->addWidget(lblNumOccurrences, 1, 0);
  summary->addWidget(lblNumWordsExcluded, 1, 1);
  summary->setColumnStretch(0, 1);
  summary->setColumnStretch(1, 1);
  layout.addWidget(summary_);
  ShowSummary();
}

std::array<QLabel*, 4> ResultPanel::Labels() const {
  return {lblNumberOfWords, lblNumOccurrences, lblTotalNumOccurrences, lblNumWordsExcluded};
}

void ResultPanel::ShowSummary() {
  const std::array<QLabel*, 4> labels = Labels();
  summary_->setVisible(std::any_of(labels.begin(), labels.end(),
                                   [](const QLabel* label) { return !label->text().trimmed().isEmpty(); }));
}

void ResultPanel::BuildBox(QBoxLayout& layout) {
  txbOutput->setFont(WordsFont());
  txbOutput->setReadOnly(true);
  txbOutput->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txbOutput->setLineWrapMode(QPlainTextEdit::NoWrap);
  txbOutput->setUndoRedoEnabled(false);
  txbOutput->setTabChangesFocus(true);
  txbOutput->setPlaceholderText(
      Tr("The phrases will be listed here.\n\n"
         "1.  Choose the source of the text at the top left.\n"
         "2.  Set how many words a phrase has and how often it must occur.\n"
         "3.  Click on \"Count phrases\".\n\n"
         "F1 shows the help."));
  layout.addWidget(txbOutput, 1);
  cmdTrySample = MakeButton("cmdTrySample", Tr("Ta&ke a sample to try"), txbOutput->viewport());
  cmdTrySample->setToolTip(Tr("Count the phrases of a short text that comes with the program"));
  cmdTrySample->setCursor(Qt::ArrowCursor);
  // A button, though it stands among words in the box's own font. What is not set is the box's.
  QFont ordinary = font();
  ordinary.setFamily(ordinary.family());
  ordinary.setPointSizeF(ordinary.pointSizeF());
  cmdTrySample->setFont(ordinary);
  connect(txbOutput, &QPlainTextEdit::textChanged, this, [this] { ShowSample(); });
  ShowSample();
}

void ResultPanel::OfferSample(bool offered) {
  offersSample_ = offered;
  ShowSample();
}

void ResultPanel::ShowSample() {
  // Below the seven lines that the empty box shows.
  constexpr int kLinesAbove = 8;
  cmdTrySample->adjustSize();
  cmdTrySample->move(2 * txbOutput->frameWidth() + 4,
                     kLinesAbove * txbOutput->fontMetrics().lineSpacing() + 8);
  cmdTrySample->setVisible(offersSample_ && txbOutput->document()->isEmpty());
}

void ResultPanel::BuildFoot(QBoxLayout& layout) {
  cmdClearOutput = MakeButton("cmdClearOutput", Tr("Clear te&xtbox"), this);
  foot_ = new QHBoxLayout;
  foot_->addStretch(1);
  foot_->addWidget(cmdClearOutput);
  layout.addLayout(foot_);
}

QSize ResultPanel::minimumSizeHint() const {
  // The labels have room for a second line.
  constexpr int kLines = 15;
  const int width = QWidget::minimumSizeHint().width();
  int height = kLines * fontMetrics().lineSpacing();
  if (options_ != nullptr && options_->isVisibleTo(this))
    height += options_->heightForWidth(width) + stack_->spacing();
  return {width, height};
}

void ResultPanel::AddOptions(QWidget* options) {
  options_ = options;
  stack_->insertWidget(0, options);
}

void ResultPanel::ShowOptions(bool shown) {
  if (options_ != nullptr) options_->setVisible(shown);
}

void ResultPanel::AddBelow(QWidget* control) {
  foot_->insertWidget(0, control);
}

void ResultPanel::cmdClearOutput_Click() {
  output_.Clear();
  EnableClearButtons();
  Cleared();
}

ResultPanel::Contents ResultPanel::GetContents() const {
  return {.Text = txbOutput->toPlainText(),
          .Full = output_.Full(),
          .Kept = output_.Kept(),
          .Scrolled = Scrolled()};
}

void ResultPanel::PutBack(const Contents& contents) {
  output_.Restore(FromQt(QString(contents.Text).replace(u'\n', QLatin1String("\r\n"))), contents.Full,
                  contents.Kept);
  ScrollTo(contents.Scrolled);
}

std::array<int, 2> ResultPanel::Scrolled() const {
  return {txbOutput->verticalScrollBar()->value(), txbOutput->horizontalScrollBar()->value()};
}

void ResultPanel::ScrollTo(const std::array<int, 2>& scrolled) {
  txbOutput->verticalScrollBar()->setValue(scrolled[0]);
  txbOutput->horizontalScrollBar()->setValue(scrolled[1]);
}

void ResultPanel::ZoomText(int steps) {
  steps == 0 ? txbOutput->setFont(WordsFont()) : txbOutput->zoomIn(steps);
  ShowSample();
}

void ResultPanel::ShowLabels(const ResultLabels& labels) {
  lblNumberOfWords->setText(ToQt(labels.NumberOfWords));
  lblNumOccurrences->setText(ToQt(labels.NumOccurrences));
  lblTotalNumOccurrences->setText(ToQt(labels.TotalNumOccurrences));
  lblNumWordsExcluded->setText(ToQt(labels.NumWordsExcluded));
  ShowSummary();
}

void ResultPanel::ClearLabels() {
  for (QLabel* label : Labels()) label->clear();
  ShowSummary();
}

void ResultPanel::ShowFoundSoFar(uint64_t phrases) {
  lblNumberOfWords->setText(QString(Tr("Number of different phrases found so far: %1"))
                                .arg(ToQt(desktop_.Numbers.Grouped(static_cast<int64_t>(phrases)))));
  ShowSummary();
}

void ResultPanel::ShowFileKind(const std::string& text) {
  lblTotalNumOccurrences->setText(ToQt(text));
  ShowSummary();
}

void ResultPanel::EnableDisableButtons(bool enabled) {
  enabled_ = enabled;
  cmdClearOutput->setEnabled(enabled);
  cmdTrySample->setEnabled(enabled);
  EnableClearButtons();
}

void ResultPanel::EnableClearButtons() {
  if (enabled_) cmdClearOutput->setEnabled(!txbOutput->document()->isEmpty());
}

void ResultPanel::SuggestWidth() {
  const bool tooWide = txbOutput->horizontalScrollBar()->maximum() > 0;
  txbOutput->setToolTip(tooWide ? Tr("You may need to increase the width.") : QString());
}

std::vector<QWidget*> ResultPanel::TabOrder(QWidget* below) const {
  std::vector<QWidget*> order = {txbOutput, cmdTrySample, below, cmdClearOutput};
  const std::vector<QWidget*> filterOrder = Filter->TabOrder();
  order.insert(order.end(), filterOrder.begin(), filterOrder.end());
  return order;
}

}  // namespace korv
