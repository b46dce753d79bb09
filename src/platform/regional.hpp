#pragma once

#include <string>

namespace varnholt::platform {

/// How numbers and times are written where the user lives, from the system locale.
struct RegionalFormats {
  std::string thousandsSign = ",";
  std::string decimalSign = ".";
  bool twelveHourClock = false;  ///< the locale's time text ends in am or pm
};

}  // namespace varnholt::platform
