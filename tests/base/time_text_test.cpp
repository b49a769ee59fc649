#include "base/time_text.h"

#include <gtest/gtest.h>

namespace korv {
namespace {

using std::chrono::seconds;

constexpr int64_t kMinute = 60;
constexpr int64_t kHour = 60 * kMinute;
constexpr int64_t kDay = 24 * kHour;

struct ElapsedCase {
  int64_t Elapsed;
  const char* Compact;
  const char* LongForm;
};

TEST(FormatElapsed, BeginsWithTheLargestUnitThatIsNotZero) {
  const ElapsedCase cases[] = {
      {0, "0s", "0 seconds"},
      {1, "1s", "1 second"},
      {59, "59s", "59 seconds"},
      {kMinute, "1m 0s", "1 minute and 0 seconds"},
      {2 * kMinute + 1, "2m 1s", "2 minutes and 1 second"},
      {kHour, "1h 0m 0s", "1 hour, 0 minutes and 0 seconds"},
      {2 * kHour - 1, "1h 59m 59s", "1 hour, 59 minutes and 59 seconds"},
      {10 * kDay - 1, "9d 23h 59m 59s", "9 days, 23 hours, 59 minutes and 59 seconds"},
      {90 * kDay, "90d 0h 0m 0s", "90 days, 0 hours, 0 minutes and 0 seconds"},
      {4 * kHour + 32 * kMinute + 22, "4h 32m 22s", "4 hours, 32 minutes and 22 seconds"},
      {kDay + 5, "1d 0h 0m 5s", "1 day, 0 hours, 0 minutes and 5 seconds"},
      {2 * kDay + kHour + kMinute + 1, "2d 1h 1m 1s", "2 days, 1 hour, 1 minute and 1 second"},
      {-5, "0s", "0 seconds"},
  };
  for (const ElapsedCase& c : cases) {
    EXPECT_EQ(FormatElapsedCompact(seconds(c.Elapsed)), c.Compact);
    EXPECT_EQ(FormatElapsedLong(seconds(c.Elapsed)), c.LongForm);
  }
}

TEST(FormatUtc, HasDateAndTimeWithTwoDigitsEach) {
  using namespace std::chrono;
  EXPECT_EQ(FormatUtc(system_clock::time_point()), "1970-01-01T00:00:00Z");
  EXPECT_EQ(FormatUtc(sys_days{2026y / 11 / 22} + 9h + 5min + 59s + 999ms), "2026-11-22T09:05:59Z");
  EXPECT_EQ(FormatUtc(sys_days{1969y / 12 / 31} + 23h), "1969-12-31T23:00:00Z");
}

}  // namespace
}  // namespace korv
