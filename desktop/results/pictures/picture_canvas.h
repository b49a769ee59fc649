#pragma once

#include <QSize>
#include <QString>
#include <QWidget>
#include <memory>

#include "desktop/results/pictures/picture.h"

namespace korv {

/// Shows a picture, or a line of text where there is none. As high as the picture needs at its width.
class PictureCanvas final : public QWidget {
 public:
  explicit PictureCanvas(QWidget* parent);

  /// `instead` is shown without a picture.
  void Show(std::shared_ptr<const Picture> shown, const QString& instead = {});
  const Picture* Shown() const { return picture_.get(); }
  PictureStyle Style() const;

  QSize sizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::shared_ptr<const Picture> picture_;
  QString instead_;
};

}  // namespace korv
