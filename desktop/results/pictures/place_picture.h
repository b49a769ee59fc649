#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "base/number_format.h"
#include "desktop/results/pictures/picture.h"

namespace korv {

/// Where in the words of a run phrases stand: a bar for each phrase, from the first word to the last, cut
/// into cells. The more of its occurrences a cell holds, the higher it is filled. Borders of files are ticks.
class PlacePicture final : public Picture {
 public:
  struct Row {
    QString Phrase;
    uint32_t Frequency;
    std::vector<uint32_t> Cells;  ///< Occurrences in each part of the words; the same number in all rows.
  };

  /// `borders`: where files begin, as shares of the words from 0 to 1, the first file apart. `words`: how
  /// many the bars stand for.
  PlacePicture(std::vector<Row> rows, std::vector<double> borders, uint64_t words, NumberFormat numbers);

  QString Title() const override;
  QString Description() const override;
  double HeightFor(double width, const PictureStyle& style) const override;
  void Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const override;

 private:
  std::vector<Row> rows_;
  std::vector<double> borders_;
  uint64_t words_;
  NumberFormat numbers_;
};

}  // namespace korv
