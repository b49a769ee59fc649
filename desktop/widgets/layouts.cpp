#include "desktop/widgets/layouts.h"

#include <QFontDatabase>

namespace korv {

void MakeQuiet(QLabel* label) {
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * 0.92);
  label->setFont(font);
}

QLabel* MakeHint(const char* text, QWidget* parent) {
  auto* label = new QLabel(QString::fromUtf8(text), parent);
  MakeQuiet(label);
  label->setWordWrap(true);
  return label;
}

void KeepPlaceWhenHidden(QWidget* control) {
  QSizePolicy policy = control->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  control->setSizePolicy(policy);
}

QFont WordsFont() {
  QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setFamilies({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono"), font.family()});
  font.setStyleHint(QFont::Monospace);
  return font;
}

}  // namespace korv
