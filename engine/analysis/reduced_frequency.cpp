#include "engine/analysis/reduced_frequency.h"

#include <algorithm>

namespace korv {

double AverageReducedFrequency(std::span<const uint64_t> positions, uint64_t words) {
  const double even = static_cast<double>(words) / static_cast<double>(positions.size());
  double sum = 0;
  uint64_t before = positions.back();
  for (const uint64_t position : positions) {
    const uint64_t distance = position > before ? position - before : position + words - before;
    sum += std::min(static_cast<double>(distance), even);
    before = position;
  }
  return sum / even;
}

}  // namespace korv
