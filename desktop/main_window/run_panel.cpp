#include "desktop/main_window/run_panel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "base/time_text.h"
#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/accent.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/icons.h"
#include "desktop/widgets/layouts.h"
#include "desktop/widgets/wiring.h"

namespace korv {
namespace {

constexpr int kSecond = 1000;       // milliseconds
constexpr int kProgressTick = 100;  // milliseconds
constexpr std::array<const char*, 4> kTwirler = {"\xE2\x97\x90", "\xE2\x97\x93", "\xE2\x97\x91",
                                                 "\xE2\x97\x92"};

QString TimeText(const std::string& elapsed) {
  return ToQt(Fill(Tr("Time elapsed: %1"), {elapsed}));
}

}  // namespace

RunPanel::RunPanel(const Desktop& desktop, QWidget* parent) : QWidget(parent) {
  auto* layout = Bare(new QVBoxLayout(this));
  cmdCountPhrases = MakeButton("cmdCountPhrases", Tr("&Count phrases"), this);
  QFont large = cmdCountPhrases->font();
  large.setPointSizeF(large.pointSizeF() * 1.25);
  large.setBold(true);
  cmdCountPhrases->setFont(large);
  cmdCountPhrases->setMinimumHeight(40);
  captionRole_ = Accentuate(*cmdCountPhrases);
  SetCountPhrasesCaption(Caption::Count);
  layout->addWidget(cmdCountPhrases);
  BuildProgress(*layout);
  BuildCommands(*layout);
  Timer2 = Named(new QTimer(this), "Timer2");
  Timer2->setInterval(kSecond);
  tmrProgress = Named(new QTimer(this), "tmrProgress");
  tmrProgress->setInterval(kProgressTick);
  Connect(desktop.Messages);
}

RunPanel::~RunPanel() {
  StopListening(*this);
}

void RunPanel::BuildProgress(QBoxLayout& layout) {
  prgProgress = Described(Named(new QProgressBar(this), "prgProgress"), Tr("Progress of the count"));
  prgProgress->setRange(0, kWholeProgress);
  prgProgress->setValue(0);
  prgProgress->setFormat(QStringLiteral("%p %"));
  prgProgress->setTextVisible(false);
  // Some styles want room for chunks that they do not draw: more than the column has.
  prgProgress->setMinimumWidth(prgProgress->fontMetrics().horizontalAdvance(QStringLiteral("100 % 100 %")));
  lblTwirler = Named(new QLabel(this), "lblTwirler");
  lblTwirler->setFixedWidth(lblTwirler->fontMetrics().height());
  lblTimeElapsed = MakeLabel("lblTimeElapsed", this);
  lblTimeElapsed->setMinimumWidth(lblTimeElapsed->fontMetrics().horizontalAdvance(TimeText("00h 00m 00s")));
  auto* progress = new QHBoxLayout;
  progress->addWidget(prgProgress, 1);
  progress->addWidget(lblTwirler);
  progress->addWidget(lblTimeElapsed);
  prgProgress->hide();
  for (QWidget* control : std::initializer_list<QWidget*>{prgProgress, lblTwirler, lblTimeElapsed}) {
    KeepPlaceWhenHidden(control);
  }
  layout.addLayout(progress);
}

void RunPanel::BuildCommands(QBoxLayout& layout) {
  cmdSaveState = MakeButton("cmdSaveState", Tr("Save settin&gs"), this);
  cmdHelp = MakeButton("cmdHelp", Tr("Hel&p"), this);
  cmdQuit = MakeButton("cmdQuit", Tr("&Quit"), this);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(cmdSaveState);
  buttons->addStretch(1);
  buttons->addWidget(cmdHelp);
  buttons->addWidget(cmdQuit);
  layout.addLayout(buttons);
}

void RunPanel::Connect(Messages& messages) {
  const Wiring wiring(*this, messages);
  wiring.OnClick(cmdCountPhrases, "cmdCountPhrases_Click", [this] { Commands.CountPhrases(); });
  wiring.OnClick(cmdSaveState, "cmdSaveState_Click", [this] { Commands.SaveState(); });
  wiring.OnClick(cmdHelp, "cmdHelp_Click", [this] { Commands.Help(); });
  wiring.OnClick(cmdQuit, "cmdQuit_Click", [this] { Commands.Quit(); });
  connect(Timer2, &QTimer::timeout, this, Guarded(messages, "Timer2_Timer", [this] { Commands.Second(); }));
  connect(tmrProgress, &QTimer::timeout, this,
          Guarded(messages, "tmrProgress_Timer", [this] { Commands.Progress(); }));
}

void RunPanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
    captionRole_ = Accentuate(*cmdCountPhrases);
}

void RunPanel::SetCountPhrasesCaption(Caption caption) {
  // A theme's icons are made for the window's colours.
  cmdCountPhrases->setIcon(
      DrawnIcon(caption == Caption::Stop ? "process-stop" : "media-playback-start", captionRole_));
  switch (caption) {
    case Caption::Count:
      return cmdCountPhrases->setText(Tr("&Count phrases"));
    case Caption::Stop:
      return cmdCountPhrases->setText(Tr("sto&p"));
    case Caption::Processing:
      return cmdCountPhrases->setText(Tr("Processing . . . "));
  }
}

void RunPanel::Begin() {
  prgProgress->setValue(0);
  prgProgress->setTextVisible(true);
  prgProgress->show();
  Timer2->start();
  tmrProgress->start();
}

void RunPanel::End() {
  Timer2->stop();
  tmrProgress->stop();
  prgProgress->setRange(0, kWholeProgress);
  prgProgress->setValue(0);
  prgProgress->setTextVisible(false);
  prgProgress->hide();
  lblTwirler->clear();
}

void RunPanel::ShowTimeElapsed(std::chrono::seconds elapsed) {
  lblTimeElapsed->setText(TimeText(FormatElapsedCompact(elapsed)));
  lblTimeElapsed->setToolTip(ToQt(FormatElapsedLong(elapsed)));
  lblTimeElapsed->show();
}

void RunPanel::ShowProgress(int value) {
  prgProgress->setRange(0, value < 0 ? 0 : kWholeProgress);
  if (value >= 0) prgProgress->setValue(std::max(value, prgProgress->value()));
}

void RunPanel::TurnTwirler() {
  twirlerFrame_ = (twirlerFrame_ + 1) % kTwirler.size();
  lblTwirler->setText(QString::fromUtf8(kTwirler[twirlerFrame_]));
}

void RunPanel::EnableDisableButtons(bool enabled) {
  for (QPushButton* button : {cmdCountPhrases, cmdSaveState, cmdHelp}) button->setEnabled(enabled);
}

std::vector<QWidget*> RunPanel::TabOrder() const {
  return {cmdCountPhrases, cmdSaveState, cmdHelp, cmdQuit};
}

}  // namespace korv
