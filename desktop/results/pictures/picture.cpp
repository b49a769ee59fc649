#include "desktop/results/pictures/picture.h"

#include <QFontMetricsF>

namespace korv {
namespace {

constexpr double kMargin = 12;

QFont TitleFont(const PictureStyle& style) {
  QFont font = style.Font;
  font.setBold(true);
  return font;
}

double TitleHeight(const PictureStyle& style) {
  return QFontMetricsF(TitleFont(style)).height() + kMargin;
}

}  // namespace

QRectF AreaBelowTitle(const QRectF& area, const PictureStyle& style) {
  return area.adjusted(kMargin, kMargin + TitleHeight(style), -kMargin, -kMargin);
}

void PaintWhole(const Picture& picture, QPainter& painter, const QRectF& area, const PictureStyle& style) {
  painter.fillRect(area, style.Ground);
  const QRectF inner = area.adjusted(kMargin, kMargin, -kMargin, -kMargin);
  painter.setPen(style.Text);
  painter.setFont(TitleFont(style));
  painter.drawText(inner, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, picture.Title());
  painter.setFont(style.Font);
  picture.Paint(painter, AreaBelowTitle(area, style), style);
}

double WholeHeight(const Picture& picture, double width, const PictureStyle& style) {
  return 2 * kMargin + TitleHeight(style) + picture.HeightFor(width - 2 * kMargin, style);
}

}  // namespace korv
