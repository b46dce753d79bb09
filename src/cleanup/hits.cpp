#include "cleanup/hits.hpp"

#include "core/format.hpp"
#include "core/item_text.hpp"
#include "platform/paths.hpp"

#include <utility>

namespace varnholt::cleanup {
namespace {

namespace paths = platform::paths;

constexpr std::string_view NotAvailable = "Not Available";

/// The name cut at its last point, wherever that stands.
std::pair<std::string_view, std::string_view> cut(std::string_view name) {
  const auto point = name.rfind('.');
  if (point == std::string_view::npos) return {name, {}};
  return {name.substr(0, point), name.substr(point + 1)};
}

/// Without the closing backslash, a drive's root too.
std::string_view folderOf(std::string_view path) { return path.substr(0, path.rfind('\\')); }

}  // namespace

std::vector<controls::ColumnHeader> hitColumns(std::string_view DateSystem) {
  const std::string date = core::dateColumnTitle(DateSystem);
  return {
      {"Path:", 4100, 0, false}, {"Name:", 1800, 0, false},    {".Ext", 1000, 0, false}, {"ByteSize:", 1400, 0, true},
      {date, 1800, 0, false},    {"Version:", 1500, 0, false}, {"", 0, 0, false},        {"", 0, 0, false},
      {"", 0, 0, false}};
}

HitRows::HitRows(std::shared_ptr<const Hits> hits, const core::Program& program, bool datesNotAvailable)
    : hits_(std::move(hits)), program_(program), datesNotAvailable_(datesNotAvailable) {}

int HitRows::icon(std::uint32_t) const { return core::FileClass; }

std::string HitRows::cell(std::uint32_t row, int column) const {
  const platform::FoundFile& found = file(row);
  const auto& regional = program_.platform.regional;
  switch (column) {
  case column::Path:
    return core::properNames(folderOf(found.path));
  case column::Name:
    return core::properNames(cut(paths::fileName(found.path)).first);
  case column::Ext:
    return core::properNames(cut(paths::fileName(found.path)).second);
  case column::Size:
    return found.size == 0 ? "0 Bytes" : core::format("#,#", found.size, regional);
  case column::Date:
    return dateText(found);
  case column::Version: {
    const std::string& version = hits_->versions[hits_->rows[row]];
    return version.empty() ? std::string(NotAvailable) : core::properNames(version);
  }
  case column::SizeKey:
    return core::format("000,000,000,000", found.size, regional);
  case column::DateKey:
    return hasDate() ? core::dateKey(program_.platform.clock.local(dateOf(found))) : std::string();
  default:
    return {};
  }
}

bool HitRows::hasDate() const { return !datesNotAvailable_ || program_.init.DateSystem != "3"; }

const platform::Date& HitRows::dateOf(const platform::FoundFile& file) const {
  const std::string& which = program_.init.DateSystem;
  return which == "3" ? file.accessed : which == "2" ? file.created : file.modified;
}

std::string HitRows::dateText(const platform::FoundFile& file) const {
  if (!hasDate()) return std::string(NotAvailable);
  return core::panelRowDate(program_.init.DateTimeFormat, program_.platform.clock.local(dateOf(file)));
}

bool HitRows::numericKeys(int column, std::vector<std::int64_t>& keys) const {
  if (column != column::SizeKey && column != column::DateKey) return false;
  keys.reserve(hits_->rows.size());
  // As in the panels, files of one day keep the order that they have.
  const auto day = [this](const platform::FoundFile& found) {
    return hasDate() ? core::dayNumber(program_.platform.clock.local(dateOf(found))) : 0;
  };
  for (const std::uint32_t at : hits_->rows) {
    const platform::FoundFile& found = hits_->files[at];
    keys.push_back(column == column::SizeKey ? static_cast<std::int64_t>(found.size) : day(found));
  }
  return true;
}

std::string HitRows::line(std::uint32_t row) const {
  return cell(row, column::Path) + '\\' + cell(row, column::Name) + '.' + cell(row, column::Ext);
}

}  // namespace varnholt::cleanup
