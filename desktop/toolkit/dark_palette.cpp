#include "desktop/toolkit/color_scheme.h"

namespace korv {

QPalette DarkPalette() {
  const QColor window(53, 53, 56);
  const QColor base(33, 33, 36);
  const QColor text(232, 232, 232);
  const QColor disabled(140, 140, 140);
  QPalette palette(window);
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::ToolTipBase, base);
  palette.setColor(QPalette::ToolTipText, text);
  palette.setColor(QPalette::PlaceholderText, disabled);
  palette.setColor(QPalette::Text, text);
  palette.setColor(QPalette::Button, window);
  palette.setColor(QPalette::ButtonText, text);
  palette.setColor(QPalette::BrightText, Qt::white);
  palette.setColor(QPalette::Link, QColor(110, 180, 225));
  palette.setColor(QPalette::Highlight, QColor(42, 110, 150));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, disabled);
  }
  return palette;
}

}  // namespace korv
