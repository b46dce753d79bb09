#pragma once

#include "fileops/left_out_notice.hpp"
#include "panels/desk.hpp"

#include <string>
#include <vector>

namespace varnholt::fileops {

/// Exchanges the selected files of the two panels. The left panel's wait in a work folder while the right panel's go
/// over.
class Swap {
 public:
  explicit Swap(panels::Desk& desk) : desk_(desk) {}

  /// The command of the panels.
  void ExFiles_Click();

 private:
  using Names = std::vector<std::string>;

  bool mayBegin();
  bool drivesAllow();
  void ExChange();
  /// The files among what is selected in the panel.
  Names selectedFiles(panels::Panel& panel) const;
  /// Takes out of `names` what cannot take its place on the other side, where something of its name stays.
  void leaveBlocked(Names& names, const panels::Panel& side, const Names& others);
  /// False when it did not begin.
  bool carryOut(const Names& lefts, const Names& rights);
  /// What cannot be moved is told as what stands at `stays` then.
  bool move(const std::string& from, const std::string& to, const std::string& stays);

  panels::Desk& desk_;
  LeftOutNotice leftOut_{desk_.program};
};

}  // namespace varnholt::fileops
