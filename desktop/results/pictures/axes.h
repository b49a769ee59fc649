#pragma once

#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <functional>
#include <vector>

#include "desktop/results/pictures/picture_style.h"

namespace korv {

/// A mark on an axis: where, as a share of its length from 0 to 1, and what stands there.
struct AxisMark {
  double At;
  QString Text;
};

/// Two axes with their marks and what they measure.
struct Axes {
  std::vector<AxisMark> Across;
  std::vector<AxisMark> Up;
  QString AcrossTitle;
  QString UpTitle;
};

/// Draws the axes into `area`, with a fine line for each mark of the one that goes up, and returns what is
/// left between them.
QRectF PaintAxes(QPainter& painter, const QRectF& area, const PictureStyle& style, const Axes& axes);
/// The same rectangle without drawing.
QRectF AxesInside(const QRectF& area, const PictureStyle& style, const Axes& axes);

}  // namespace korv
