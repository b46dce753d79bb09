#include "panels/panel_rows.hpp"

#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>

namespace varnholt::panels {

namespace paths = platform::paths;

namespace {

/// The days of the local calendar that moments lie in. The files of a large folder share some hundred days, and of each
/// the calendar is asked a few times only.
class DayNumbers {
 public:
  explicit DayNumbers(const platform::Clock& clock) : clock_(clock) {}

  std::int64_t operator()(std::int64_t seconds) {
    constexpr std::int64_t Furthest = 1'000'000'000'000;
    if (seconds < -Furthest || seconds > Furthest) return placeOf(seconds).first;
    Day& kept = days_[static_cast<std::uint64_t>((seconds - midnight_) / DaySeconds) % days_.size()];
    if (seconds >= kept.from && seconds < kept.from + DaySeconds) return kept.number;
    const auto [number, second] = placeOf(seconds);
    // A day in which the clock is put forward or back is not kept: it is not as long, or its parts lie apart.
    const std::int64_t from = seconds - second;
    const bool isWhole = placeOf(from) == std::pair(number, std::int64_t{0}) &&
                         placeOf(from + DaySeconds - 1) == std::pair(number, DaySeconds - 1);
    if (!isWhole) return number;
    if (midnight_ == 0) midnight_ = from;
    kept = {from, number};
    return number;
  }

 private:
  static constexpr std::int64_t DaySeconds = 86'400;
  struct Day {
    std::int64_t from = std::numeric_limits<std::int64_t>::min(), number = 0;
  };

  /// The day, and the second of it.
  std::pair<std::int64_t, std::int64_t> placeOf(std::int64_t seconds) const {
    const platform::CalendarTime time = clock_.local({seconds, 0});
    return {core::dayNumber(time), (time.hour * std::int64_t{60} + time.minute) * 60 + time.second};
  }

  const platform::Clock& clock_;
  std::array<Day, 512> days_{};
  std::int64_t midnight_ = 0;  ///< of some day: most others begin a whole number of days from it
};

}  // namespace

PanelRows::PanelRows(platform::ListingPtr listing, const FileTest& shows, RowFormat format)
    : listing_(std::move(listing)),
      folders_(static_cast<std::uint32_t>(listing_->folders().size())),
      format_(std::move(format)) {
  const auto& files = listing_->files();
  if (shows)
    for (std::uint32_t number = 0; number < files.size(); ++number)
      if (shows(files[number])) shown_.push_back(number);
  leavesOut_ = shows && shown_.size() < files.size();
  if (!leavesOut_) shown_ = std::vector<std::uint32_t>();
}

std::uint32_t PanelRows::rowCount() const {
  return folders_ + static_cast<std::uint32_t>(leavesOut_ ? shown_.size() : listing_->files().size());
}

const platform::Entry& PanelRows::entry(std::uint32_t row) const {
  if (isFolder(row)) return listing_->folders()[row];
  const std::uint32_t number = row - folders_;
  return listing_->files()[leavesOut_ ? shown_[number] : number];
}

std::vector<bool> PanelRows::named(const std::unordered_set<std::string_view>& names) const {
  std::vector<bool> found(rowCount());
  const auto numberIn = [](const std::vector<platform::Entry>& entries, std::string_view name) {
    const auto key = std::pair(platform::foldCase(name), name);
    const auto place = std::ranges::lower_bound(entries, key, {}, [](const platform::Entry& each) {
      return std::pair(platform::foldCase(each.name), each.name);
    });
    const bool isIt = place != entries.end() && place->name == name;
    return isIt ? std::optional(static_cast<std::uint32_t>(place - entries.begin())) : std::nullopt;
  };
  for (const std::string_view name : names) {
    if (const auto folder = numberIn(listing_->folders(), name)) found[*folder] = true;
    auto file = numberIn(listing_->files(), name);
    if (!file) continue;
    if (leavesOut_) {
      const auto place = std::ranges::lower_bound(shown_, *file);
      if (place == shown_.end() || *place != *file) continue;
      file = static_cast<std::uint32_t>(place - shown_.begin());
    }
    found[folders_ + *file] = true;
  }
  return found;
}

std::string PanelRows::cell(std::uint32_t row, int column) const {
  return isFolder(row) ? folderCell(row, column) : fileCell(row, column);
}

std::string PanelRows::folderCell(std::uint32_t row, int column) const {
  switch (column) {
  case column::Name:
    return core::folderRowText(entry(row).name);
  case column::Ext:
    return " ";
  case column::Size:
    return std::string(FolderMark);
  case column::Date: {
    const std::string text = dateText(row);
    return text.empty() ? "-" : text;
  }
  }
  return {};
}

std::string PanelRows::fileCell(std::uint32_t row, int column) const {
  const platform::Entry& file = entry(row);
  switch (column) {
  case column::Name:
    return std::string(paths::baseName(file.name));
  case column::Ext:
    return std::string(paths::extension(file.name));
  case column::Size:
    return core::panelSize(file.size, format_.regional);
  case column::Date:
    return format_.datesNotAvailable ? "Not Available" : dateText(row);
  case column::SizeKey:
    return core::sizeKey(file.size, format_.regional);
  case column::DateKey:
    return hasDate(row) ? core::dateKey(format_.clock->local(shownDate(file))) : std::string();
  }
  return {};
}

core::Item PanelRows::item(std::uint32_t row, const std::string& folder) const {
  const std::string_view name = entry(row).name;
  if (isFolder(row)) return {paths::join(folder, name), true};
  return {std::string(name), false};
}

int PanelRows::icon(std::uint32_t row) const {
  return isFolder(row) ? core::FolderClass : core::itemClass(entry(row).attributes);
}

controls::Emblem PanelRows::emblem(std::uint32_t row) const {
  if (entry(row).isDangling) return controls::Emblem::LinkGone;
  return entry(row).isLink ? controls::Emblem::Link : controls::Emblem::None;
}

const platform::Date& PanelRows::shownDate(const platform::Entry& entry) const {
  if (format_.DateSystem == "2") return entry.created;
  if (format_.DateSystem == "3") return entry.accessed;
  return entry.modified;
}

bool PanelRows::hasDate(std::uint32_t row) const {
  return entry(row).hasDates && (isFolder(row) || !format_.datesNotAvailable);
}

std::string PanelRows::dateText(std::uint32_t row) const {
  if (!hasDate(row)) return {};
  return core::panelRowDate(format_.DateTimeFormat, format_.clock->local(shownDate(entry(row))));
}

bool PanelRows::numericKeys(int column, std::vector<std::int64_t>& keys) const {
  if (column != column::SizeKey && column != column::DateKey) return false;
  // Rows without a key text come before all others, as the empty text does.
  keys.assign(rowCount(), std::numeric_limits<std::int64_t>::min());
  DayNumbers days(*format_.clock);
  for (std::uint32_t row = folders_; row < rowCount(); ++row) {
    if (column == column::SizeKey) {
      keys[row] = static_cast<std::int64_t>(entry(row).size);
    } else if (hasDate(row)) {
      keys[row] = days(shownDate(entry(row)).seconds);
    }
  }
  return true;
}

void PanelRows::appendSortText(std::uint32_t row, int column, std::string& text) const {
  if (row + FetchAhead < rowCount()) fetchName(row + FetchAhead);
  if (column != column::Name) {
    text += cell(row, column);
    return;
  }
  if (isFolder(row)) {
    // No name holds this character, and none comes before it: folders lead.
    text += '\0';
    text += entry(row).name;
    return;
  }
  text += paths::baseName(entry(row).name);
}

}  // namespace varnholt::panels
