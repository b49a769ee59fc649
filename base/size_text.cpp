#include "base/size_text.h"

#include <array>

#include "base/translation.h"

namespace korv {

namespace {

std::string BytesText(uint64_t bytes) {
  // English has "1 bytes" too.
  return Fill(TrCount("%1 bytes", "%1 bytes", bytes), {std::to_string(bytes)});
}

}  // namespace

std::string FormatByteCount(uint64_t bytes, const NumberFormat& format) {
  constexpr uint64_t kKilo = 1024;
  constexpr uint64_t kMega = kKilo * kKilo;
  if (bytes < kKilo) return BytesText(bytes);
  const bool kilo = bytes < kMega;
  const double units = static_cast<double>(bytes) / static_cast<double>(kilo ? kKilo : kMega);
  return Fill(kilo ? Tr("%1 Kb") : Tr("%1 Mb"), {format.GroupedDecimals(units, 2)});
}

std::string FormatSize(uint64_t bytes, const NumberFormat& numbers) {
  constexpr uint64_t kStep = 1024;
  if (bytes < kStep) return BytesText(bytes);
  static constexpr std::array kUnits = {TrLater("%1 Kb"), TrLater("%1 Mb"), TrLater("%1 Gb")};
  double size = static_cast<double>(bytes) / kStep;
  size_t unit = 0;
  for (; size >= kStep && unit + 1 < kUnits.size(); ++unit) size /= kStep;
  return Fill(Tr(kUnits[unit]), {numbers.Decimals(size, 1)});
}

}  // namespace korv
