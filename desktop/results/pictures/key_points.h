#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/run/run.h"
#include "base/yielder.h"

namespace korv {

/// A phrase of a run that compares, as a point.
struct KeyPoint {
  PhraseIndex Phrase;
  std::string Text;
  uint32_t A;  ///< Its occurrences on each side.
  uint32_t B;
  // The values of the columns log_ratio and g2.
  double LogRatio;
  double G2;
};

struct KeyPoints {
  std::vector<KeyPoint> Points;  ///< Ascending by log ratio, then by |G2|, then by entry.
  uint64_t Listed = 0;           ///< Listed phrases that have both values, pictured or not.
};

/// More points are not told apart, and would take too long to draw.
inline constexpr size_t kMostKeyPoints = 5000;

/// The `most` listed phrases with the largest |G2|, the first entries among equals. `run` must compare.
/// Nothing when stopped. Cost: a few steps per entry on all cores and 16 bytes for each.
std::optional<KeyPoints> FindKeyPoints(const CountedRun& run, ComparisonBasis basis, Yielder& yielder,
                                       size_t most = kMostKeyPoints);

}  // namespace korv
