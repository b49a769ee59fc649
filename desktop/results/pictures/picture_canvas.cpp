#include "desktop/results/pictures/picture_canvas.h"

#include <QPainter>
#include <cmath>
#include <utility>

#include "base/translation.h"

namespace korv {
namespace {

constexpr QSize kSize(640, 320);

}  // namespace

PictureCanvas::PictureCanvas(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::MinimumExpanding);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void PictureCanvas::Show(std::shared_ptr<const Picture> shown, const QString& instead) {
  picture_ = std::move(shown);
  instead_ = instead;
  setAccessibleName(picture_ ? picture_->Title() : Tr("Picture"));
  setAccessibleDescription(picture_ ? picture_->Description() : instead_);
  updateGeometry();
  update();
}

PictureStyle PictureCanvas::Style() const {
  return StyleOf(palette(), font());
}

QSize PictureCanvas::sizeHint() const {
  return {kSize.width(), heightForWidth(kSize.width())};
}

int PictureCanvas::heightForWidth(int width) const {
  return picture_ ? static_cast<int>(std::ceil(WholeHeight(*picture_, width, Style()))) : kSize.height();
}

void PictureCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const PictureStyle style = Style();
  if (picture_) return PaintWhole(*picture_, painter, rect(), style);
  painter.fillRect(rect(), style.Ground);
  painter.setPen(style.Text);
  painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, instead_);
}

}  // namespace korv
