#include <QSvgRenderer>

#include "desktop/widgets/outline.h"

namespace korv {

void PaintOutline(const QByteArray& drawing, const QColor& colour, QPainter& painter, const QRect& rect) {
  QByteArray coloured = drawing;
  coloured.replace("#000", colour.name().toLatin1());
  QSvgRenderer(coloured).render(&painter, rect);
}

}  // namespace korv
