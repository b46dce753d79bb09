#pragma once

#include "controls/standard.hpp"
#include "platform/clock.hpp"
#include "platform/file_system.hpp"
#include "platform/regional.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::filters {

/// Two days that bound a range, in either order.
struct DatePair {
  controls::MonthView::Day from, to;
  bool operator==(const DatePair&) const = default;
};

/// What a file must be to pass a filter: the same for both filters.
struct Criteria {
  std::string pattern;                             ///< one or several, parted by commas, as the user wrote them
  bool sizeOn = false;                             ///< the bounds count
  std::optional<double> lower, upper;              ///< megabytes of 1,000,000 bytes, excluded; empty: no bound
  std::string lowerText, upperText;                ///< the bounds as the user wrote them
  std::optional<DatePair> dates;                   ///< empty: dates do not count
  std::optional<platform::Attributes> attributes;  ///< empty: attributes do not count
};

/// Cuts a list of patterns at its commas. Blanks around a pattern go, and so do empty ones.
std::vector<std::string> stringdiv(std::string_view list);

/// The attribute value that the boxes stand for.
platform::Attributes attsettings(bool readOnly, bool system, bool hidden);

/// A number in the regional form, without thousands signs; nothing for any other text.
std::optional<double> readNumber(std::string_view text, const platform::RegionalFormats& regional);

/// The test of one run of a filter. All that does not change from file to file is worked out when it is made.
class FilterTest {
 public:
  /// `DateSystem` says which date of a file counts: "1" modified, "2" created, "3" accessed.
  FilterTest(const Criteria& criteria, std::string_view DateSystem, const platform::Clock& clock);

  /// True when the file is of the size, date and attributes, and one of the patterns matches the name.
  bool passes(std::string_view name, const platform::Entry& file);

 private:
  bool sizePasses(std::uint64_t bytes) const;
  bool Datetest(const platform::Entry& file) const;
  bool attview(platform::Attributes attributes) const;
  bool nameMatches(std::string_view name);

  /// The moments between which a date lies, both excluded.
  struct Span {
    platform::Date after, before;
    bool holds(const platform::Date& date) const { return isBefore(after, date) && isBefore(date, before); }
  };

  std::vector<std::string> patterns_;  ///< in lower case
  std::optional<double> lower_, upper_;
  std::vector<Span> spans_;  ///< one for each order of the two days; empty: dates do not count
  platform::Date platform::Entry::*date_;
  std::optional<platform::Attributes> attributes_;
  std::string folded_;
};

}  // namespace varnholt::filters
