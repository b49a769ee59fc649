#include "base/size_text.h"

#include <array>

namespace korv {

std::string FormatByteCount(uint64_t bytes, const NumberFormat& format) {
  constexpr uint64_t kKilo = 1024;
  constexpr uint64_t kMega = kKilo * kKilo;
  if (bytes < kKilo) return std::to_string(bytes) + " bytes";
  const bool kilo = bytes < kMega;
  const double units = static_cast<double>(bytes) / static_cast<double>(kilo ? kKilo : kMega);
  return format.GroupedDecimals(units, 2) + (kilo ? " Kb" : " Mb");
}

std::string FormatSize(uint64_t bytes, const NumberFormat& numbers) {
  constexpr uint64_t kStep = 1024;
  if (bytes < kStep) return std::to_string(bytes) + " bytes";
  static constexpr std::array kUnits = {" Kb", " Mb", " Gb"};
  double size = static_cast<double>(bytes) / kStep;
  size_t unit = 0;
  for (; size >= kStep && unit + 1 < kUnits.size(); ++unit) size /= kStep;
  return numbers.Decimals(size, 1) + kUnits[unit];
}

}  // namespace korv
