#include "desktop/results/pictures/picture_canvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "base/translation.h"
#include "desktop/results/pictures/point_picture.h"

namespace korv {
namespace {

constexpr QSize kSize(640, 320);
constexpr double kNear = 8;

}  // namespace

PictureCanvas::PictureCanvas(QWidget* parent) : QWidget(parent) {
  QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::MinimumExpanding);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

void PictureCanvas::Show(std::shared_ptr<const Picture> shown, const QString& instead) {
  picture_ = std::move(shown);
  instead_ = instead;
  picked_.reset();
  setFocusPolicy(Points() ? Qt::StrongFocus : Qt::NoFocus);
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
  if (picture_) {
    PaintWhole(*picture_, painter, rect(), style);
    if (hasFocus() && Points()) {
      painter.setPen(QPen(style.Text, 1, Qt::DotLine));
      painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }
    if (picked_) Points()->PaintRing(painter, AreaBelowTitle(rect(), style), style, *picked_);
    return;
  }
  painter.fillRect(rect(), style.Ground);
  painter.setPen(style.Text);
  painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, instead_);
}

void PictureCanvas::Pick(size_t point) {
  picked_ = point;
  setAccessibleDescription(Points()->TextOf(point));
  update();
  PickChanged();
}

void PictureCanvas::mousePressEvent(QMouseEvent* event) {
  const PointPicture* const points = Points();
  if (points == nullptr || event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  const PictureStyle style = Style();
  const auto point = points->PointAt(event->position(), kNear, AreaBelowTitle(rect(), style), style);
  if (point) Pick(*point);
}

void PictureCanvas::keyPressEvent(QKeyEvent* event) {
  const PointPicture* const points = Points();
  const size_t last = points ? points->PointCount() - 1 : 0;
  const int key = event->key();
  if (points == nullptr || event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier))
    return QWidget::keyPressEvent(event);
  if (key == Qt::Key_Home || (key == Qt::Key_Right && !picked_)) return Pick(0);
  if (key == Qt::Key_End || (key == Qt::Key_Left && !picked_)) return Pick(last);
  if (key == Qt::Key_Right) return Pick(std::min(*picked_ + 1, last));
  if (key == Qt::Key_Left) return Pick(*picked_ == 0 ? 0 : *picked_ - 1);
  QWidget::keyPressEvent(event);
}

}  // namespace korv
