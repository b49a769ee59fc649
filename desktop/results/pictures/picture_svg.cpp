#include "desktop/results/pictures/picture_svg.h"

#include <QBuffer>
#include <QPainter>
#include <QSvgGenerator>

namespace korv {

std::string SvgOf(const Picture& picture, const PictureStyle& style, const QSizeF& size) {
  constexpr int kResolution = 96;  // dots per inch: a unit of the screen is one of an SVG
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QSvgGenerator svg;
  svg.setOutputDevice(&buffer);
  svg.setResolution(kResolution);
  svg.setSize(size.toSize());
  svg.setViewBox(QRectF(QPointF(), size));
  svg.setTitle(picture.Title());
  svg.setDescription(picture.Description());
  QPainter painter(&svg);
  painter.setFont(style.Font);
  PaintWhole(picture, painter, QRectF(QPointF(), size), style);
  painter.end();
  return buffer.data().toStdString();
}

}  // namespace korv
