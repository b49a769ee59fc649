#pragma once

#include <QScrollArea>

namespace korv {

/// Controls that scroll up and down where the window is too low for them, and never to the side: it is as
/// wide as they and a scroll bar need, whatever they come to hold.
class ScrollColumn final : public QScrollArea {
 public:
  explicit ScrollColumn(QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QSize WithBar(const QSize& size) const;
};

}  // namespace korv
