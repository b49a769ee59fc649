#include <QImage>

#include "desktop/widgets/outline.h"

namespace korv {

void PaintOutline(const QByteArray& drawing, const QColor& colour, QPainter& painter, const QRect& rect) {
  // Scaled to the dots of the screen: a painter that scales would take a few of the mask's dots and leave out
  // those between.
  const qreal dotsPerUnit = painter.device()->devicePixelRatioF();
  QImage outline = QImage::fromData(drawing, "PNG")
                       .convertToFormat(QImage::Format_ARGB32_Premultiplied)
                       .scaled(rect.size() * dotsPerUnit, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  QPainter colouring(&outline);
  colouring.setCompositionMode(QPainter::CompositionMode_SourceIn);
  colouring.fillRect(outline.rect(), colour);
  colouring.end();
  painter.drawImage(rect, outline);
}

}  // namespace korv
