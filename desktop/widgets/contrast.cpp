#include "desktop/widgets/contrast.h"

#include <algorithm>
#include <cmath>

namespace korv {
namespace {

double Linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

}  // namespace

double ContrastBetween(const QColor& a, const QColor& b) {
  const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
  return (light + 0.05) / (dark + 0.05);
}

}  // namespace korv
