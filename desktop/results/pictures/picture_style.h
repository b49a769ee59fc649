#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <array>
#include <cstddef>

namespace korv {

/// How pictures look: the colours of the window's palette, and colours that tell phrases apart.
struct PictureStyle {
  static constexpr size_t kColours = 6;

  QColor Ground;
  QColor Text;
  QColor Line;  ///< Of axes and borders.
  /// Told apart by people with every kind of colour vision, and each with a contrast of at least 3 to 1 to
  /// the ground. Further phrases begin again with the first.
  std::array<QColor, kColours> Colours;
  QFont Font;

  const QColor& ColourOf(size_t series) const { return Colours[series % kColours]; }
};

/// For a ground that is light or dark as that of `palette` is.
PictureStyle StyleOf(const QPalette& palette, const QFont& font);

}  // namespace korv
