#include "desktop/results/pictures/ticks.h"

#include <algorithm>
#include <cmath>

namespace korv {

std::vector<double> RoundTicks(double most, int count) {
  const double least = std::max(most, 1.0) / std::max(count, 1);
  const double power = std::pow(10, std::floor(std::log10(least)));
  double step = 10 * power;
  for (const double factor : {5.0, 2.0, 1.0})
    if (factor * power >= least) step = factor * power;
  step = std::max(step, 1.0);
  std::vector<double> ticks = {0};
  while (ticks.back() < most || ticks.size() < 2) ticks.push_back(static_cast<double>(ticks.size()) * step);
  return ticks;
}

std::vector<double> PowersOfTen(double most) {
  std::vector<double> powers = {1, 10};
  while (powers.back() < most) powers.push_back(powers.back() * 10);
  return powers;
}

}  // namespace korv
