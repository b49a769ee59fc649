#include "desktop/widgets/placement.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace korv {

void CentreOver(QWidget& window, const QWidget& over) {
  const QRect room = over.screen()->availableGeometry();
  // The frame that the system will draw is as wide as that of the other window.
  const QRect inside = over.geometry();
  const QRect outside = over.frameGeometry();
  const QMargins frame(inside.left() - outside.left(), inside.top() - outside.top(),
                       outside.right() - inside.right(), outside.bottom() - inside.bottom());
  const QSize size = window.size().grownBy(frame).boundedTo(room.size());
  QRect place = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, outside);
  place.moveRight(std::min(place.right(), room.right()));
  place.moveBottom(std::min(place.bottom(), room.bottom()));
  place.moveLeft(std::max(place.left(), room.left()));
  place.moveTop(std::max(place.top(), room.top()));
  window.setGeometry(place.marginsRemoved(frame));
}

}  // namespace korv
