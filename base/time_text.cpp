#include "base/time_text.h"

#include <algorithm>

namespace korv {

namespace {

struct Parts {
  int64_t days, hours, minutes, seconds;
};

Parts Split(std::chrono::seconds elapsed) {
  const int64_t all = std::max<int64_t>(elapsed.count(), 0);
  return {all / 86400, all / 3600 % 24, all / 60 % 60, all % 60};
}

std::string Counted(int64_t count, const char* unit) {
  return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

}  // namespace

std::string FormatElapsedCompact(std::chrono::seconds elapsed) {
  const Parts parts = Split(elapsed);
  std::string text;
  if (parts.days > 0) text += std::to_string(parts.days) + "d ";
  if (!text.empty() || parts.hours > 0) text += std::to_string(parts.hours) + "h ";
  if (!text.empty() || parts.minutes > 0) text += std::to_string(parts.minutes) + "m ";
  return text + std::to_string(parts.seconds) + "s";
}

std::string FormatElapsedLong(std::chrono::seconds elapsed) {
  const Parts parts = Split(elapsed);
  std::string text;
  if (parts.days > 0) text += Counted(parts.days, "day") + ", ";
  if (!text.empty() || parts.hours > 0) text += Counted(parts.hours, "hour") + ", ";
  if (!text.empty() || parts.minutes > 0) text += Counted(parts.minutes, "minute") + " and ";
  return text + Counted(parts.seconds, "second");
}

}  // namespace korv
