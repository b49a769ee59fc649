#pragma once

#include <QIcon>
#include <QPalette>

namespace korv {

/// The icon of that name (freedesktop.org's, "document-open") in the desktop's theme. Where the theme has
/// none, our own drawing of it in the colour of the text, which is seen in dark palettes too. Null where
/// there is neither.
QIcon NamedIcon(const char* name);
/// Our own drawing, whatever the theme has, in the colour that `role` has in the application's palette.
QIcon DrawnIcon(const char* name, QPalette::ColorRole role = QPalette::WindowText);

}  // namespace korv
