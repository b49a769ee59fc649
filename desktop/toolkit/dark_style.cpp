#include "desktop/toolkit/dark_style.h"

#include <QStyleOption>

namespace korv {

DarkStyle::DarkStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void DarkStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (button == nullptr || (element != PE_IndicatorCheckBox && element != PE_IndicatorRadioButton)) {
    return QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
  QStyleOptionButton outlined(*button);
  // Nothing but the outline takes its colour from the window's, and it darkens that.
  outlined.palette.setColor(QPalette::Window, button->palette.color(QPalette::WindowText).darker(110));
  QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
}

}  // namespace korv
