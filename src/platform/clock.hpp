#pragma once

#include "platform/date.hpp"

namespace varnholt::platform {

/// The time of day, and the local calendar. An interface so that tests can fix both.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual Date now() const = 0;
  /// Local calendar fields of a moment. Any moment works, before 1970 and after 2038 too.
  virtual CalendarTime local(const Date& date) const = 0;
  /// The moment of local calendar fields; fields out of range are carried over (minute 61 is the next hour).
  virtual Date fromLocal(const CalendarTime& time) const = 0;
};

}  // namespace varnholt::platform
