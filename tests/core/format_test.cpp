#include "core/format.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace varnholt::core {
namespace {

const platform::RegionalFormats english{};
const platform::RegionalFormats german{.thousandsSign = ".", .decimalSign = ",", .twelveHourClock = false};

TEST(NumberPictures, WriteWholeNumbersWithoutLoss) {
  struct Case {
    const char* picture;
    std::int64_t value;
    const char* text;
  };
  const Case cases[] = {
      {"#,#", 0, ""},
      {"###,###", 0, ""},
      {"#,#", 7, "7"},
      {"#,#", 999, "999"},
      {"#,#", 1000, "1,000"},
      {"###,###", 123456789, "123,456,789"},
      {"###,##0", 0, "0"},
      {"#,#", -1234, "-1,234"},
      {"#,#", 9007199254740993, "9,007,199,254,740,993"},
      {"#,#", INT64_MIN, "-9,223,372,036,854,775,808"},
      {"000,000,000,000", 1234, "000,000,001,234"},
      {"000,000,000,000", 0, "000,000,000,000"},
      {"000,000,000,000", 1234567890123456, "1,234,567,890,123,456"},
      {"000000000000000", 39150, "000000000039150"},
      {"000000", 12, "000012"},
      {"0", 0, "0"},
      {"#", 0, ""},
      {"#0", 5, "5"},
      {"0.00", 5, "5.00"},
      {"#.##", 5, "5."},
      {"[ #,# MB ]", 12345, "[ 12,345 MB ]"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(format(c.picture, c.value, english), c.text) << c.picture << " of " << c.value;
  EXPECT_EQ(format("#,#", UINT64_MAX, english), "18,446,744,073,709,551,615");
  EXPECT_EQ(format("#,#", 5, english), "5");
}

TEST(NumberPictures, RoundHalfAwayFromZero) {
  struct Case {
    const char* picture;
    double value;
    const char* text;
  };
  const Case cases[] = {
      {"#,#", 0.4, ""},
      {"#,#", 0.5, "1"},
      {"#,#", 2.5, "3"},
      {"#,#", -2.5, "-3"},
      {"#,#", -0.4, ""},
      {"0", -0.4, "0"},
      {"0.0", 0.05, "0.1"},
      {"0.00", 1.005, "1.01"},
      {"0.00", 0.004, "0.00"},
      {"0.00", 0.005, "0.01"},
      {"0.00", 9.999, "10.00"},
      {"#,#", 999.5, "1,000"},
      {"#.##", 0.25, ".25"},
      {"#,##0.0#", 1234.5, "1,234.5"},
      {"0.000", 1e-9, "0.000"},
      {"#,#", 1e15, "1,000,000,000,000,000"},
      {"0", 1e300 * 0, "0"},
      {"#,#", 0.0, ""},
      {"#,#", 1234567.8, "1,234,568"},
      {"#,#", std::numeric_limits<double>::quiet_NaN(), ""},
      {"#,#", std::numeric_limits<double>::infinity(), ""},
  };
  for (const Case& c : cases)
    EXPECT_EQ(format(c.picture, c.value, english), c.text) << c.picture << " of " << c.value;
  EXPECT_EQ(format("0", 1e30, english).size(), 31u);
}

TEST(NumberPictures, UseTheRegionsSigns) {
  EXPECT_EQ(format("#,##0.00", 1234.5, german), "1.234,50");
  EXPECT_EQ(format("000,000,000,000", 1234, german), "000.000.001.234");
  const platform::RegionalFormats french{.thousandsSign = "\u202F", .decimalSign = ",", .twelveHourClock = false};
  EXPECT_EQ(format("#,#", 1234567, french), "1\u202F234\u202F567");
}

TEST(NumberPictures, AreWrittenQuicklyAsTheyAreInGeneral) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 20'000; ++i) {
    const std::uint64_t value = random() >> (random() % 64);
    std::string one, twelve;
    appendGrouped(value, 1, ",", one);
    appendGrouped(value, 12, ",", twelve);
    ASSERT_EQ(one, format("#,##0", value, english));
    ASSERT_EQ(twelve, format("000,000,000,000", value, english));
  }
}

TEST(NumberPictures, SurviveAnything) {
  std::mt19937 random(5);
  const std::string_view marks = "0#,.x%-";
  for (int i = 0; i < 20'000; ++i) {
    std::string picture;
    for (unsigned length = random() % 12; length > 0; --length)
      picture += marks[random() % marks.size()];
    const double value = std::ldexp(static_cast<double>(random()) - 2e9, static_cast<int>(random() % 200) - 100);
    const std::string text = format(picture, value, english);
    ASSERT_LE(text.size(), 120u) << picture << " of " << value;
  }
}

TEST(DatePictures, TellMonthsFromMinutes) {
  const platform::CalendarTime afternoon{2007, 3, 9, 14, 5, 7, 5}, midnight{1999, 12, 31, 0, 59, 0, 5};
  struct Case {
    const char *picture, *afternoon, *midnight;
  };
  const Case cases[] = {
      {"mm-dd-yy  hh:mm  AM/PM", "03-09-07  02:05  PM", "12-31-99  12:59  AM"},
      {"dd-mm-yy  hh:mm", "09-03-07  14:05", "31-12-99  00:59"},
      {"hh:nn:ss AM/PM", "02:05:07 PM", "12:59:00 AM"},
      {"dd-mm-yyyy", "09-03-2007", "31-12-1999"},
      {"hhmm", "1405", "0059"},
      {"hh  mm", "14  03", "00  12"},
      {"hh:mm mm", "14:05 03", "00:59 12"},
      {"nn mm", "05 03", "59 12"},
      {"d m y h", "d m y h", "d m y h"},
      {"", "", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(formatDate(c.picture, afternoon), c.afternoon) << c.picture;
    EXPECT_EQ(formatDate(c.picture, midnight), c.midnight) << c.picture;
  }
  EXPECT_EQ(formatDate("hh AM/PM", {2007, 3, 9, 12, 0, 0, 5}), "12 PM");
  EXPECT_EQ(formatDate("hh AM/PM", {2007, 3, 9, 23, 0, 0, 5}), "11 PM");
}

}  // namespace
}  // namespace varnholt::core
