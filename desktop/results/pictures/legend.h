#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>
#include <vector>

#include "desktop/results/pictures/picture_style.h"

namespace korv {

/// Draws what the colours stand for into the upper part of `area`, the first colour first, in as many lines
/// as it takes, and returns the rest of the area. Long names are shortened.
QRectF PaintLegend(QPainter& painter, const QRectF& area, const PictureStyle& style,
                   const std::vector<QString>& names);
/// The height that it takes.
double LegendHeight(double width, const PictureStyle& style, const std::vector<QString>& names);

}  // namespace korv
