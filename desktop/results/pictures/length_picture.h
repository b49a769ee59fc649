#pragma once

#include <vector>

#include "base/number_format.h"
#include "desktop/results/pictures/picture.h"
#include "engine/analysis/list_profile.h"

namespace korv {

/// How many of the listed phrases, and of their occurrences, have so many words: two bars for each length,
/// in percent of all.
class LengthPicture final : public Picture {
 public:
  LengthPicture(const ListProfile& profile, NumberFormat numbers);

  QString Title() const override;
  QString Description() const override;
  double HeightFor(double width, const PictureStyle& style) const override;
  void Paint(QPainter& painter, const QRectF& area, const PictureStyle& style) const override;

 private:
  struct Bars {
    int Words;
    double PercentOfPhrases;
    double PercentOfOccurrences;
  };

  /// From the fewest words that a listed phrase has to the most.
  std::vector<Bars> bars_;
  NumberFormat numbers_;
};

}  // namespace korv
