#include "core/format.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace varnholt::core {
namespace {

constexpr int groupSize = 3;

/// What a picture asks for.
struct NumberPicture {
  std::string_view before, after;  ///< literal texts
  size_t zerosBefore = 0;          ///< fewest digits before the point
  size_t zerosAfter = 0;           ///< fewest digits behind it
  size_t marksAfter = 0;           ///< most digits behind it
  bool hasPoint = false;
  bool isGrouped = false;
};

/// Marks before the point: zeros count from the leftmost `0` on.
void readWholeMarks(std::string_view marks, NumberPicture& picture) {
  size_t digits = 0, digitsBeforeZero = 0;
  bool sawZero = false;
  for (size_t i = 0; i < marks.size(); ++i) {
    if (marks[i] == ',') {
      picture.isGrouped = picture.isGrouped || (digits > 0 && marks.find_first_of("0#", i) != std::string_view::npos);
      continue;
    }
    ++digits;
    sawZero = sawZero || marks[i] == '0';
    if (!sawZero) ++digitsBeforeZero;
  }
  picture.zerosBefore = digits - digitsBeforeZero;
}

void readFractionMarks(std::string_view marks, NumberPicture& picture) {
  for (const char mark : marks) {
    if (mark == ',') continue;
    ++picture.marksAfter;
    if (mark == '0') picture.zerosAfter = picture.marksAfter;
  }
}

NumberPicture readPicture(std::string_view text) {
  NumberPicture picture;
  const size_t first = std::min(text.find_first_of("0#."), text.size());
  const size_t end = std::min(text.find_first_not_of("0#.,", first), text.size());
  picture.before = text.substr(0, first);
  picture.after = text.substr(end);
  const std::string_view marks = text.substr(first, end - first);
  const size_t point = std::min(marks.find('.'), marks.size());
  picture.hasPoint = point < marks.size();
  readWholeMarks(marks.substr(0, point), picture);
  readFractionMarks(marks.substr(point), picture);
  picture.marksAfter -= picture.hasPoint ? 1 : 0;
  picture.zerosAfter -= picture.hasPoint && picture.zerosAfter > 0 ? 1 : 0;
  return picture;
}

void appendGroups(std::string_view digits, std::string_view sign, std::string& out) {
  for (size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % groupSize == 0) out += sign;
    out += digits[i];
  }
}

/// `whole` without leading zeros (empty for 0) and `fraction`, already rounded, put into the picture.
std::string assemble(const NumberPicture& picture, bool isNegative, std::string whole, std::string fraction,
                     const platform::RegionalFormats& regional) {
  while (fraction.size() > picture.zerosAfter && fraction.ends_with('0'))
    fraction.pop_back();
  if (whole.size() < picture.zerosBefore) whole.insert(0, picture.zerosBefore - whole.size(), '0');
  std::string out;
  const bool isZero = (whole + fraction).find_first_not_of('0') == std::string::npos;
  if (isNegative && !isZero) out += '-';
  out += picture.before;
  appendGroups(whole, picture.isGrouped ? std::string_view(regional.thousandsSign) : std::string_view(), out);
  if (picture.hasPoint) out += regional.decimalSign + fraction;
  out += picture.after;
  return out;
}

/// Adds one to the last digit of a row of digits; the row grows when all are nines.
void roundUp(std::string& digits) {
  size_t i = digits.size();
  while (i > 0 && digits[i - 1] == '9')
    digits[--i] = '0';
  if (i > 0)
    ++digits[i - 1];
  else
    digits.insert(0, 1, '1');
}

/// The significant digits of a number and the place of its point among them, as people read it: fifteen digits, so
/// that 1.005 is 1.005 and not the binary number just below it.
struct Decimal {
  std::string digits;
  int pointAt = 0;
};

Decimal decimalOf(double magnitude) {
  constexpr int readableDigits = 15;
  std::array<char, 40> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific,
                                 readableDigits - 1);
  const std::string_view written(text.data(), static_cast<size_t>(end.ptr - text.data()));
  const size_t mark = written.find('e');
  Decimal decimal{std::string(written.substr(0, mark)), 0};
  std::erase(decimal.digits, '.');
  std::string_view exponent = written.substr(mark + 1);
  if (exponent.starts_with('+')) exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.pointAt);
  ++decimal.pointAt;
  return decimal;
}

