#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>

#include "desktop/results/pictures/picture_style.h"

namespace korv {

class PointPicture;

/// Numbers of a run as a drawing. Keeps what it draws, so that it can be drawn in any size, any number of
/// times, on the screen and into a file.
class Picture {
 public:
  virtual ~Picture() = default;

  virtual QString Title() const = 0;
  /// What is to be seen, for those who cannot see it, and for the file that the picture is saved in.
  virtual QString Description() const = 0;
  /// The height that the picture needs at this width, in the units of the painter.
  virtual double HeightFor(double width, const PictureStyle& style) const = 0;
  /// Draws the picture without its title. The painter has the style's font.
  virtual void Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const = 0;
  /// This picture, if it has points that can be picked.
  virtual const PointPicture* WithPoints() const { return nullptr; }
};

/// Draws title and picture, on the style's ground, into all of `area`.
void PaintWhole(const Picture& picture, QPainter& painter, const QRectF& area, const PictureStyle& style);
/// Where PaintWhole() draws the picture without its title.
QRectF AreaBelowTitle(const QRectF& area, const PictureStyle& style);
/// The height that PaintWhole() needs for all of a picture.
double WholeHeight(const Picture& picture, double width, const PictureStyle& style);

}  // namespace korv
