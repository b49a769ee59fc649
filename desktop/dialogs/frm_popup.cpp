#include "desktop/dialogs/frm_popup.h"

#include <QEvent>
#include <QEventLoop>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

#include "base/translation.h"
#include "desktop/widgets/control_factory.h"

namespace korv {
namespace {

constexpr int kShortNotice = 2000;  // milliseconds
constexpr int kLongNotice = 4000;
constexpr int kQuestion = 15000;
constexpr int kMargin = 18;          // pixels, beside the message
constexpr qsizetype kLongFrom = 61;  // characters

}  // namespace

frmPopUp::frmPopUp(QWidget* owner)
    : QFrame(owner, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus), owner_(owner) {
  setObjectName(QStringLiteral("frmPopUp"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);

  lblMessage = Named(new QLabel(this), "lblMessage");
  lblMessage->setTextFormat(Qt::PlainText);
  lblMessage->setForegroundRole(QPalette::ToolTipText);
  lblMessage->setAlignment(Qt::AlignCenter);
  QFont font = lblMessage->font();
  font.setFamilies({QStringLiteral("Tahoma"), font.family()});
  lblMessage->setFont(font);
  lblMessage->installEventFilter(this);
  cmdYes = MakeButton("cmdYes", Tr("&Yes"), this);
  cmdNo = MakeButton("cmdNo", Tr("&No"), this);
  Timer1 = Named(new QTimer(this), "Timer1");
  Timer1->setSingleShot(true);
  Timer1->setInterval(kShortNotice);
  connect(Timer1, &QTimer::timeout, this, &frmPopUp::Timer1_Timer);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, 12, kMargin, 12);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  layout->addWidget(lblMessage);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdYes);
  buttons->addWidget(cmdNo);
  buttons->addStretch(1);
  layout->addLayout(buttons);
}

void frmPopUp::PopUp(const QString& message) {
  ShowOver(message, WindowArea(owner_), false);
}

void frmPopUp::PopUpCenterScreen(const QString& message) {
  ShowOver(message, ScreenArea(), false);
}

void frmPopUp::PopUpInForm(const QString& message, QWidget* form, const QString& title) {
  setWindowTitle(title);
  ShowOver(message, WindowArea(form), false);
}

bool frmPopUp::PopUpYesNo(const QString& message) {
  return Ask(message, WindowArea(owner_));
}

bool frmPopUp::PopUpYesNoCenterScreen(const QString& message) {
  return Ask(message, ScreenArea());
}

void frmPopUp::Timer1_Timer() {
  hide();
}

void frmPopUp::lblMessage_MouseUp() {
  Timer1->stop();
  hide();
}

bool frmPopUp::eventFilter(QObject* watched, QEvent* event) {
  // A question stays until it is answered.
  if (watched == lblMessage && event->type() == QEvent::MouseButtonRelease && cmdYes->isHidden()) {
    lblMessage_MouseUp();
    return true;
  }
  return QFrame::eventFilter(watched, event);
}

void frmPopUp::ShowOver(const QString& message, const QRect& area, bool asks) {
  lblMessage->setText(WithinScreen(message));
  cmdYes->setVisible(asks);
  cmdNo->setVisible(asks);
  const int duration = asks ? kQuestion : message.size() >= kLongFrom ? kLongNotice : kShortNotice;
  adjustSize();
  // The middle of the area's lower third.
  move(area.center().x() - width() / 2, area.top() + area.height() * 5 / 6 - height() / 2);
  show();
  raise();
  Timer1->start(duration);
}

QString frmPopUp::WithinScreen(const QString& message) const {
  const int room = ScreenArea().width() * 9 / 10 - 2 * kMargin;
  QStringList lines = message.split(u'\n');
  for (QString& line : lines) line = lblMessage->fontMetrics().elidedText(line, Qt::ElideMiddle, room);
  return lines.join(u'\n');
}

bool frmPopUp::Ask(const QString& message, const QRect& area) {
  QEventLoop loop;
  bool yes = false;
  const auto onYes = connect(cmdYes, &QPushButton::clicked, &loop, [&] {
    yes = true;
    loop.quit();
  });
  const auto onNo = connect(cmdNo, &QPushButton::clicked, &loop, &QEventLoop::quit);
  const auto onTime = connect(Timer1, &QTimer::timeout, &loop, &QEventLoop::quit);
  ShowOver(message, area, true);
  const QPointer<frmPopUp> alive(this);
  loop.exec();
  if (!alive) return false;
  for (const auto& connection : {onYes, onNo, onTime}) disconnect(connection);
  Timer1->stop();
  hide();
  return yes;
}

QRect frmPopUp::WindowArea(const QWidget* form) const {
  return form != nullptr && form->isVisible() ? form->frameGeometry() : ScreenArea();
}

QRect frmPopUp::ScreenArea() const {
  return owner_->screen()->availableGeometry();
}

}  // namespace korv
