#pragma once

#include "platform/clock.hpp"

namespace varnholt::platform::posix {

/// The system's clock and the user's time zone, as it was when the first clock was made. May be asked by any thread.
/// The C library's table look-up takes well under a tenth of a microsecond, so nothing is kept here.
class SystemClock : public Clock {
 public:
  SystemClock();
  Date now() const override;
  /// Moments of which the calendar year does not fit an int are taken as the furthest that does.
  CalendarTime local(const Date& date) const override;
  /// Of two moments with one local time the earlier; a local time that was skipped is taken as if the clock had not
  /// been put forward yet.
  Date fromLocal(const CalendarTime& time) const override;
};

}  // namespace varnholt::platform::posix
