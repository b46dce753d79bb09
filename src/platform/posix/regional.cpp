#include "platform/posix/regional.hpp"

#include <array>
#include <clocale>
#include <ctime>
#include <memory>
#include <string>

#include <glib.h>
#include <langinfo.h>
#include <locale.h>

namespace varnholt::platform::posix {
namespace {

/// A text of the locale in UTF-8; empty when it cannot be told.
std::string inUtf8(const char* text, locale_t locale) {
  const char* charset = ::nl_langinfo_l(CODESET, locale);
  const std::unique_ptr<char, decltype(&g_free)> utf8(g_convert(text, -1, "UTF-8", charset, nullptr, nullptr, nullptr),
                                                      &g_free);
  return utf8 ? utf8.get() : "";
}

std::string writtenTime(locale_t locale) {
  std::tm afternoon{};
  afternoon.tm_hour = 13;
  afternoon.tm_mday = 1;
  std::array<char, 128> text{};
  const size_t size = ::strftime_l(text.data(), text.size(), "%X", &afternoon, locale);
  return std::string(text.data(), size);
}

RegionalFormats formatsOf(locale_t locale) {
  RegionalFormats formats;
  const std::string decimal = inUtf8(::nl_langinfo_l(RADIXCHAR, locale), locale);
  const std::string thousands = inUtf8(::nl_langinfo_l(THOUSEP, locale), locale);
  if (!decimal.empty()) formats.decimalSign = decimal;
  // The C locale groups nothing, and long sizes are hard to read without; a sign that is the point too misleads.
  if (!thousands.empty())
    formats.thousandsSign = thousands;
  else if (formats.decimalSign == formats.thousandsSign)
    formats.thousandsSign = ".";
  formats.twelveHourClock = endsInAmOrPm(writtenTime(locale));
  return formats;
}

}  // namespace

bool endsInAmOrPm(std::string_view text) {
  while (!text.empty() && text.back() == ' ')
    text.remove_suffix(1);
  if (text.size() < 2 || (text.back() | 0x20) != 'm') return false;
  const char half = static_cast<char>(text[text.size() - 2] | 0x20);
  return half == 'a' || half == 'p';
}

RegionalFormats userRegionalFormats() {
  const locale_t locale = ::newlocale(LC_NUMERIC_MASK | LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
  if (!locale) return {};
  RegionalFormats formats = formatsOf(locale);
  ::freelocale(locale);
  return formats;
}

}  // namespace varnholt::platform::posix
