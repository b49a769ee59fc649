#pragma once

#include <QByteArray>
#include <QColor>
#include <QPainter>
#include <QRect>

namespace korv {

/// Paints one of our drawings, which are outlines in black, into `rect`, in `colour` instead. `drawing` is a
/// file of the resources (icons.qrc): the SVG itself, or in a build without Qt's SVG the mask that was made
/// of it (cmake/KorvIconMasks.cmake).
void PaintOutline(const QByteArray& drawing, const QColor& colour, QPainter& painter, const QRect& rect);

}  // namespace korv
