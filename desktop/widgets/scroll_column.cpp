#include "desktop/widgets/scroll_column.h"

#include <QEvent>
#include <QScrollBar>

namespace korv {

namespace {

constexpr int kLeastLines = 6;

}  // namespace

ScrollColumn::ScrollColumn(QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
}

QSize ScrollColumn::sizeHint() const {
  return widget() == nullptr ? QScrollArea::sizeHint() : WithBar(widget()->sizeHint());
}

QSize ScrollColumn::minimumSizeHint() const {
  if (widget() == nullptr) return QScrollArea::minimumSizeHint();
  return WithBar({widget()->minimumSizeHint().width(), kLeastLines * fontMetrics().lineSpacing()});
}

bool ScrollColumn::eventFilter(QObject* watched, QEvent* event) {
  // What the controls need has changed; the toolkit's own area does not ask again.
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::eventFilter(watched, event);
}

QSize ScrollColumn::WithBar(const QSize& size) const {
  return {size.width() + verticalScrollBar()->sizeHint().width(), size.height()};
}

}  // namespace korv
