#include "core/format.hpp"
#include "support/testing.hpp"

#include <limits>

namespace varnholt::core {
namespace {

const platform::RegionalFormats english{};

TEST(NumberPictures, WriteWholeNumbersWithoutLoss) {
  const std::tuple<const char*, std::int64_t, const char*> cases[] = {
      {"#,#", 0, ""},
      {"#,#", 1000, "1,000"},
      {"###,###", 123456789, "123,456,789"},
      {"#,#", -1234, "-1,234"},
      {"#,#", 9007199254740993, "9,007,199,254,740,993"},
      {"#,#", INT64_MIN, "-9,223,372,036,854,775,808"},
      {"000,000,000,000", 1234, "000,000,001,234"},
      {"000,000,000,000", 1234567890123456, "1,234,567,890,123,456"},
      {"000000", 12, "000012"},
      {"0.00", 5, "5.00"},
      {"#.##", 5, "5."},
      {"[ #,# MB ]", 12345, "[ 12,345 MB ]"}};
  for (const auto& [picture, value, text] : cases)
    EXPECT_EQ(format(picture, value, english), text) << picture << " of " << value;
  EXPECT_EQ(format("#,#", UINT64_MAX, english), "18,446,744,073,709,551,615");
}

TEST(NumberPictures, RoundHalfAwayFromZeroAndTakeTheRegionsSigns) {
  const std::tuple<const char*, double, const char*> cases[] = {{"#,#", 2.5, "3"},
                                                                {"#,#", -2.5, "-3"},
                                                                {"#,#", -0.4, ""},
                                                                {"0.00", 1.005, "1.01"},
                                                                {"0.00", 9.999, "10.00"},
                                                                {"#,#", 999.5, "1,000"},
                                                                {"#.##", 0.25, ".25"},
                                                                {"#,##0.0#", 1234.5, "1,234.5"},
                                                                {"#,#", 1e15, "1,000,000,000,000,000"},
                                                                {"#,#", std::numeric_limits<double>::quiet_NaN(), ""}};
  for (const auto& [picture, value, text] : cases)
    EXPECT_EQ(format(picture, value, english), text) << picture << " of " << value;
  EXPECT_EQ(format("0", 1e30, english).size(), 31u);
  const platform::RegionalFormats french{.thousandsSign = "\u202F", .decimalSign = ",", .twelveHourClock = false};
  EXPECT_EQ(format("#,##0.00", 1234567.5, french), "1\u202F234\u202F567,50");
}

TEST(NumberPictures, AreWrittenQuicklyAsTheyAreInGeneral) {
  for (const std::uint64_t value : {0ull, 7ull, 999ull, 1000ull, 123'456ull, 999'999'999'999ull, 1ull << 63}) {
    std::string one, twelve;
    appendGrouped(value, 1, ",", one);
    appendGrouped(value, 12, ",", twelve);
    EXPECT_EQ(one, format("#,##0", value, english));
    EXPECT_EQ(twelve, format("000,000,000,000", value, english));
  }
}

TEST(DatePictures, TellMonthsFromMinutes) {
  const platform::CalendarTime afternoon{2007, 3, 9, 14, 5, 7, 5}, midnight{1999, 12, 31, 0, 59, 0, 5};
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"mm-dd-yy  hh:mm  AM/PM", "03-09-07  02:05  PM", "12-31-99  12:59  AM"},
      {"dd-mm-yy  hh:mm", "09-03-07  14:05", "31-12-99  00:59"},
      {"hh:nn:ss AM/PM", "02:05:07 PM", "12:59:00 AM"},
      {"hhmm", "1405", "0059"},
      {"hh  mm", "14  03", "00  12"},
      {"dd-mm-yyyy hh:mm mm", "09-03-2007 14:05 03", "31-12-1999 00:59 12"},
      {"d m y h", "d m y h", "d m y h"}};
  for (const auto& [picture, first, second] : cases) {
    EXPECT_EQ(formatDate(picture, afternoon), first) << picture;
    EXPECT_EQ(formatDate(picture, midnight), second) << picture;
  }
  EXPECT_EQ(formatDate("hh AM/PM", {2007, 3, 9, 12, 0, 0, 5}), "12 PM");
}

}  // namespace
}  // namespace varnholt::core
