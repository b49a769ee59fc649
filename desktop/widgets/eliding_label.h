#pragma once

#include <QLabel>

namespace korv {

/// One line of text that never widens its window: where there is no room for all of it, its middle is left
/// out and its tool tip holds the whole. Text that no window shows is empty.
class ElidingLabel final : public QLabel {
 public:
  explicit ElidingLabel(QWidget* parent);

  void setText(const QString& text);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SetToolTipWhereCut();
};

}  // namespace korv
