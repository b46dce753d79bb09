#pragma once

#include "fileops/operation_dialogs.hpp"
#include "panels/desk.hpp"

#include <cstdint>
#include <string>

namespace varnholt::fileops {

/// `FreeSpaceText`: "[ 12,345 MB Free ]", "[ 12 KB Free ]", or "[ NA ]" for a drive that tells nothing.
std::string FreeSpaceText(const platform::Result<platform::DriveInfo>& drive,
                          const platform::RegionalFormats& regional);

/// Looks at the room that the target has, and at the room that a selection needs.
class Space {
 public:
  explicit Space(panels::Desk& desk) : desk_(desk) {}

  /// `DiskAvailable`: true when the target cannot be written to, or when it is nearly full and the user was asked; the
  /// answer stands in `AlertAnswer`. `moving` on one drive needs no room.
  bool DiskAvailable(bool moving);
  /// `ValidateSpaceNeeded`: false when what is selected needs as much as the target has, or more, which is told.
  bool ValidateSpaceNeeded(OperationForm& dialog);
  /// `selectsize`: the size of all that is selected, in the dialog's size line.
  void selectsize(OperationForm& dialog);

 private:
  std::uint64_t sizeOf(const core::Item& item);
  std::uint64_t needOfFolder(const std::string& folder) const;

  panels::Desk& desk_;
};

}  // namespace varnholt::fileops
