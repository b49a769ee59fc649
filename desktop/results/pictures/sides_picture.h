#pragma once

#include "base/number_format.h"
#include "desktop/results/pictures/axes.h"
#include "desktop/results/pictures/key_points.h"
#include "desktop/results/pictures/point_picture.h"

namespace korv {

/// Phrases of two sides as points: the more frequent one is in A, the further to the right; the surer it is
/// that there is a difference, the higher, in powers of ten. Where |G2| is below 1, all stand at the bottom.
class SidesPicture final : public PointPicture {
 public:
  SidesPicture(KeyPoints points, NumberFormat numbers);

  QString Title() const override;
  QString Description() const override;
  double HeightFor(double width, const PictureStyle& style) const override;
  void Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const override;

  size_t PointCount() const override { return points_.Points.size(); }
  std::optional<size_t> PointAt(const QPointF& at, double within, const QRectF& area,
                                const PictureStyle& style) const override;
  void PaintRing(QPainter& painter, const QRectF& area, const PictureStyle& style,
                 size_t point) const override;
  PhraseIndex PhraseOf(size_t point) const override { return points_.Points[point].Phrase; }
  QString TextOf(size_t point) const override;

 private:
  Axes MarkedAxes() const;
  /// What is left for the axes below the lines of text.
  QRectF AxesArea(const QRectF& area, const PictureStyle& style) const;
  QPointF PlaceOf(const KeyPoint& point, const QRectF& inner) const;
  QString CountText() const;

  KeyPoints points_;
  NumberFormat numbers_;
  // The ends of the axes: log ratios from -mostRatio_ to mostRatio_, |G2| from 1 to mostTest_.
  double mostRatio_ = 1;
  double mostTest_ = 10;
};

}  // namespace korv
