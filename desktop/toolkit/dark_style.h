#pragma once

#include <QProxyStyle>

namespace korv {

/// Fusion for dark palettes. It draws outlines darker than the window, and on dark ground an empty check box
/// or option would be hardly seen; here these stand out as they do on light ground.
class DarkStyle final : public QProxyStyle {
 public:
  DarkStyle();
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace korv
