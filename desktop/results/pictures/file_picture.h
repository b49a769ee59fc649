#pragma once

#include <QString>
#include <cstdint>
#include <vector>

#include "base/number_format.h"
#include "desktop/results/pictures/picture.h"

namespace korv {

/// In which files phrases stand: a line for each of the files that hold most of them, with a stretch of its
/// bar for every phrase.
class FilePicture final : public Picture {
 public:
  struct Row {
    QString File;
    std::vector<uint32_t> Occurrences;  ///< Of each phrase, in their order.
  };

  /// `rows` in the order in which they are drawn; `further`: files with one of the phrases that are not among
  /// them.
  FilePicture(std::vector<QString> phrases, std::vector<Row> rows, uint64_t further, NumberFormat numbers);

  QString Title() const override;
  QString Description() const override;
  double HeightFor(double width, const PictureStyle& style) const override;
  void Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const override;

 private:
  QString FurtherText() const;

  std::vector<QString> phrases_;
  std::vector<Row> rows_;
  uint64_t further_;
  NumberFormat numbers_;
};

}  // namespace korv
