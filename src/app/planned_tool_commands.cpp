#include "app/planned_tool_commands.hpp"

#include <algorithm>
#include <iterator>

namespace varnholt::app {
namespace {

using Rows = std::vector<panels::Command>;

// --- search ----------------------------------------------------------------------------------------------------------

Rows searchRows() {
  return {
      {.handler = "-45", .heading = "Go", .menuText = "-"},
      {.handler = "QuickFindFolder_Click",
       .toolTip = "Find a folder by its name on a whole drive",
       .icon = "find-folder",
       .heading = "Go",
       .menuText = "Quick Find Folder On Drive(s)"},
      {.handler = "QuickFind_Click",
       .toolTip = "Go to a file of the active panel as you type",
       .icon = "find-item",
       .heading = "Go",
       .menuText = "Quick Find File In Active View"},
      {.handler = "QuickFolderInView_Click",
       .toolTip = "Go to a file or folder of the active panel as you type",
       .icon = "find-item",
       .heading = "Go",
       .menuText = "Quick Find Item In Active View"},
      {.handler = "FoundHistory_Click",
       .toolTip = "Found History In this Program Session.",
       .icon = "history",
       .heading = "Go",
       .menuText = "&Found History..."},
  };
}

// --- zip -------------------------------------------------------------------------------------------------------------

Rows zipRows() {
  return {
      {.handler = "MakeZip_Click",
       .toolTip = "Compress the selected items into a zip file",
       .icon = "zip",
       .heading = "File",
       .menuText = "Make &Zip File..."},
  };
}

// --- tools -----------------------------------------------------------------------------------------------------------

Rows toolsRows() {
  return {
      {.handler = "-46", .heading = "Tools", .menuText = "-"},
      {.handler = "DiskInfo_Click",
       .toolTip = "Size and use of the active drive and of the memory",
       .icon = "disk-info",
       .heading = "Tools/Disk and Memory",
       .menuText = "Quick Disk/Memory Information",
       .number = 29},
      {.handler = "DiskGraH_Click",
       .toolTip = "Chart the sizes of the selected items",
       .icon = "usage",
       .heading = "Tools/Disk and Memory",
       .menuText = "Disk Usage In Graphics (Selected Items)"},
      {.handler = "DrivetestAll_Click",
       .toolTip = "The test itself is a button of the disk information",
       .heading = "Tools/Disk and Memory",
       .menuText = "Test Your Drives For Ready Condition !"},
      {.handler = "Memory_fast_Click",
       .toolTip = "The memory is shown by the disk information",
       .heading = "Tools/Disk and Memory",
       .menuText = "Memory"},
      {.handler = "-47", .heading = "Tools/Disk and Memory", .menuText = "-"},
      {.handler = "attackdrive_Click",
       .toolTip = "Connect a network folder as a drive",
       .icon = "drive-network",
       .heading = "Tools/Disk and Memory",
       .menuText = "Map Drive"},
      {.handler = "Detachdrive_Click",
       .toolTip = "Disconnect a network drive",
       .icon = "drive-network",
       .heading = "Tools/Disk and Memory",
       .menuText = "Disconnect Drive"},
      {.handler = "NetOp_Click",
       .toolTip = "Network parameters of the operating system",
       .icon = "network",
       .heading = "Tools/Network",
       .menuText = "Optimize Networking (XP/Vista)",
       .number = 28},
      {.handler = "PingI_Click",
       .toolTip = "Test whether an address answers",
       .icon = "ping",
       .heading = "Tools/Network",
       .menuText = "&Ping Address..."},
      {.handler = "IPconfig_Click",
       .toolTip = "Show the network addresses of this machine",
       .heading = "Tools/Network",
       .menuText = "IP Config Status"},
      {.handler = "IPconfignew_Click",
       .toolTip = "Ask for new network addresses",
       .heading = "Tools/Network",
       .menuText = "IP Config Renew"},
      {.handler = "winexpl_Click",
       .toolTip = "Open the folder of the active panel in the file manager of the desktop",
       .icon = "folder",
       .heading = "Tools/Windows Programs",
       .menuText = "Windows Explorer (View Active Panel)"},
      {.handler = "winexplBoth_Click",
       .toolTip = "Open the folders of both panels in the file manager of the desktop",
       .icon = "folder",
       .heading = "Tools/Windows Programs",
       .menuText = "Windows Explorer (View Both Panels)"},
      {.handler = "regedit_Click",
       .toolTip = "Open the registry editor",
       .icon = "settings",
       .heading = "Tools/Windows Programs",
       .menuText = "Registry Editor"},
      {.handler = "OutlookExpress_Click",
       .toolTip = "Start the mail program",
       .heading = "Tools/Windows Programs",
       .menuText = "Mail - Outlook Express"},
      {.handler = "InternetB_Click",
       .toolTip = "Open the home page",
       .icon = "network",
       .heading = "Tools/Windows Programs",
       .menuText = "Internet Explorer (IE)"},
      {.handler = "-48", .heading = "Tools/Windows Programs", .menuText = "-"},
      {.handler = "WinShutDown_Click",
       .toolTip = "End the session of this user",
       .icon = "exit",
       .heading = "Tools/Windows Programs",
       .menuText = "Windows Logoff"},
      {.handler = "CleanPrefetch_Click",
       .toolTip = "Empty the prefetch folder",
       .icon = "clean-windows",
       .heading = "Tools/Clean Windows",
       .menuText = "Clean Prefetch Folder"},
      {.handler = "DelCookies_Click",
       .toolTip = "Delete all cookie files",
       .icon = "clean-windows",
       .heading = "Tools/Clean Windows",
       .menuText = "Delete Cookies"},
      {.handler = "DelRecent_Click",
       .toolTip = "Delete the list of recent files",
       .icon = "clean-windows",
       .heading = "Tools/Clean Windows",
       .menuText = "Delete Recent Files"},
      {.handler = "-49", .heading = "Tools", .menuText = "-"},
      {.handler = "CommaFile_Click",
       .toolTip = "Write the selected items to a file that spreadsheets read",
       .icon = "report",
       .heading = "Tools",
       .menuText = "Selection > Comma File [ *.Csv  Excel ]"},
  };
}

// --- appearance ------------------------------------------------------------------------------------------------------

Rows appearanceRows() {
  return {
      {.handler = "Command26_Click",
       .button = "Command26",
       .caption = "Pview",
       .toolTip = "Enable/Disable Picture View ( Alt+Bksp)",
       .icon = "picture",
       .number = 13},
      {.handler = "-50", .heading = "View", .menuText = "-"},
      {.handler = "Picview_Toggle_Click",
       .toolTip = "Enable/Disable Picture View ( Alt+Bksp)",
       .icon = "picture",
       .heading = "View",
       .menuText = "Picture View - Toggle",
       .shortcut = "Alt+Backspace"},
      {.handler = "Picview_Click",
       .toolTip = "Draw pictures as large as their box, or in their own size",
       .heading = "View",
       .menuText = "Picture Stretch [on/off]",
       .shortcut = "F12",
       .checkable = true},
      {.handler = "CommandsTree_Click",
       .toolTip = "The main commands and a folder tree in a small window",
       .icon = "tree",
       .heading = "View",
       .menuText = "&Commands..."},
  };
}

}  // namespace

std::vector<panels::Command> plannedToolCommands() {
  Rows all;
  for (const auto rows : {searchRows, zipRows, toolsRows, appearanceRows})
    std::ranges::move(rows(), std::back_inserter(all));
  return all;
}

}  // namespace varnholt::app
