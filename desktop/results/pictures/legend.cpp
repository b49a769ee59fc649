#include "desktop/results/pictures/legend.h"

#include <QFontMetricsF>
#include <algorithm>

namespace korv {
namespace {

constexpr double kGap = 6;
constexpr double kBetween = 18;
constexpr double kMostWidth = 260;

struct LegendEntry {
  QRectF Square;
  QRectF Room;
  QString Text;
};

/// Where everything stands when the legend begins at `area`'s upper left corner.
std::vector<LegendEntry> Arranged(const QRectF& area, const PictureStyle& style,
                                  const std::vector<QString>& names) {
  const QFontMetricsF metrics(style.Font);
  const double line = metrics.height();
  const double square = metrics.ascent() * 0.8;
  std::vector<LegendEntry> entries;
  QPointF at = area.topLeft();
  for (const QString& name : names) {
    const QString text =
        metrics.elidedText(name, Qt::ElideMiddle, std::min(kMostWidth, area.width() - square));
    const double width = square + kGap + metrics.horizontalAdvance(text);
    if (at.x() > area.left() && at.x() + width > area.right()) at = {area.left(), at.y() + line + kGap / 2};
    entries.push_back({QRectF(at.x(), at.y() + (line - square) / 2, square, square),
                       QRectF(at.x() + square + kGap, at.y(), width - square, line), text});
    at.rx() += width + kBetween;
  }
  return entries;
}

}  // namespace

QRectF PaintLegend(QPainter& painter, const QRectF& area, const PictureStyle& style,
                   const std::vector<QString>& names) {
  const std::vector<LegendEntry> entries = Arranged(area, style, names);
  for (size_t k = 0; k < entries.size(); ++k) {
    painter.fillRect(entries[k].Square, style.ColourOf(k));
    painter.setPen(style.Text);
    painter.drawText(entries[k].Room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, entries[k].Text);
  }
  return area.adjusted(0, LegendHeight(area.width(), style, names), 0, 0);
}

double LegendHeight(double width, const PictureStyle& style, const std::vector<QString>& names) {
  const std::vector<LegendEntry> entries = Arranged(QRectF(0, 0, width, 0), style, names);
  return entries.empty() ? 0 : entries.back().Room.bottom() + kGap;
}

}  // namespace korv
