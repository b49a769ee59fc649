#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>
#include <cstddef>
#include <optional>

#include "desktop/results/pictures/picture.h"
#include "engine/counting/phrase_table.h"

namespace korv {

/// A picture with points that can be picked, each of them a phrase. Points are numbered from 0 on in the
/// order in which keys go through them.
class PointPicture : public Picture {
 public:
  const PointPicture* WithPoints() const final { return this; }

  virtual size_t PointCount() const = 0;
  /// The point nearest to `at` in a picture painted into `area`, at most `within` away.
  virtual std::optional<size_t> PointAt(const QPointF& at, double within, const QRectF& area,
                                        const PictureStyle& style) const = 0;
  /// A ring around the point, over a picture painted into `area`.
  virtual void PaintRing(QPainter& painter, const QRectF& area, const PictureStyle& style,
                         size_t point) const = 0;
  virtual PhraseIndex PhraseOf(size_t point) const = 0;
  /// The phrase with its numbers.
  virtual QString TextOf(size_t point) const = 0;
};

}  // namespace korv
