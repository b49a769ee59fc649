#include "desktop/results/pictures/axes.h"

#include <QFontMetricsF>
#include <algorithm>

namespace korv {
namespace {

constexpr double kGap = 6;

double WidestOf(const std::vector<AxisMark>& marks, const QFontMetricsF& metrics) {
  double widest = 0;
  for (const AxisMark& mark : marks) widest = std::max(widest, metrics.horizontalAdvance(mark.Text));
  return widest;
}

}  // namespace

QRectF AxesInside(const QRectF& area, const PictureStyle& style, const Axes& axes) {
  const QFontMetricsF metrics(style.Font);
  const double line = metrics.height();
  const double left = WidestOf(axes.Up, metrics) + kGap;
  // The last mark across is centred at the end of its axis.
  const double right = axes.Across.empty() ? 0 : metrics.horizontalAdvance(axes.Across.back().Text) / 2;
  return area.adjusted(left, line + kGap, -right, -2 * line - 2 * kGap);
}

QRectF PaintAxes(QPainter& painter, const QRectF& area, const PictureStyle& style, const Axes& axes) {
  const QFontMetricsF metrics(style.Font);
  const double line = metrics.height();
  const QRectF inner = AxesInside(area, style, axes);
  const double left = inner.left() - area.left();

  painter.setPen(style.Text);
  painter.drawText(QRectF(area.left(), area.top(), area.width(), line), Qt::AlignLeft | Qt::TextSingleLine,
                   axes.UpTitle);
  painter.drawText(QRectF(inner.left(), area.bottom() - line, inner.width(), line),
                   Qt::AlignHCenter | Qt::TextSingleLine, axes.AcrossTitle);
  for (const AxisMark& mark : axes.Up) {
    const double y = inner.bottom() - mark.At * inner.height();
    painter.setPen(style.Text);
    painter.drawText(QRectF(area.left(), y - line / 2, left - kGap, line),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, mark.Text);
    painter.setPen(QPen(style.Line, mark.At == 0 ? 1 : 0.4));
    painter.drawLine(QPointF(inner.left(), y), QPointF(inner.right(), y));
  }
  for (const AxisMark& mark : axes.Across) {
    const double x = inner.left() + mark.At * inner.width();
    const double half = metrics.horizontalAdvance(mark.Text) / 2 + kGap;
    painter.setPen(style.Text);
    painter.drawText(QRectF(x - half, inner.bottom() + kGap, 2 * half, line),
                     Qt::AlignHCenter | Qt::TextSingleLine, mark.Text);
  }
  return inner;
}

}  // namespace korv
