#pragma once

#include <QStyle>
#include <QToolButton>

namespace korv {

/// A tool button that may have a menu. Styles draw the mark of a menu into the corner, where the toolkit's
/// own button has its caption.
class MenuButton final : public QToolButton {
 public:
  using QToolButton::QToolButton;

  QSize sizeHint() const override {
    const int mark =
        menu() == nullptr ? 0 : style()->pixelMetric(QStyle::PM_MenuButtonIndicator, nullptr, this);
    return QToolButton::sizeHint() + QSize(mark, 0);
  }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

}  // namespace korv
