#pragma once

#include "controls/row_source.hpp"
#include "core/item_text.hpp"
#include "platform/clock.hpp"
#include "platform/file_system.hpp"
#include "platform/regional.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace varnholt::panels {

/// The columns of a panel's rows. The last two have no width: they are what size and date are sorted by.
namespace column {
inline constexpr int Name = 0, Ext = 1, Size = 2, Date = 3, SizeKey = 4, DateKey = 5, Count = 6;
}

/// What a folder's row has in the size column.
inline constexpr std::string_view FolderMark = "< Folder >";

/// How rows are written.
struct RowFormat {
  std::string DateSystem = "1";      ///< "1" modified, "2" created, "3" accessed
  std::string DateTimeFormat = "0";  ///< "1" 12-hour form
  bool datesNotAvailable = false;    ///< a medium that keeps no access dates
  platform::RegionalFormats regional;
  const platform::Clock* clock = nullptr;
};

/// True for a file that the panel shows.
using FileTest = std::function<bool(const platform::Entry&)>;

/// One folder's listing as rows: folders, then files, in the order of the listing. Texts are made when they are looked
/// at; a listing of 100,000 files costs nothing a row, or four bytes where some are not shown.
class PanelRows : public controls::RowSource {
 public:
  /// An empty test shows all files.
  PanelRows(platform::ListingPtr listing, const FileTest& shows, RowFormat format);

  std::uint32_t rowCount() const override;
  std::string cell(std::uint32_t row, int column) const override;
  int icon(std::uint32_t row) const override;
  controls::Emblem emblem(std::uint32_t row) const override;
  std::string seekText(std::uint32_t row) const override { return std::string(entry(row).name); }
  std::string spokenText(std::uint32_t row) const override { return seekText(row); }
  bool numericKeys(int column, std::vector<std::int64_t>& keys) const override;
  void appendSortText(std::uint32_t row, int column, std::string& text) const override;

  const platform::Entry& entry(std::uint32_t row) const;
  /// The names lie as the folder gave them, one miss of the cache a row. Who goes through many has those of the rows
  /// that come next fetched meanwhile.
  static constexpr std::uint32_t FetchAhead = 8;
  void fetchName(std::uint32_t row) const { __builtin_prefetch(entry(row).name.data()); }
  bool isFolder(std::uint32_t row) const { return row < folders_; }
  /// Which rows have one of these names, by row. Names are looked up in the order of the listing.
  std::vector<bool> named(const std::unordered_set<std::string_view>& names) const;
  /// The row as it travels: a folder with its path in the folder that the rows are of, a file by its name.
  core::Item item(std::uint32_t row, const std::string& folder) const;

 private:
  const platform::Date& shownDate(const platform::Entry& entry) const;
  bool hasDate(std::uint32_t row) const;
  std::string dateText(std::uint32_t row) const;
  std::string folderCell(std::uint32_t row, int column) const;
  std::string fileCell(std::uint32_t row, int column) const;

  platform::ListingPtr listing_;
  std::uint32_t folders_;
  bool leavesOut_ = false;            ///< some files
  std::vector<std::uint32_t> shown_;  ///< then the places of the others in the listing
  RowFormat format_;
};

}  // namespace varnholt::panels
