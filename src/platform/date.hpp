#pragma once

#include <cstdint>

namespace varnholt::platform {

/// A moment: seconds since 1970-01-01 UTC (negative before it) and nanoseconds 0 to 999,999,999 after that second.
/// Twelve bytes and not sixteen: each entry of a listing holds three.
#pragma pack(push, 4)
struct Date {
  std::int64_t seconds = 0;
  std::int32_t nanoseconds = 0;
  bool operator==(const Date&) const = default;
};
#pragma pack(pop)

/// Whether `a` is the earlier one. The members cannot be tied: for a reference they are not aligned.
constexpr bool isBefore(const Date& a, const Date& b) {
  return a.seconds != b.seconds ? a.seconds < b.seconds : a.nanoseconds < b.nanoseconds;
}

/// A moment taken apart in local time. month 1 to 12, day 1 to 31, weekday 0 (Sunday) to 6.
struct CalendarTime {
  int year = 1970, month = 1, day = 1, hour = 0, minute = 0, second = 0, weekday = 4;
};

/// Days since 1970-01-01 in the proleptic Gregorian calendar, which the standard library knows for years of five digits
/// alone. `month` from 1 to 12; `day` may lie out of range.
std::int64_t daysSince1970(std::int64_t year, int month, std::int64_t day);

}  // namespace varnholt::platform
