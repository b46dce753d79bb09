#include "filters/criteria.hpp"

#include "core/text_character.hpp"
#include "core/wildcard.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace varnholt::filters {
namespace {

constexpr double Megabyte = 1'000'000;

platform::Date midnight(const controls::MonthView::Day& day, int daysLater, const platform::Clock& clock) {
  return clock.fromLocal({day.year, day.month, day.day + daysLater, 0, 0, 0, 0});
}

platform::Date platform::Entry::*dateOf(std::string_view DateSystem) {
  if (DateSystem == "2") return &platform::Entry::created;
  if (DateSystem == "3") return &platform::Entry::accessed;
  return &platform::Entry::modified;
}

}  // namespace

std::vector<std::string> stringdiv(std::string_view list) {
  std::vector<std::string> patterns;
  while (!list.empty()) {
    const auto comma = std::min(list.find(','), list.size());
    if (const auto pattern = core::trimmed(list.substr(0, comma)); !pattern.empty()) patterns.emplace_back(pattern);
    list.remove_prefix(std::min(comma + 1, list.size()));
  }
  return patterns;
}

platform::Attributes attsettings(bool readOnly, bool system, bool hidden) {
  namespace attribute = platform::attribute;
  return (readOnly ? attribute::ReadOnly : 0) | (system ? attribute::System : 0) | (hidden ? attribute::Hidden : 0);
}

std::optional<double> readNumber(std::string_view text, const platform::RegionalFormats& regional) {
  std::string number(text);
  const std::string& sign = regional.decimalSign;
  if (sign != ".") {
    // A point is not what parts the digits here: "1.500" would be read as one and a half.
    if (number.find('.') != std::string::npos) return {};
    if (const auto at = number.find(sign); at != std::string::npos) number.replace(at, sign.size(), ".");
  }
  double value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc() || end != number.data() + number.size() || !std::isfinite(value)) return {};
  return value;
}

FilterTest::FilterTest(const Criteria& criteria, std::string_view DateSystem, const platform::Clock& clock)
    : patterns_(stringdiv(criteria.pattern)), date_(dateOf(DateSystem)), attributes_(criteria.attributes) {
  if (patterns_.empty()) patterns_.push_back(criteria.pattern);
  for (std::string& pattern : patterns_)
    pattern = platform::foldCase(pattern);
  if (criteria.sizeOn) {
    lower_ = criteria.lower;
    upper_ = criteria.upper;
  }
  if (!criteria.dates) return;
  const auto& [from, to] = *criteria.dates;
  spans_ = {{midnight(from, 1, clock), midnight(to, 0, clock)}, {midnight(to, 1, clock), midnight(from, 0, clock)}};
}

bool FilterTest::sizePasses(std::uint64_t bytes) const {
  const double size = static_cast<double>(bytes) / Megabyte;
  return !(lower_ && *lower_ >= size) && !(upper_ && size >= *upper_);
}

bool FilterTest::Datetest(const platform::Entry& file) const {
  if (spans_.empty()) return true;
  return file.hasDates && std::ranges::any_of(spans_, [&](const Span& span) { return span.holds(file.*date_); });
}

bool FilterTest::attview(platform::Attributes attributes) const {
  return !attributes_ || attributes == *attributes_ || attributes == *attributes_ + platform::attribute::Archive;
}

bool FilterTest::nameMatches(std::string_view name) {
  folded_.clear();
  platform::appendFolded(name, folded_);
  return std::ranges::any_of(patterns_,
                             [this](const std::string& pattern) { return core::wildcardMatch(pattern, folded_); });
}

// The names come last: they cost most.
bool FilterTest::passes(std::string_view name, const platform::Entry& file) {
  return sizePasses(file.size) && attview(file.attributes) && Datetest(file) && nameMatches(name);
}

}  // namespace varnholt::filters
