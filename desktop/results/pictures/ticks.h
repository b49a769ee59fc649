#pragma once

#include <vector>

namespace korv {

/// Round numbers from 0 on for an axis that has to reach `most`: at least two, at most `count` + 1, equally
/// far apart, the last one at least `most`. Steps are 1, 2 or 5 times a power of ten, and whole numbers.
std::vector<double> RoundTicks(double most, int count);

/// 1, 10, 100, ... up to the first one that is at least `most`; at least two of them.
std::vector<double> PowersOfTen(double most);

}  // namespace korv
