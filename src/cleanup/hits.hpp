#pragma once

#include "controls/list_view.hpp"
#include "core/program.hpp"
#include "platform/file_system.hpp"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace varnholt::cleanup {

/// The files that a scan has found; a file that several patterns match has as many rows.
struct Hits {
  std::string root;  ///< the folder that was scanned
  std::vector<platform::FoundFile> files;
  std::vector<std::string> versions;  ///< of the files, empty where there is none
  std::vector<std::uint32_t> rows;    ///< the file of each row
  std::uint64_t bytes = 0;            ///< of all rows that the scan has made
};

/// The columns of the list. The last ones have no width: by two of them sizes and dates are sorted.
namespace column {
inline constexpr int Path = 0, Name = 1, Ext = 2, Size = 3, Date = 4, Version = 5, SizeKey = 7, DateKey = 8;
}
std::vector<controls::ColumnHeader> hitColumns(std::string_view DateSystem);

/// Hits as rows: texts in proper case, which only show; the true path is the file's.
class HitRows : public controls::RowSource {
 public:
  HitRows(std::shared_ptr<const Hits> hits, const core::Program& program, bool datesNotAvailable);

  std::uint32_t rowCount() const override { return static_cast<std::uint32_t>(hits_->rows.size()); }
  std::string cell(std::uint32_t row, int column) const override;
  int icon(std::uint32_t) const override;
  std::string seekText(std::uint32_t row) const override { return cell(row, column::Name); }
  bool numericKeys(int column, std::vector<std::int64_t>& keys) const override;

  const platform::FoundFile& file(std::uint32_t row) const { return hits_->files[hits_->rows[row]]; }
  /// The line of a collection: folder, name and extension as the row shows them.
  std::string line(std::uint32_t row) const;

 private:
  bool hasDate() const;
  const platform::Date& dateOf(const platform::FoundFile& file) const;
  std::string dateText(const platform::FoundFile& file) const;

  std::shared_ptr<const Hits> hits_;
  const core::Program& program_;
  bool datesNotAvailable_;
};

}  // namespace varnholt::cleanup
