#include "platform/posix/clock.hpp"

#include <algorithm>
#include <ctime>

namespace varnholt::platform::posix {
namespace {

constexpr std::int64_t secondsOfDay = 86400;
/// Moments of which the calendar year fits an int with room to spare.
constexpr std::int64_t furthest = 60'000'000'000'000'000;

std::tm fieldsOf(std::int64_t seconds) {
  const auto moment = static_cast<std::time_t>(std::clamp(seconds, -furthest, furthest));
  std::tm fields{};
  ::localtime_r(&moment, &fields);
  return fields;
}

std::int64_t offsetAt(std::int64_t seconds) { return fieldsOf(seconds).tm_gmtoff; }

}  // namespace

SystemClock::SystemClock() { ::tzset(); }

Date SystemClock::now() const {
  std::timespec time{};
  ::clock_gettime(CLOCK_REALTIME, &time);
  return {time.tv_sec, static_cast<std::int32_t>(time.tv_nsec)};
}

CalendarTime SystemClock::local(const Date& date) const {
  const std::tm fields = fieldsOf(date.seconds);
  return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
          fields.tm_min,         fields.tm_sec,     fields.tm_wday};
}

/// mktime() is no help: of a local time that comes twice it gives whichever it looked for last.
Date SystemClock::fromLocal(const CalendarTime& time) const {
  std::tm fields{};
  fields.tm_year = time.year - 1900;
  fields.tm_mon = time.month - 1;
  fields.tm_mday = time.day;
  fields.tm_hour = time.hour;
  fields.tm_min = time.minute;
  fields.tm_sec = time.second;
  const std::int64_t asUtc = ::timegm(&fields);  // fields that are out of range are carried
  // The moment lies within a day of its own digits, and the offset changes at most once around it: of all time zones
  // on record none has held an offset for less than three days.
  const std::int64_t before = asUtc - offsetAt(asUtc - secondsOfDay), after = asUtc - offsetAt(asUtc + secondsOfDay);
  const bool beforeHolds = before + offsetAt(before) == asUtc, afterHolds = after + offsetAt(after) == asUtc;
  return {afterHolds && !beforeHolds ? after : before, 0};
}

}  // namespace varnholt::platform::posix
