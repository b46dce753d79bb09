#pragma once

#include "fileops/operation_dialogs.hpp"
#include "panels/desk.hpp"

#include <cstdint>
#include <string>

namespace varnholt::fileops {

/// Looks at the room that the target has, and at the room that a selection needs.
class Space {
 public:
  explicit Space(panels::Desk& desk) : desk_(desk) {}

  /// `DiskAvailable`: true when the target cannot be written to, or when it is nearly full and the user was asked; the
  /// answer stands in `AlertAnswer`. `moving` on one drive needs no room.
  bool DiskAvailable(bool moving, const std::string& from, const std::string& to);
  /// `ValidateSpaceNeeded`: false when the items, of which those without a path lie in `from`, need as much as the
  /// folder `to` has room, or more, which is told.
  bool ValidateSpaceNeeded(ProgressForm& dialog, const panels::FileCollect& items, const std::string& from,
                           const std::string& to);
  /// `selectsize`: the size of all that is selected, in the dialog's size line.
  void selectsize(OperationForm& dialog);

 private:
  /// What items take, or with a target what they need there: what they replace gives its room back. The sum stops when
  /// it is enough.
  std::uint64_t bytesOfItems(const panels::FileCollect& items, const std::string& from, const std::string* to = nullptr,
                             std::uint64_t enough = ~std::uint64_t{0}) const;
  std::uint64_t bytesOfFolder(const std::string& folder, const std::string* to) const;

  panels::Desk& desk_;
};

}  // namespace varnholt::fileops
