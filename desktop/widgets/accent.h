#pragma once

#include <QPalette>

class QPushButton;

namespace korv {

/// `palette` for the one button that stands out: in the colour of what is selected, made darker or lighter
/// until the caption has a contrast of 4.5 to 1 on the button as it is drawn. A disabled button looks like
/// any other.
QPalette AccentPalette(QPalette palette);

/// Gives the button that palette, made from the application's. Not where the style draws buttons in colours
/// of its own, on which the caption would not be seen. The role that caption and icon have then in the
/// application's palette.
QPalette::ColorRole Accentuate(QPushButton& button);

}  // namespace korv
