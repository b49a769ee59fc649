#include "desktop/widgets/accent.h"

#include <QApplication>
#include <QPushButton>
#include <QStyle>

#include "desktop/widgets/contrast.h"

namespace korv {
namespace {

// Styles draw buttons lighter than their colour, at the top most of all: this leaves 4.5 to 1 there.
constexpr double kReadable = 8.5;

bool DrawsInItsOwnColours(const QStyle& style) {
  return style.objectName().startsWith(QLatin1String("windows"), Qt::CaseInsensitive);
}

QColor ReadableGround(QColor ground, const QColor& text) {
  const bool lightText = ContrastBetween(text, Qt::black) > ContrastBetween(text, Qt::white);
  constexpr int kStep = 105;  // per cent
  for (int step = 0; step < 60 && ContrastBetween(ground, text) < kReadable; ++step)
    ground = lightText ? ground.darker(kStep) : ground.lighter(kStep);
  return ground;
}

}  // namespace

QPalette AccentPalette(QPalette palette) {
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    const QColor text = palette.color(group, QPalette::HighlightedText);
    palette.setColor(group, QPalette::Button,
                     ReadableGround(palette.color(QPalette::Active, QPalette::Highlight), text));
    palette.setColor(group, QPalette::ButtonText, text);
  }
  return palette;
}

QPalette::ColorRole Accentuate(QPushButton& button) {
  const bool accented = !DrawsInItsOwnColours(*button.style());
  button.setPalette(accented ? AccentPalette(QApplication::palette()) : QPalette());
  return accented ? QPalette::HighlightedText : QPalette::ButtonText;
}

}  // namespace korv
