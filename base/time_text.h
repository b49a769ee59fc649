#pragma once

#include <chrono>
#include <string>

namespace korv {

/// A time as "4h 32m 22s" or "1d 0h 0m 5s": from the largest unit that is not zero down to the seconds.
/// Less than a second is "0s".
std::string FormatElapsedCompact(std::chrono::seconds elapsed);

/// A time in words: "1 day, 2 hours, 0 minutes and 1 second", from the largest unit that is not zero down.
std::string FormatElapsedLong(std::chrono::seconds elapsed);

/// A time of day and its date in UTC as ISO 8601 has them: "2026-11-22T09:30:00Z".
std::string FormatUtc(std::chrono::system_clock::time_point time);

}  // namespace korv
