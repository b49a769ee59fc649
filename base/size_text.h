#pragma once

#include <cstdint>
#include <string>

#include "base/number_format.h"

namespace korv {

/// "512 bytes", "1,234.57 Kb", "3.00 Mb": two decimals, units of 1024.
std::string FormatByteCount(uint64_t bytes, const NumberFormat& format);
/// A size with one decimal: "0 bytes", "1023 bytes", "230.2 Kb", up to Gb. Halves as NumberFormat has it.
std::string FormatSize(uint64_t bytes, const NumberFormat& numbers);

}  // namespace korv
