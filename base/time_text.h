#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "base/number_format.h"

namespace korv {

/// A time as "4h 32m 22s" or "1d 0h 0m 5s": from the largest unit that is not zero down to the seconds.
/// Less than a second is "0s".
std::string FormatElapsedCompact(std::chrono::seconds elapsed);

/// A time in words: "1 day, 2 hours, 0 minutes and 1 second", from the largest unit that is not zero down.
std::string FormatElapsedLong(std::chrono::seconds elapsed);

/// A size with one decimal: "0 bytes", "1023 bytes", "230.2 Kb", up to Gb. Halves as NumberFormat has it.
std::string FormatSize(uint64_t bytes, const NumberFormat& numbers);

}  // namespace korv
