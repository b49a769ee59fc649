#pragma once

#include <vector>

#include "base/number_format.h"
#include "desktop/results/pictures/picture.h"
#include "engine/analysis/list_profile.h"

namespace korv {

/// The frequency of the listed phrases against their rank, both axes in powers of ten.
class RankPicture final : public Picture {
 public:
  RankPicture(std::vector<FrequencyStep> frequencies, NumberFormat numbers);

  QString Title() const override;
  QString Description() const override;
  double HeightFor(double width, const PictureStyle& style) const override;
  void Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const override;

 private:
  std::vector<FrequencyStep> frequencies_;
  uint64_t phrases_ = 0;
  NumberFormat numbers_;
};

}  // namespace korv