char upperHalf(const platform::CalendarTime& time) { return time.hour < 12 ? 'A' : 'P'; }

void appendTwoDigits(int value, std::string& out) {
  const int shown = value < 0 ? -value % 100 : value % 100;
  out += static_cast<char>('0' + shown / 10);
  out += static_cast<char>('0' + shown % 10);
}

int hourOf(const platform::CalendarTime& time, bool isTwelveHour) {
  if (!isTwelveHour) return time.hour;
  return time.hour % 12 == 0 ? 12 : time.hour % 12;
}

}  // namespace

void appendGrouped(std::uint64_t value, int minimumDigits, std::string_view sign, std::string& out) {
  std::array<char, 20> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  const std::string_view written(digits.data(), static_cast<size_t>(end.ptr - digits.data()));
  int left = std::max(static_cast<int>(written.size()), minimumDigits);
  for (int fill = left - static_cast<int>(written.size()); fill > 0; --fill) {
    out += '0';
    if (--left % groupSize == 0) out += sign;  // a digit follows: the number itself has at least one
  }
  for (const char digit : written) {
    out += digit;
    if (--left > 0 && left % groupSize == 0) out += sign;
  }
}

std::string formatWhole(std::string_view picture, bool isNegative, std::uint64_t magnitude,
                        const platform::RegionalFormats& regional) {
  std::string digits = magnitude == 0 ? std::string() : std::to_string(magnitude);
  const NumberPicture read = readPicture(picture);
  return assemble(read, isNegative, std::move(digits), std::string(read.marksAfter, '0'), regional);
}

std::string format(std::string_view picture, double value, const platform::RegionalFormats& regional) {
  if (!std::isfinite(value)) return {};
  const double magnitude = std::fabs(value);
  constexpr double pastWhole = 18446744073709551616.0;  // 2^64
  if (magnitude == std::floor(magnitude) && magnitude < pastWhole)
    return formatWhole(picture, value < 0, static_cast<std::uint64_t>(magnitude), regional);

  const NumberPicture read = readPicture(picture);
  auto [digits, pointAt] = decimalOf(magnitude);
  if (pointAt < 0) {
    digits.insert(0, static_cast<size_t>(-pointAt), '0');
    pointAt = 0;
  }
  const size_t kept = static_cast<size_t>(pointAt) + read.marksAfter;
  const bool goesUp = kept < digits.size() && digits[kept] >= '5';
  digits.resize(kept, '0');
  if (goesUp) roundUp(digits);
  const size_t wholeSize = digits.size() - read.marksAfter;
  std::string whole = digits.substr(0, wholeSize);
  whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
  return assemble(read, value < 0, std::move(whole), digits.substr(wholeSize), regional);
}

void appendDate(std::string_view picture, const platform::CalendarTime& time, std::string& out) {
  const bool isTwelveHour = picture.find("AM/PM") != std::string_view::npos;
  size_t hourEnd = std::string_view::npos;  // where the last hh ended
  for (size_t i = 0; i < picture.size();) {
    const std::string_view rest = picture.substr(i);
    size_t used = 2;
    if (rest.starts_with("yyyy")) {
      appendTwoDigits(time.year / 100, out);
      appendTwoDigits(time.year, out);
      used = 4;
    } else if (rest.starts_with("yy")) {
      appendTwoDigits(time.year, out);
    } else if (rest.starts_with("dd")) {
      appendTwoDigits(time.day, out);
    } else if (rest.starts_with("hh")) {
      appendTwoDigits(hourOf(time, isTwelveHour), out);
      hourEnd = i + used;
    } else if (rest.starts_with("mm")) {
      const bool isAfterHour = hourEnd != std::string_view::npos && i - hourEnd <= 1;
      appendTwoDigits(isAfterHour ? time.minute : time.month, out);
    } else if (rest.starts_with("nn")) {
      appendTwoDigits(time.minute, out);
    } else if (rest.starts_with("ss")) {
      appendTwoDigits(time.second, out);
    } else if (rest.starts_with("AM/PM")) {
      out += upperHalf(time);
      out += 'M';
      used = 5;
    } else {
      out += rest.front();
      used = 1;
    }
    i += used;
  }
}

std::string formatDate(std::string_view picture, const platform::CalendarTime& time) {
  std::string out;
  appendDate(picture, time, out);
  return out;
}

}  // namespace varnholt::core
