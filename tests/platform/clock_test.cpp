#include "platform/posix/clock.hpp"

#include "support/scratch_folder.hpp"

#include <climits>
#include <ctime>

namespace varnholt::platform::posix {
namespace {

long offsetAt(std::time_t moment) {
  std::tm fields{};
  ::localtime_r(&moment, &fields);
  return fields.tm_gmtoff;
}

// The local time that a person reads off the clock leads back to its moment, also next to each change of the offset;
// where the clock was put back, the first of the two.
TEST(Clock, LeadsBackToTheMomentAroundEachChangeOfTheOffset) {
  for (const char* name : {"Europe/Copenhagen", "America/New_York", "Australia/Lord_Howe", "Pacific/Apia",
                           "Africa/Monrovia", "EST5EDT,M3.2.0,M11.1.0"}) {
    const test::ScopedVariable zone("TZ", name);
    const SystemClock clock;
    int changes = 0;
    const std::time_t hour = 3600, first = -500'000'000 / hour * hour;
    for (std::time_t at = first; at < 2'500'000'000; at += hour) {
      const long before = offsetAt(at), after = offsetAt(at + hour);
      if (before == after) continue;
      ++changes;
      for (std::time_t moment = at - 2 * hour; moment < at + 4 * hour; moment += 300) {
        const std::int64_t found = clock.fromLocal(clock.local({moment, 0})).seconds;
        const bool isSecondPass = before > after && found == moment - (before - after);
        ASSERT_TRUE(found == moment || (isSecondPass && offsetAt(moment) == after)) << moment << " gave " << found;
      }
    }
    EXPECT_GT(changes, 0) << name;
  }
}

TEST(Clock, CarriesFieldsThatAreOutOfRange) {
  const test::ScopedVariable zone("TZ", "UTC");
  const SystemClock clock;
  const auto at = [&](CalendarTime time) {
    const CalendarTime t = clock.local(clock.fromLocal(time));
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d (%d)", t.year, t.month, t.day, t.hour, t.minute,
                  t.second, t.weekday);
    return std::string(text);
  };
  EXPECT_EQ(at({2007, 3, 9, 14, 61, 0}), "2007-03-09 15:01:00 (5)");
  EXPECT_EQ(at({2007, 13, 1, 0, 0, 0}), "2008-01-01 00:00:00 (2)");
  EXPECT_EQ(at({2007, -11, 1, 0, 0, 0}), "2006-01-01 00:00:00 (0)");
  EXPECT_EQ(at({2008, 2, 30, 0, 0, -1}), "2008-02-29 23:59:59 (5)");
  EXPECT_EQ(at({1899, 12, 30, 0, 0, 0}), "1899-12-30 00:00:00 (6)");
}

TEST(Clock, TakesASkippedTimeAsIfTheClockHadNotBeenPutForward) {
  const test::ScopedVariable zone("TZ", "Europe/Copenhagen");
  const SystemClock clock;
  const CalendarTime shown = clock.local(clock.fromLocal({2007, 3, 25, 2, 30, 0}));
  EXPECT_EQ(shown.hour, 3);
  EXPECT_EQ(shown.minute, 30);
}

TEST(Clock, AnswersForAnyMoment) {
  const SystemClock clock;
  EXPECT_GT(clock.local({INT64_MAX, 0}).year, 1'000'000'000);
  EXPECT_LT(clock.local({INT64_MIN, 0}).year, -1'000'000'000);
  EXPECT_LE(std::abs(clock.now().seconds - std::time(nullptr)), 1);
}

}  // namespace
}  // namespace varnholt::platform::posix
