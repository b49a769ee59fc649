#pragma once

#include <QSize>
#include <QString>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "desktop/results/pictures/picture.h"

namespace korv {

/// Shows a picture, or a line of text where there is none. As high as the picture needs at its width. Points
/// of a picture are picked by a click near them, and by Left, Right, Home and End.
class PictureCanvas final : public QWidget {
 public:
  explicit PictureCanvas(QWidget* parent);

  /// `instead` is shown without a picture.
  void Show(std::shared_ptr<const Picture> shown, const QString& instead = {});
  std::function<void()> PickChanged = [] {};  ///< The user picked a point.

  const Picture* Shown() const { return picture_.get(); }
  /// The number of the point that is picked; none in a new picture.
  std::optional<size_t> Picked() const { return picked_; }
  PictureStyle Style() const;

  QSize sizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const PointPicture* Points() const { return picture_ ? picture_->WithPoints() : nullptr; }
  void Pick(size_t point);

  std::shared_ptr<const Picture> picture_;
  QString instead_;
  std::optional<size_t> picked_;
};

}  // namespace korv
