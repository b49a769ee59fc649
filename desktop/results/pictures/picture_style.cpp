#include "desktop/results/pictures/picture_style.h"

#include <algorithm>

#include "desktop/widgets/contrast.h"

namespace korv {
namespace {

// Neighbours in the list differ in lightness or in blueness, which every kind of colour vision sees.
constexpr std::array<QRgb, PictureStyle::kColours> kOnLight = {0xFF0072B2, 0xFFC44E00, 0xFF007F5F,
                                                               0xFF8A3C86, 0xFF5C4A00, 0xFF30353B};
constexpr std::array<QRgb, PictureStyle::kColours> kOnDark = {0xFF56B4E9, 0xFFE69F00, 0xFF2CC79B,
                                                              0xFFE092C5, 0xFFF0E442, 0xFFD5D9DE};

QColor Between(const QColor& a, const QColor& b, float share) {
  return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * share,
                          a.greenF() + (b.greenF() - a.greenF()) * share,
                          a.blueF() + (b.blueF() - a.blueF()) * share);
}

}  // namespace

PictureStyle StyleOf(const QPalette& palette, const QFont& font) {
  PictureStyle style;
  style.Ground = palette.color(QPalette::Base);
  style.Text = palette.color(QPalette::Text);
  style.Line = Between(style.Ground, style.Text, 0.45F);
  const bool light = ContrastBetween(style.Ground, Qt::black) > ContrastBetween(style.Ground, Qt::white);
  std::ranges::transform(light ? kOnLight : kOnDark, style.Colours.begin(),
                         [](QRgb rgb) { return QColor(rgb); });
  style.Font = font;
  return style;
}

}  // namespace korv
