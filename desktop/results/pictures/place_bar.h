#pragma once

#include <QPainter>
#include <QRectF>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "desktop/results/pictures/picture_style.h"
#include "engine/analysis/phrase_spread.h"

namespace korv {

/// Into how many cells the words of a run are cut to show where a phrase stands.
inline constexpr size_t kPlaceCells = 100;

/// A bar from the first word to the last, cut into cells: the more of the occurrences a cell holds, the
/// higher it is filled.
void PaintPlaceBar(QPainter& painter, const QRectF& bar, const std::vector<uint32_t>& cells,
                   const PictureStyle& style, const QColor& colour);

/// A tick for each border, a share of the width.
void PaintBorders(QPainter& painter, const QRectF& area, const std::vector<double>& borders,
                  const PictureStyle& style);

/// TextBorders(); none where there are so many that their ticks would be one grey line.
std::vector<double> ShownBorders(const Corpus& corpus, const TakenWords& words);

}  // namespace korv
