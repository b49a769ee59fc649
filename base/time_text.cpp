#include "base/time_text.h"

#include <algorithm>

#include "base/translation.h"

namespace korv {

namespace {

struct Parts {
  uint64_t Days, Hours, Minutes, Seconds;
};

Parts Split(std::chrono::seconds elapsed) {
  const auto all = static_cast<uint64_t>(std::max<int64_t>(elapsed.count(), 0));
  return {all / 86400, all / 3600 % 24, all / 60 % 60, all % 60};
}

std::string Counted(const char* pattern, uint64_t number) {
  return Fill(pattern, {std::to_string(number)});
}

/// At least two digits.
std::string TwoDigits(uint64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::string FormatElapsedCompact(std::chrono::seconds elapsed) {
  const Parts parts = Split(elapsed);
  const std::string days = std::to_string(parts.Days);
  const std::string hours = std::to_string(parts.Hours);
  const std::string minutes = std::to_string(parts.Minutes);
  const std::string seconds = std::to_string(parts.Seconds);
  // Translators: days, hours, minutes and seconds.
  if (parts.Days > 0) return Fill(Tr("%1d %2h %3m %4s"), {days, hours, minutes, seconds});
  if (parts.Hours > 0) return Fill(Tr("%1h %2m %3s"), {hours, minutes, seconds});
  if (parts.Minutes > 0) return Fill(Tr("%1m %2s"), {minutes, seconds});
  return Fill(Tr("%1s"), {seconds});
}

std::string FormatElapsedLong(std::chrono::seconds elapsed) {
  const Parts parts = Split(elapsed);
  const std::string days = Counted(TrCount("%1 day", "%1 days", parts.Days), parts.Days);
  const std::string hours = Counted(TrCount("%1 hour", "%1 hours", parts.Hours), parts.Hours);
  const std::string minutes = Counted(TrCount("%1 minute", "%1 minutes", parts.Minutes), parts.Minutes);
  const std::string seconds = Counted(TrCount("%1 second", "%1 seconds", parts.Seconds), parts.Seconds);
  if (parts.Days > 0) return Fill(Tr("%1, %2, %3 and %4"), {days, hours, minutes, seconds});
  if (parts.Hours > 0) return Fill(Tr("%1, %2 and %3"), {hours, minutes, seconds});
  return parts.Minutes > 0 ? Fill(Tr("%1 and %2"), {minutes, seconds}) : seconds;
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
