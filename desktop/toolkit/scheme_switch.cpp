#include "desktop/toolkit/scheme_switch.h"

#include <QApplication>
#include <QStyle>
#include <QStyleFactory>

#include "desktop/toolkit/color_scheme.h"
#include "desktop/toolkit/dark_style.h"

namespace korv {

SchemeSwitch::SchemeSwitch() : light_(QApplication::palette()), lightStyle_(QApplication::style()->name()) {}

bool SchemeSwitch::CameUpDark() const {
  return light_.color(QPalette::Window).lightness() < 128;
}

void SchemeSwitch::Turn(bool dark) {
  if (dark == dark_) return;
  dark_ = dark;
  // The light style need not take its colours from the palette.
  QApplication::setStyle(dark ? new DarkStyle : QStyleFactory::create(lightStyle_));
  QApplication::setPalette(dark ? DarkPalette() : light_);
}

}  // namespace korv
