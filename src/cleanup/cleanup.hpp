#pragma once

#include "cleanup/clean.hpp"
#include "cleanup/scan.hpp"
#include "cleanup/scan_dialog.hpp"
#include "panels/room.hpp"

#include <vector>

namespace varnholt::cleanup {

/// Finds the leftovers of a drive or folder, and clears them away.
class CleanUp : public panels::Room {
 public:
  CleanUp(panels::Desk& desk, fileops::Desktop& desktop, const panels::Icons& icons);
  CleanUp(const CleanUp&) = delete;
  CleanUp& operator=(const CleanUp&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form16, &Form23}; }
  void Command17_Click();

 private:
  panels::Desk& desk_;

 public:
  cleanup::Form16 Form16;
  cleanup::Form23 Form23;
  Scan scan;
  Clean clean;
};

}  // namespace varnholt::cleanup
