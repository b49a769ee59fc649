#pragma once

#include <QColor>

namespace korv {

/// How far apart two colours are in lightness: 1 for equal ones, 21 for black and white (WCAG 2.1).
double ContrastBetween(const QColor& a, const QColor& b);

}  // namespace korv
