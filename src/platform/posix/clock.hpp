#pragma once

#include "platform/clock.hpp"

#include <array>
#include <atomic>
#include <cstdint>

namespace varnholt::platform::posix {

/// The system's clock and the user's time zone, as it was when the clock was made. May be asked by any thread.
///
/// Lists show 100,000 dates at once and the C library takes a lock and searches its table for each, so the offset of
/// a day is kept when it is the same at both ends. Time zones have never held an offset for less than three days, so
/// it is then the same all day; the days on which it changes are asked for each date.
class SystemClock : public Clock {
 public:
  SystemClock();
  Date now() const override;
  CalendarTime local(const Date& date) const override;
  /// Of two moments with one local time the earlier; a local time that was skipped is taken as if the clock had not
  /// been put forward yet.
  Date fromLocal(const CalendarTime& time) const override;

 private:
  std::int64_t offsetAt(std::int64_t seconds) const;

  static constexpr size_t cachedDays = 4096;
  /// Day number and offset in one word, so that a reader never sees halves of two. 0 is an empty place.
  mutable std::array<std::atomic<std::uint64_t>, cachedDays> days_{};
};

}  // namespace varnholt::platform::posix
