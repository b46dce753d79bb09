#pragma once

#include "platform/date.hpp"
#include "platform/regional.hpp"

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace varnholt::core {

// --- Numbers -----------------------------------------------------------------------------------------------------

/// A number by a picture of `0` (a digit, or zero), `#` (a digit, or nothing), one `.` and `,` between two digit marks
/// (the regional thousands sign between groups of three). More digits than marks before the point are all written;
/// digits after it are rounded half away from zero to as many as there are marks. Anything before the first and
/// behind the last mark is written as it stands. "#,#" and "###,###" write nothing for 0. No exact value is lost for
/// whole numbers. A number that is not finite gives the empty text.
std::string format(std::string_view picture, double value, const platform::RegionalFormats& regional);

/// As above, for whole numbers: the sign and the digits before it.
std::string formatWhole(std::string_view picture, bool isNegative, std::uint64_t magnitude,
                        const platform::RegionalFormats& regional);

template <std::integral Number>
std::string format(std::string_view picture, Number value, const platform::RegionalFormats& regional) {
  const bool isNegative = value < Number{0};
  const auto bits = static_cast<std::uint64_t>(value);
  return formatWhole(picture, isNegative, isNegative ? 0 - bits : bits, regional);
}

/// Adds a whole number in groups of three, filled with zeros to `minimumDigits`. The quick way for long lists.
void appendGrouped(std::uint64_t value, int minimumDigits, std::string_view thousandsSign, std::string& out);

// --- Dates and times ---------------------------------------------------------------------------------------------

/// Local calendar fields by a picture: dd, mm (the month; the minutes directly after hh, with at most one sign
/// between), yy, yyyy, hh (01 to 12 when the picture holds AM/PM, else 00 to 23), nn (the minutes), ss, and AM/PM for
/// the marker in capitals. Each field has two digits, yyyy four. Every other character stands for itself.
std::string formatDate(std::string_view picture, const platform::CalendarTime& time);
void appendDate(std::string_view picture, const platform::CalendarTime& time, std::string& out);

}  // namespace varnholt::core
