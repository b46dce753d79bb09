#include "platform/posix/clock.hpp"

#include <algorithm>
#include <ctime>
#include <limits>

namespace varnholt::platform::posix {
namespace {

constexpr std::int64_t secondsOfDay = 86400;
/// Moments of which the calendar year fits an int with room to spare.
constexpr std::int64_t furthest = 60'000'000'000'000'000;

std::int64_t floorDivide(std::int64_t value, std::int64_t by) { return value / by - (value % by < 0 ? 1 : 0); }

/// Days since 1970-01-01 in the proleptic Gregorian calendar, counted in years that begin in March, so that the leap
/// day is the last of its year. `month` from 1 to 12; `day` may lie out of range.
std::int64_t dayNumber(std::int64_t year, int month, std::int64_t day) {
  constexpr std::int64_t daysOf400Years = 146097, marchOfYear0 = 719468;
  if (month <= 2) --year;
  const std::int64_t era = floorDivide(year, 400), yearOfEra = year - era * 400;
  const std::int64_t dayOfYear = (153 * ((month + 9) % 12) + 2) / 5 + day - 1;
  return era * daysOf400Years + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - marchOfYear0;
}

/// The way back of dayNumber.
void setDay(std::int64_t number, CalendarTime& time) {
  constexpr std::int64_t daysOf400Years = 146097, marchOfYear0 = 719468;
  const std::int64_t shifted = number + marchOfYear0, era = floorDivide(shifted, daysOf400Years);
  const std::int64_t dayOfEra = shifted - era * daysOf400Years;
  const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t fromMarch = (5 * dayOfYear + 2) / 153;
  time.day = static_cast<int>(dayOfYear - (153 * fromMarch + 2) / 5 + 1);
  time.month = static_cast<int>(fromMarch < 10 ? fromMarch + 3 : fromMarch - 9);
  time.year = static_cast<int>(yearOfEra + era * 400 + (time.month <= 2 ? 1 : 0));
  time.weekday = static_cast<int>((number % 7 + 11) % 7);  // 1970-01-01 was a Thursday, 4
}

std::int64_t askedOffset(std::int64_t seconds) {
  const auto moment = static_cast<std::time_t>(seconds);
  std::tm fields{};
  return ::localtime_r(&moment, &fields) ? fields.tm_gmtoff : 0;
}

constexpr std::uint64_t filled = 1;
std::uint64_t packed(std::int64_t day, std::int64_t offset) {
  // Offsets lie within a day or so: 31 bits hold them with the mark below.
  return static_cast<std::uint64_t>(day) << 32 | (static_cast<std::uint64_t>(offset) & 0x7fffffff) << 1 | filled;
}
std::int64_t offsetOf(std::uint64_t word) { return static_cast<std::int32_t>(word & 0xfffffffe) / 2; }

}  // namespace

SystemClock::SystemClock() { ::tzset(); }

Date SystemClock::now() const {
  std::timespec time{};
  ::clock_gettime(CLOCK_REALTIME, &time);
  return {time.tv_sec, static_cast<std::int32_t>(time.tv_nsec)};
}

std::int64_t SystemClock::offsetAt(std::int64_t seconds) const {
  const std::int64_t day = floorDivide(seconds, secondsOfDay);
  if (day != static_cast<std::int32_t>(day)) return askedOffset(seconds);
  auto& place = days_[static_cast<std::uint64_t>(day) % cachedDays];
  const std::uint64_t word = place.load(std::memory_order_relaxed);
  if ((word & filled) && word >> 32 == static_cast<std::uint32_t>(day)) return offsetOf(word);
  const std::int64_t atStart = askedOffset(day * secondsOfDay), atEnd = askedOffset((day + 1) * secondsOfDay);
  if (atStart != atEnd) return askedOffset(seconds);
  place.store(packed(day, atStart), std::memory_order_relaxed);
  return atStart;
}

CalendarTime SystemClock::local(const Date& date) const {
  const std::int64_t moment = std::clamp(date.seconds, -furthest, furthest);
  const std::int64_t shifted = moment + offsetAt(moment);
  const std::int64_t day = floorDivide(shifted, secondsOfDay);
  const int second = static_cast<int>(shifted - day * secondsOfDay);
  CalendarTime time;
  setDay(day, time);
  time.hour = second / 3600;
  time.minute = second / 60 % 60;
  time.second = second % 60;
  return time;
}

Date SystemClock::fromLocal(const CalendarTime& time) const {
  const std::int64_t months = std::int64_t{time.month} - 1, year = time.year + floorDivide(months, 12);
  const int month = static_cast<int>(months - floorDivide(months, 12) * 12) + 1;
  const std::int64_t asUtc = dayNumber(year, month, time.day) * secondsOfDay + std::int64_t{time.hour} * 3600 +
                             std::int64_t{time.minute} * 60 + time.second;
  // The moment lies within a day of its own digits, and the offset changes at most once around it.
  const std::int64_t before = asUtc - offsetAt(asUtc - secondsOfDay), after = asUtc - offsetAt(asUtc + secondsOfDay);
  const bool beforeHolds = before + offsetAt(before) == asUtc, afterHolds = after + offsetAt(after) == asUtc;
  return {afterHolds && !beforeHolds ? after : before, 0};
}

}  // namespace varnholt::platform::posix
