#include "desktop/widgets/eliding_label.h"

#include <QPainter>
#include <QStyle>

#include "desktop/toolkit/plain_tip.h"

namespace korv {

ElidingLabel::ElidingLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidingLabel::setText(const QString& text) {
  QLabel::setText(text);
  SetToolTipWhereCut();
}

QSize ElidingLabel::minimumSizeHint() const {
  return {0, QLabel::minimumSizeHint().height()};
}

void ElidingLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(),
                        shown, foregroundRole());
}

void ElidingLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  SetToolTipWhereCut();
}

void ElidingLabel::SetToolTipWhereCut() {
  setToolTip(sizeHint().width() > width() ? PlainTip(text()) : QString());
}

}  // namespace korv
