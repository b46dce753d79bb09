#include "platform/posix/clock.hpp"

#include "support/scratch_folder.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <ctime>
#include <random>

namespace varnholt::platform::posix {
namespace {

class ClockInZone : public testing::TestWithParam<const char*> {
 protected:
  test::ScopedVariable zone{"TZ", GetParam()};
};

void expectAsLibrary(const SystemClock& clock, std::int64_t seconds) {
  const std::time_t moment = seconds;
  std::tm expected{};
  ASSERT_TRUE(::localtime_r(&moment, &expected));
  const CalendarTime time = clock.local({seconds, 0});
  ASSERT_EQ(time.year, expected.tm_year + 1900) << seconds;
  ASSERT_EQ(time.month, expected.tm_mon + 1) << seconds;
  ASSERT_EQ(time.day, expected.tm_mday) << seconds;
  ASSERT_EQ(time.hour, expected.tm_hour) << seconds;
  ASSERT_EQ(time.minute, expected.tm_min) << seconds;
  ASSERT_EQ(time.second, expected.tm_sec) << seconds;
  ASSERT_EQ(time.weekday, expected.tm_wday) << seconds;
}

TEST_P(ClockInZone, TellsLocalTimeAsTheLibraryDoes) {
  const SystemClock clock;
  std::mt19937_64 random(7);
  std::uniform_int_distribution<std::int64_t> years1600To2400(-11'676'096'000, 13'569'465'600);
  for (int i = 0; i < 5'000; ++i)
    expectAsLibrary(clock, years1600To2400(random));
}

// The local time that a person reads off the clock leads back to its moment, also next to each change of the offset;
// where the clock was put back, the first of the two.
TEST_P(ClockInZone, LeadsBackToTheMomentAroundEachChangeOfTheOffset) {
  const SystemClock clock;
  const auto offsetAt = [](std::time_t moment) {
    std::tm fields{};
    ::localtime_r(&moment, &fields);
    return fields.tm_gmtoff;
  };
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
  EXPECT_EQ(changes > 0, std::string(GetParam()) != "UTC");
}

TEST_P(ClockInZone, FindsTheMomentOfALocalTime) {
  const SystemClock clock;
  std::mt19937_64 random(11);
  std::uniform_int_distribution<std::int64_t> near(-2'208'988'800, 7'258'118'400);
  for (int i = 0; i < 20'000; ++i) {
    const std::int64_t seconds = near(random);
    const CalendarTime time = clock.local({seconds, 0});
    const std::int64_t found = clock.fromLocal(time).seconds;
    // A local time that comes twice is answered by its first moment.
    ASSERT_LE(found, seconds);
    ASSERT_GE(found, seconds - 2 * 3600);
    const CalendarTime again = clock.local({found, 0});
    ASSERT_EQ(again.hour, time.hour);
    ASSERT_EQ(again.second, time.second);
  }
}

INSTANTIATE_TEST_SUITE_P(All, ClockInZone,
                         testing::Values("UTC", "Europe/Copenhagen", "America/New_York", "Australia/Lord_Howe",
                                         "Asia/Kathmandu", "Africa/Casablanca", "Pacific/Apia", "Africa/Monrovia",
                                         "EST5EDT,M3.2.0,M11.1.0"),
                         [](const auto& test) {
                           std::string name = test.param;
                           for (char& c : name)
                             if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                           return name;
                         });

TEST(Clock, CarriesFieldsThatAreOutOfRange) {
  const test::ScopedVariable zone("TZ", "UTC");
  const SystemClock clock;
  const auto at = [&](CalendarTime time) {
    const CalendarTime t = clock.local(clock.fromLocal(time));
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour, t.minute,
                  t.second);
    return std::string(text);
  };
  EXPECT_EQ(at({2007, 3, 9, 14, 61, 0}), "2007-03-09 15:01:00");
  EXPECT_EQ(at({2007, 13, 1, 0, 0, 0}), "2008-01-01 00:00:00");
  EXPECT_EQ(at({2007, 0, 31, 0, 0, 0}), "2006-12-31 00:00:00");
  EXPECT_EQ(at({2007, -11, 1, 0, 0, 0}), "2006-01-01 00:00:00");
  EXPECT_EQ(at({2008, 2, 30, 0, 0, -1}), "2008-02-29 23:59:59");
  EXPECT_EQ(at({1899, 12, 30, 0, 0, 0}), "1899-12-30 00:00:00");
}

TEST(Clock, TakesASkippedTimeAsIfTheClockHadNotBeenPutForward) {
  const test::ScopedVariable zone("TZ", "Europe/Copenhagen");
  const SystemClock clock;
  const CalendarTime shown = clock.local(clock.fromLocal({2007, 3, 25, 2, 30, 0}));
  EXPECT_EQ(shown.hour, 3);
  EXPECT_EQ(shown.minute, 30);
  // The hour that came twice in October: its first half, in summer time.
  EXPECT_EQ(clock.fromLocal({2007, 10, 28, 2, 30, 0}).seconds, 1193531400);
}

TEST(Clock, AnswersForAnyMoment) {
  const test::ScopedVariable zone("TZ", "Europe/Copenhagen");
  const SystemClock clock;
  EXPECT_GT(clock.local({INT64_MAX, 0}).year, 1'000'000'000);
  EXPECT_LT(clock.local({INT64_MIN, 0}).year, -1'000'000'000);
  EXPECT_EQ(clock.local({-1, 999'999'999}).year, 1970);
  EXPECT_LE(std::abs(clock.now().seconds - std::time(nullptr)), 1);
}

}  // namespace
}  // namespace varnholt::platform::posix
