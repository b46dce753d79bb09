#include "app/planned_commands.hpp"

#include "app/planned_tool_commands.hpp"

#include <algorithm>
#include <iterator>

namespace varnholt::app {
namespace {

using Rows = std::vector<panels::Command>;

// --- fileops ---------------------------------------------------------------------------------------------------------

Rows fileopsRows() {
  return {
      {.handler = "Command1_Click",
       .button = "Command1",
       .caption = "Copy",
       .toolTip = "Copy Selected Items",
       .icon = "copy",
       .number = 1,
       .mode = "CopyMode"},
      {.handler = "Command3_Click",
       .button = "Command3",
       .caption = "Move",
       .toolTip = "Move Selected Items (Ctrl+X)",
       .icon = "move",
       .number = 2,
       .mode = "MoveMode"},
      {.handler = "Command4_Click",
       .button = "Command4",
       .caption = "Delete",
       .toolTip = "Delete Selected Items",
       .icon = "delete",
       .number = 3,
       .mode = "DeleteMode"},
      {.handler = "Command11_Click",
       .button = "Command11",
       .caption = "NewFolder",
       .toolTip = "Create Folder in Active View (Ctrl+N).",
       .icon = "new-folder",
       .number = 4,
       .mode = "FolderMode"},
      {.handler = "Command2_Click",
       .button = "Command2",
       .caption = "Edit File",
       .toolTip = "Edit Selected Item",
       .icon = "edit",
       .number = 7},
      {.handler = "Command13_Click",
       .button = "Command13",
       .caption = "Make File",
       .toolTip = "Make an empty file in the active view and edit it",
       .icon = "make-file",
       .number = 8,
       .mode = "EditMode"},
      {.handler = "Command15_Click",
       .button = "Command15",
       .caption = "Properties",
       .toolTip = "File/Folder Details in Seperate window (Ctrl+U)",
       .icon = "properties",
       .number = 10,
       .mode = "FilesMode"},
      {.handler = "CopyItems_Click",
       .toolTip = "Copy Selected Items",
       .icon = "copy",
       .heading = "File/Copy",
       .menuText = "&Copy Items..."},
      {.handler = "CopySelection_Click",
       .toolTip = "Add the selected items to the paste basket",
       .icon = "copy",
       .heading = "File/Copy",
       .menuText = "Copy &Selection"},
      {.handler = "CopyDesktop_Click",
       .toolTip = "Copy the selected files to the desktop folder",
       .icon = "copy",
       .heading = "File/Copy",
       .menuText = "Copy To &Desktop"},
      {.handler = "Copyfrom_desktop_Click",
       .toolTip = "Show the desktop folder in the active panel",
       .icon = "folder",
       .heading = "File/Copy",
       .menuText = "Copy &From Desktop"},
      {.handler = "WinCopy_Click",
       .toolTip = "Add the selected items to the paste basket",
       .icon = "copy",
       .heading = "File",
       .menuText = "C&opy To Paste Basket",
       .shortcut = "Ctrl+C"},
      {.handler = "WinPaste_Click",
       .toolTip = "Copy all that the paste basket holds into the active panel",
       .icon = "paste",
       .heading = "File",
       .menuText = "&Paste From Basket",
       .shortcut = "Ctrl+V"},
      {.handler = "RegOptions_Click",
       .toolTip = "Look at the paste basket, save it and load it",
       .icon = "paste-viewer",
       .heading = "File",
       .menuText = "Paste &Viewer...",
       .number = 82},
      {.handler = "-31", .heading = "File", .menuText = "-"},
      {.handler = "MoveItems_Click",
       .toolTip = "Move Selected Items (Ctrl+X)",
       .icon = "move",
       .heading = "File",
       .menuText = "&Move Items...",
       .shortcut = "Ctrl+X"},
      {.handler = "Deleteitems_Click",
       .toolTip = "Delete Selected Items",
       .icon = "delete",
       .heading = "File",
       .menuText = "&Delete Items..."},
      {.handler = "ExFiles_Click",
       .toolTip = "Exchange the selected files of both panels",
       .icon = "swap",
       .heading = "File",
       .menuText = "&Swap Files Between Panels"},
      {.handler = "-32", .heading = "File", .menuText = "-"},
      {.handler = "Foldermake_Click",
       .toolTip = "Create Folder in Active View (Ctrl+N).",
       .icon = "new-folder",
       .heading = "File",
       .menuText = "&New Folder...",
       .shortcut = "Ctrl+N"},
      {.handler = "Makefile_Click",
       .toolTip = "Make an empty file in the active view and edit it",
       .icon = "make-file",
       .heading = "File",
       .menuText = "Make &File..."},
      {.handler = "EditFile_Click",
       .toolTip = "Edit Selected Item",
       .icon = "edit",
       .heading = "File",
       .menuText = "&Edit File"},
      {.handler = "-33", .heading = "File", .menuText = "-"},
      {.handler = "multiAtribut_Click",
       .toolTip = "Set the attributes of the selected files",
       .icon = "attributes",
       .heading = "File",
       .menuText = "&Attributes...",
       .number = 81,
       .mode = "AttributMode"},
      {.handler = "Fdetails_Click",
       .toolTip = "File/Folder Details in Seperate window (Ctrl+U)",
       .icon = "properties",
       .heading = "File",
       .menuText = "Proper&ties...",
       .shortcut = "Ctrl+U"},
      {.handler = "ValCopyMove_Click",
       .toolTip = "Test the free space of the target before a copy or move",
       .heading = "Options",
       .menuText = "&Validate Copy And Move",
       .checkable = true},
  };
}

// --- rename ----------------------------------------------------------------------------------------------------------

Rows renameRows() {
  return {
      {.handler = "Command14_Click",
       .button = "Command14",
       .caption = "Rename",
       .toolTip = "Rename Selected item",
       .icon = "rename",
       .number = 9,
       .mode = "RenameMode"},
      {.handler = "RenFileFolder_Click",
       .toolTip = "Rename Selected item",
       .icon = "rename",
       .heading = "File",
       .menuText = "&Rename..."},
  };
}

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

// --- filters ---------------------------------------------------------------------------------------------------------

Rows filtersRows() {
  return {
      {.handler = "Command5_Click",
       .button = "Command5",
       .caption = "Filter",
       .toolTip = "FilePattern As  [*.*],  [?x?y.*],  [*.ext] ect. (Ctrl+M)",
       .icon = "filter",
       .number = 5,
       .mode = "FilterMode"},
      {.handler = "-37", .heading = "Select", .menuText = "-"},
      {.handler = "Filepatt_Click",
       .toolTip = "FilePattern As  [*.*],  [?x?y.*],  [*.ext] ect. (Ctrl+M)",
       .icon = "filter",
       .heading = "Select",
       .menuText = "Filter Function",
       .shortcut = "Ctrl+M"},
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
  for (const auto rows : {fileopsRows, renameRows, compareRows, cleanupRows, filtersRows, vdtRows, plannedToolCommands})
    std::ranges::move(rows(), std::back_inserter(all));
  return all;
}

}  // namespace varnholt::app
