#pragma once

#include <QSizeF>
#include <string>

#include "desktop/results/pictures/picture.h"

namespace korv {

/// The bytes of an SVG that shows the picture in `size`, in units of the screen. Only in builds with Qt's
/// SVG.
std::string SvgOf(const Picture& picture, const PictureStyle& style, const QSizeF& size);

}  // namespace korv
