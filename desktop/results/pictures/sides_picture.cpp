#include "desktop/results/pictures/sides_picture.h"

#include <QFontMetricsF>
#include <QPolygonF>
#include <algorithm>
#include <cmath>
#include <utility>

#include "base/translation.h"
#include "desktop/results/pictures/ticks.h"
#include "desktop/toolkit/text.h"

namespace korv {
namespace {

constexpr double kHeightOfWidth = 0.6;
constexpr double kLeastHeight = 260;
constexpr int kMarksOfSide = 4;
constexpr double kMark = 3.5;  // From the middle of a dot to its edge.
constexpr double kRing = 7;
constexpr double kGap = 6;

/// Whose phrase it is: 1 of A, -1 of B, 0 where it is as frequent in both.
int SideOf(double logRatio) {
  return logRatio > 0 ? 1 : logRatio < 0 ? -1 : 0;
}

/// A dot of A, a triangle of B, or a square.
void PaintMark(QPainter& painter, const PictureStyle& style, const QPointF& at, int side) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(side > 0 ? style.ColourOf(0) : side < 0 ? style.ColourOf(1) : style.Text);
  if (side > 0) return painter.drawEllipse(at, kMark, kMark);
  if (side < 0)
    painter.drawPolygon(QPolygonF({at + QPointF(0, -1.4 * kMark), at + QPointF(1.2 * kMark, kMark),
                                   at + QPointF(-1.2 * kMark, kMark)}));
  else
    painter.drawRect(QRectF(at - QPointF(kMark, kMark) * 0.8, at + QPointF(kMark, kMark) * 0.8));
}

/// What stands at the left and at the right, each with its mark.
void PaintNames(QPainter& painter, const QRectF& line, const PictureStyle& style) {
  const double room = 2 * kMark + kGap;
  const QPointF middle(kMark, line.height() / 2);
  painter.setPen(style.Text);
  painter.drawText(line.adjusted(room, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, Tr("More frequent in B"));
  painter.drawText(line.adjusted(0, 0, -room, 0), Qt::AlignRight | Qt::AlignVCenter,
                   Tr("More frequent in A"));
  PaintMark(painter, style, line.topLeft() + middle, -1);
  PaintMark(painter, style, line.topRight() + QPointF(-middle.x(), middle.y()), 1);
}

}  // namespace

SidesPicture::SidesPicture(KeyPoints points, NumberFormat numbers)
    : points_(std::move(points)), numbers_(std::move(numbers)) {
  double ratio = 0;
  double test = 0;
  for (const KeyPoint& point : points_.Points) {
    ratio = std::max(ratio, std::abs(point.LogRatio));
    test = std::max(test, std::abs(point.G2));
  }
  mostRatio_ = RoundTicks(ratio, kMarksOfSide).back();
  mostTest_ = PowersOfTen(test).back();
}

QString SidesPicture::Title() const {
  return Tr("Log ratio and G2");
}

QString SidesPicture::CountText() const {
  return QString(Tr("%1 of %2 phrases"))
      .arg(ToQt(numbers_.Grouped(std::ssize(points_.Points))),
           ToQt(numbers_.Grouped(static_cast<int64_t>(points_.Listed))));
}

QString SidesPicture::Description() const {
  const auto count = [this](int side) {
    return ToQt(numbers_.Grouped(std::ranges::count_if(
        points_.Points, [side](const KeyPoint& point) { return SideOf(point.LogRatio) == side; })));
  };
  return QString(Tr("Points, the log ratio across and |G2| up: %1, those with the largest |G2|. More "
                    "frequent in A: %2, "
                    "in B: %3."))
      .arg(CountText(), count(1), count(-1));
}

QString SidesPicture::TextOf(size_t point) const {
  const KeyPoint& of = points_.Points[point];
  return QString(Tr("\u201c%1\u201d: a %2, b %3, log ratio %4, G2 %5"))
      .arg(ToQt(of.Text), ToQt(numbers_.Grouped(of.A)), ToQt(numbers_.Grouped(of.B)),
           ToQt(numbers_.GroupedDecimals(of.LogRatio, 2)), ToQt(numbers_.GroupedDecimals(of.G2, 2)));
}

double SidesPicture::HeightFor(double width, const PictureStyle&) const {
  return std::max(kLeastHeight, width * kHeightOfWidth);
}

Axes SidesPicture::MarkedAxes() const {
  Axes axes{.Across = {}, .Up = {}, .AcrossTitle = Tr("Log ratio"), .UpTitle = Tr("|G2|")};
  const std::vector<double> ratios = RoundTicks(mostRatio_, kMarksOfSide);
  const auto mark = [&](double ratio) {
    axes.Across.push_back(
        {(ratio / mostRatio_ + 1) / 2, ToQt(numbers_.Grouped(static_cast<int64_t>(ratio)))});
  };
  for (size_t k = ratios.size(); --k > 0;) mark(-ratios[k]);
  for (const double ratio : ratios) mark(ratio);
  for (const double test : PowersOfTen(mostTest_))
    axes.Up.push_back(
        {std::log10(test) / std::log10(mostTest_), ToQt(numbers_.Grouped(static_cast<int64_t>(test)))});
  return axes;
}

QRectF SidesPicture::AxesArea(const QRectF& area, const PictureStyle& style) const {
  return area.adjusted(0, 2 * (QFontMetricsF(style.Font).height() + kGap), 0, 0);
}

QPointF SidesPicture::PlaceOf(const KeyPoint& point, const QRectF& inner) const {
  const double up = std::log10(std::max(1.0, std::abs(point.G2))) / std::log10(mostTest_);
  return {inner.left() + (point.LogRatio / mostRatio_ + 1) / 2 * inner.width(),
          inner.bottom() - up * inner.height()};
}

void SidesPicture::Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const {
  const double line = QFontMetricsF(style.Font).height();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(style.Text);
  painter.drawText(QRectF(area.left(), area.top(), area.width(), line), Qt::AlignLeft | Qt::TextSingleLine,
                   CountText());
  PaintNames(painter, QRectF(area.left(), area.top() + line + kGap, area.width(), line), style);
  const QRectF inner = PaintAxes(painter, AxesArea(area, style), style, MarkedAxes());
  painter.setPen(QPen(style.Line, 1));
  painter.drawLine(QPointF(inner.center().x(), inner.top()), QPointF(inner.center().x(), inner.bottom()));
  for (const KeyPoint& point : points_.Points)
    PaintMark(painter, style, PlaceOf(point, inner), SideOf(point.LogRatio));
  painter.restore();
}

std::optional<size_t> SidesPicture::PointAt(const QPointF& at, double within, const QRectF& area,
                                            const PictureStyle& style) const {
  const QRectF inner = AxesInside(AxesArea(area, style), style, MarkedAxes());
  std::optional<size_t> nearest;
  for (size_t k = 0; k < points_.Points.size(); ++k) {
    const QPointF away = PlaceOf(points_.Points[k], inner) - at;
    const double distance = std::hypot(away.x(), away.y());
    if (distance > within || (nearest && distance == within)) continue;
    nearest = k;
    within = distance;
  }
  return nearest;
}

void SidesPicture::PaintRing(QPainter& painter, const QRectF& area, const PictureStyle& style,
                             size_t point) const {
  const QRectF inner = AxesInside(AxesArea(area, style), style, MarkedAxes());
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(style.Text, 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(PlaceOf(points_.Points[point], inner), kRing, kRing);
  painter.restore();
}

}  // namespace korv
