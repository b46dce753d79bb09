#include "platform/date.hpp"

namespace varnholt::platform {

// Counted in years that begin in March, so that the leap day is the last of its year.
std::int64_t daysSince1970(std::int64_t year, int month, std::int64_t day) {
  constexpr std::int64_t daysOf400Years = 146097, marchOfYear0 = 719468;
  if (month <= 2) --year;
  const std::int64_t era = (year >= 0 ? year : year - 399) / 400, yearOfEra = year - era * 400;
  const std::int64_t dayOfYear = (153 * ((month + 9) % 12) + 2) / 5 + day - 1;
  return era * daysOf400Years + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - marchOfYear0;
}

}  // namespace varnholt::platform
