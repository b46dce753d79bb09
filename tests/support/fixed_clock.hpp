#pragma once

#include "platform/clock.hpp"

#include <ctime>

namespace varnholt::test {

/// A clock that stands where a test puts it, in a zone without summer time.
class FixedClock : public platform::Clock {
 public:
  /// 2007-03-09 14:05:07 in the afternoon, on which all fields differ.
  platform::Date current{1173449107, 0};
  /// Seconds that local time is ahead of UTC.
  long offset = 0;

  platform::Date now() const override { return current; }
  platform::CalendarTime local(const platform::Date& date) const override {
    const std::time_t moment = date.seconds + offset;
    std::tm fields{};
    ::gmtime_r(&moment, &fields);
    return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
            fields.tm_min,         fields.tm_sec,     fields.tm_wday};
  }
  platform::Date fromLocal(const platform::CalendarTime& time) const override {
    std::tm fields{};
    fields.tm_year = time.year - 1900;
    fields.tm_mon = time.month - 1;
    fields.tm_mday = time.day;
    fields.tm_hour = time.hour;
    fields.tm_min = time.minute;
    fields.tm_sec = time.second;
    return {::timegm(&fields) - offset, 0};
  }
};

}  // namespace varnholt::test
