#pragma once

#include "platform/regional.hpp"

#include <string_view>

namespace varnholt::platform::posix {

/// The formats of the user's locale (LC_ALL, LC_NUMERIC, LC_TIME, LANG), without changing the process's own. Where
/// no locale is chosen or it is not installed: the signs "," and ".", and the 24-hour clock.
RegionalFormats userRegionalFormats();

/// True when a written time ends in am or pm, in any case ("01:00:00 PM").
bool endsInAmOrPm(std::string_view timeText);

}  // namespace varnholt::platform::posix
