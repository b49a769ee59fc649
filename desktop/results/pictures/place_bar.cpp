#include "desktop/results/pictures/place_bar.h"

#include <algorithm>

#include "engine/corpus/corpus.h"

namespace korv {

namespace {

/// A cell with one occurrence is seen beside one with a thousand.
constexpr double kLeastFilled = 0.18;
constexpr size_t kMostBorders = 200;

}  // namespace

void PaintPlaceBar(QPainter& painter, const QRectF& bar, const std::vector<uint32_t>& cells,
                   const PictureStyle& style, const QColor& colour) {
  const uint32_t most = cells.empty() ? 0 : *std::ranges::max_element(cells);
  const double width = bar.width() / static_cast<double>(std::max<size_t>(cells.size(), 1));
  for (size_t cell = 0; cell < cells.size(); ++cell) {
    if (cells[cell] == 0) continue;
    const double share = static_cast<double>(cells[cell]) / most;
    const double height = std::max(kLeastFilled, share) * bar.height();
    const double left = bar.left() + static_cast<double>(cell) * width;
    painter.fillRect(QRectF(left, bar.bottom() - height, width, height), colour);
  }
  painter.setPen(style.Line);
  painter.drawRect(bar);
}

void PaintBorders(QPainter& painter, const QRectF& area, const std::vector<double>& borders,
                  const PictureStyle& style) {
  painter.setPen(style.Line);
  for (const double border : borders) {
    const double x = area.left() + border * area.width();
    painter.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
  }
}

std::vector<double> ShownBorders(const Corpus& corpus, const TakenWords& words) {
  if (corpus.Sources.size() > kMostBorders) return {};
  return TextBorders(corpus, words);
}

}  // namespace korv
