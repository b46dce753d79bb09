#include "app/planned_commands.hpp"

#include <algorithm>
#include <iterator>

namespace varnholt::app {
namespace {

using Rows = std::vector<panels::Command>;

// --- compare ---------------------------------------------------------------------------------------------------------

Rows compareRows() {
  return {
      {.handler = "-34", .heading = "View", .menuText = "-"},
      {.handler = "LeftToRight_Click",
       .toolTip = "The left panel goes to the folder of the right one",
       .heading = "View",
       .menuText = "Set Left View = Right View"},
      {.handler = "RigthToLeft_Click",
       .toolTip = "The right panel goes to the folder of the left one",
       .heading = "View",
       .menuText = "Set Right View = Left View"},
      {.handler = "SourceToTarget_Click",
       .toolTip = "The other panel goes to the folder of the active one",
       .icon = "equal",
       .heading = "View",
       .menuText = "Set Target View = Source View"},
      {.handler = "TargetFolder_Click",
       .toolTip = "The other panel goes to the same folder of its own drive",
       .heading = "View",
       .menuText = "Set Target Drive Folder = Source Drive Folder"},
      {.handler = "-35", .heading = "Tools", .menuText = "-"},
      {.handler = "Com_Sync_Click",
       .toolTip = "Compare the folders of both panels, and synchronize them",
       .icon = "sync",
       .heading = "Tools/Compare",
       .menuText = "Normal Mode",
       .number = 24,
       .mode = "CompareMode"},
      {.handler = "Comp_SyncBatch_Click",
       .toolTip = "Choose a preset first, then compare its folders",
       .icon = "presets",
       .heading = "Tools/Compare",
       .menuText = "Batch Mode",
       .number = 62},
      {.handler = "-36", .heading = "Tools/Compare", .menuText = "-"},
      {.handler = "LLComp_Click",
       .toolTip = "Compare each clicked file with its namesake in the other panel",
       .icon = "line-compare",
       .heading = "Tools/Compare",
       .menuText = "Line To Line Compare"},
  };
}

// --- cleanup ---------------------------------------------------------------------------------------------------------

Rows cleanupRows() {
  return {
      {.handler = "Command17_Click",
       .button = "Command17",
       .caption = "CleanUp",
       .toolTip = "Search a drive for files to clean",
       .icon = "cleanup",
       .heading = "Tools",
       .menu = "CleanUpSearch",
       .menuText = "CleanUp - Search",
       .number = 12,
       .mode = "CleanMode"},
  };
}

// --- vdt -------------------------------------------------------------------------------------------------------------

Rows vdtRows() {
  return {
      {.handler = "LocalDesk_Click",
       .toolTip = "Show or hide the Virtual DeskTop",
       .icon = "vdt",
       .heading = "Places/Virtual DeskTop (VDT) Options...",
       .menuText = "Virtual DeskTop [on/off]",
       .shortcut = "Ctrl+L",
       .number = 63},
      {.handler = "-38", .heading = "Places/Virtual DeskTop (VDT) Options...", .menuText = "-"},
      {.handler = "OpenPro_Click",
       .toolTip = "Fill the Virtual DeskTop from a project",
       .icon = "open",
       .heading = "Places/Virtual DeskTop (VDT) Options...",
       .menuText = "Open Project",
       .number = 72},
      {.handler = "NewPro_Click",
       .toolTip = "Start an empty project",
       .icon = "make-file",
       .heading = "Places/Virtual DeskTop (VDT) Options...",
       .menuText = "New Project",
       .number = 71},
      {.handler = "DeletePro_Click",
       .toolTip = "The active panel goes to the project folder, to delete there",
       .icon = "folder",
       .heading = "Places/Virtual DeskTop (VDT) Options...",
       .menuText = "Delete Project"},
      {.handler = "-39", .heading = "Places/Virtual DeskTop (VDT) Options...", .menuText = "-"},
      {.handler = "DelItems_Vd_Click",
       .toolTip = "Remove the selected pointers; their files stay",
       .icon = "delete",
       .heading = "Places/Virtual DeskTop (VDT) Options...",
       .menuText = "Detete Selected Item(s)"},
      {.handler = "Clear_Vd_Click",
       .toolTip = "Remove all pointers; their files stay",
       .icon = "reset",
       .heading = "Places/Virtual DeskTop (VDT) Options...",
       .menuText = "Clear Virtual Desktop"},
      {.handler = "CopyVDT_Click",
       .toolTip = "Copy the selected files of the Virtual DeskTop into the active panel",
       .icon = "copy",
       .heading = "File/Copy",
       .menuText = "Copy Items (Simplified) From VDT"},
      {.handler = "VDTstartup_Click",
       .toolTip = "Show the Virtual DeskTop when the program starts",
       .heading = "Options",
       .menuText = "Enable Virtual DeskTop At StartUp",
       .checkable = true},
  };
}

}  // namespace

std::vector<panels::Command> plannedCommands() {
  Rows all;
  for (const auto rows : {compareRows, cleanupRows, vdtRows})
    std::ranges::move(rows(), std::back_inserter(all));
  return all;
}

}  // namespace varnholt::app
