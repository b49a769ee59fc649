#include "base/time_text.h"

#include <algorithm>

namespace korv {

namespace {

struct Parts {
  int64_t Days, Hours, Minutes, Seconds;
};

Parts Split(std::chrono::seconds elapsed) {
  const int64_t all = std::max<int64_t>(elapsed.count(), 0);
  return {all / 86400, all / 3600 % 24, all / 60 % 60, all % 60};
}

std::string Counted(int64_t count, const char* unit) {
  return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
}

/// At least two digits.
std::string TwoDigits(int64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::string FormatElapsedCompact(std::chrono::seconds elapsed) {
  const Parts parts = Split(elapsed);
  std::string text;
  if (parts.Days > 0) text += std::to_string(parts.Days) + "d ";
  if (!text.empty() || parts.Hours > 0) text += std::to_string(parts.Hours) + "h ";
  if (!text.empty() || parts.Minutes > 0) text += std::to_string(parts.Minutes) + "m ";
  return text + std::to_string(parts.Seconds) + "s";
}

std::string FormatElapsedLong(std::chrono::seconds elapsed) {
  const Parts parts = Split(elapsed);
  std::string text;
  if (parts.Days > 0) text += Counted(parts.Days, "day") + ", ";
  if (!text.empty() || parts.Hours > 0) text += Counted(parts.Hours, "hour") + ", ";
  if (!text.empty() || parts.Minutes > 0) text += Counted(parts.Minutes, "minute") + " and ";
  return text + Counted(parts.Seconds, "second");
}

std::string FormatUtc(std::chrono::system_clock::time_point time) {
  using namespace std::chrono;
  const auto day = floor<days>(time);
  const year_month_day date(day);
  const Parts parts = Split(floor<seconds>(time - day));
  return std::to_string(static_cast<int>(date.year())) + "-" +
         TwoDigits(static_cast<unsigned>(date.month())) + "-" + TwoDigits(static_cast<unsigned>(date.day())) +
         "T" + TwoDigits(parts.Hours) + ":" + TwoDigits(parts.Minutes) + ":" + TwoDigits(parts.Seconds) + "Z";
}

}  // namespace korv
