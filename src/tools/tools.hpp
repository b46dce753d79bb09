#pragma once

#include "panels/room.hpp"
#include "tools/about.hpp"
#include "tools/clean_windows.hpp"
#include "tools/disk_graphics.hpp"
#include "tools/disk_info.hpp"
#include "tools/help_viewer.hpp"
#include "tools/networking_dialog.hpp"
#include "tools/ping_dialog.hpp"
#include "tools/selection_report.hpp"
#include "tools/shortcuts.hpp"

namespace varnholt::tools {

/// Drives, memory and sizes at a glance, commands that hand over to the system's own tools, and what the program tells
/// of itself.
class Tools : public panels::Room {
 public:
  Tools(panels::Desk& desk, const panels::Icons& icons);
  Tools(const Tools&) = delete;
  Tools& operator=(const Tools&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&form8, &Form17, &Form31, &Form39, &Form45, &frmHelp}; }
  void load() override;

 private:
  void addDiskCommands(panels::CommandTable& table);
  void addNetworkCommands(panels::CommandTable& table);
  void addSystemCommands(panels::CommandTable& table);

  panels::Desk& desk_;

 public:
  tools::form8 form8;
  tools::Form17 Form17;
  tools::Form31 Form31;
  tools::Form39 Form39;
  tools::Form45 Form45;
  tools::frmHelp frmHelp;
  Shortcuts shortcuts;
  SelectionReport report;
  CleanWindows cleanWindows;
};

}  // namespace varnholt::tools
