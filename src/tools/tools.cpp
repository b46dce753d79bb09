#include "tools/tools.hpp"

#include "core/diagnostic_log.hpp"
#include "core/system_tools.hpp"

namespace varnholt::tools {

Tools::Tools(panels::Desk& desk, const panels::Icons& icons)
    : desk_(desk),
      form8(desk.program.loop, core::programVersion()),
      Form17(desk),
      Form31(desk),
      Form39(desk),
      Form45(desk, icons),
      frmHelp(desk),
      shortcuts(desk),
      report(desk),
      cleanWindows(desk) {
  desk.form.events.VDT_Aktive.listen([this](bool active) {
    for (const char* entry : {"DiskGraH", "DrivetestAll"})
      desk_.form.Menu[entry].Enabled = !active;
  });
}

void Tools::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "Dos_Click",
       .toolTip = "Open a command prompt",
       .icon = "command-prompt",
       .heading = "Tools",
       .menuText = "Command &Prompt",
       .run = [this] { shortcuts.Dos_Click(); }},
      {.handler = "CommaFile_Click",
       .toolTip = "Write the selected items into a comma separated file",
       .icon = "report",
       .heading = "Select",
       .menuText = "Selection > Comma File [ *.Csv  Excel ]",
       .newGroup = true,
       .run = [this] { report.CommaFile_Click(); }},
      {.handler = "Help_file_Click",
       .toolTip = "What the windows and the commands do, to read and to search",
       .icon = "help",
       .heading = "Help",
       .menuText = "&Help...",
       .shortcut = "F1",
       .run = [this] { frmHelp.Help_file_Click(); }},
      {.handler = "Readme_Click",
       .toolTip = "Open the file Readme.txt",
       .icon = "info",
       .heading = "Help",
       .menuText = "Read me..",
       .run = [this] { shortcuts.Readme_Click(); }},
      {.handler = "About_program_Click",
       .toolTip = "Version of the program",
       .icon = "about",
       .heading = "Help",
       .menuText = "&About Varnholt...",
       .newGroup = true,
       .run = [this] { form8.ShowModal(); }},
  });
  addDiskCommands(table);
  addNetworkCommands(table);
  addSystemCommands(table);
}

void Tools::addDiskCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "DiskInfo_Click",
       .toolTip = "Space of the active panel's drive, and the memory",
       .icon = "disk-info",
       .heading = "Tools/Drives and Memory",
       .menuText = "Quick Disk/Memory Information",
       .number = 29,
       .run = [this] { Form17.DiskInfo_Click(); }},
      {.handler = "DiskGraH_Click",
       .toolTip = "How large each of the selected items is, as a chart and as a list",
       .icon = "usage",
       .heading = "Tools/Drives and Memory",
       .menuText = "Disk Usage In Graphics (Selected Items)",
       .run = [this] { Form45.DiskGraH_Click(); }},
      {.handler = "DrivetestAll_Click",
       .toolTip = "Which drives are ready, and how much is free on each",
       .icon = "drive-fixed",
       .heading = "Tools/Drives and Memory",
       .menuText = "Test Your Drives For Ready Condition !",
       .newGroup = true,
       .run = [this] { Form17.DrivetestAll_Click(); }},
      {.handler = "Memory_fast_Click",
       .toolTip = "How much of the memory is used",
       .icon = "disk-info",
       .heading = "Tools/Drives and Memory",
       .menuText = "Memory",
       .run = [this] { Form17.DiskInfo_Click(); }},
      {.handler = "attackdrive_Click",
       .toolTip = "Connect a network drive",
       .icon = "drive-network",
       .heading = "Tools/Drives and Memory",
       .menuText = "Map Drive",
       .newGroup = true,
       .run = [this] { shortcuts.attackdrive_Click(); }},
      {.handler = "Detachdrive_Click",
       .toolTip = "Disconnect a network drive",
       .icon = "drive-network",
       .heading = "Tools/Drives and Memory",
       .menuText = "Disconnect Drive",
       .run = [this] { shortcuts.Detachdrive_Click(); }},
  });
}

void Tools::addNetworkCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "NetOp_Click",
       .toolTip = "Network parameters as the program's registry keeps them",
       .icon = "network",
       .heading = "Tools/Network",
       .menuText = "Optimize Networking (XP/Vista)",
       .number = 28,
       .run = [this] { Form31.NetOp_Click(); }},
      {.handler = "PingI_Click",
       .toolTip = "Ask another machine for answers",
       .icon = "ping",
       .heading = "Tools/Network",
       .menuText = "&Ping Address...",
       .newGroup = true,
       .run = [this] { Form39.PingI_Click(); }},
      {.handler = "IPconfig_Click",
       .toolTip = "The network addresses of this machine",
       .icon = "network",
       .heading = "Tools/Network",
       .menuText = "IP Config Status",
       .run = [this] { shortcuts.IPconfig_Click(); }},
      {.handler = "IPconfignew_Click",
       .toolTip = "Ask the network for new addresses",
       .icon = "refresh",
       .heading = "Tools/Network",
       .menuText = "IP Config Renew",
       .run = [this] { shortcuts.IPconfignew_Click(); }},
  });
}

void Tools::addSystemCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "winexpl_Click",
       .toolTip = "Show the active panel's folder in the desktop's file manager",
       .icon = "folder",
       .heading = "Tools/System",
       .menuText = "Windows Explorer (View Active Panel)",
       .run = [this] { shortcuts.winexpl_Click(); }},
      {.handler = "winexplBoth_Click",
       .toolTip = "Show the folders of both panels in the desktop's file manager",
       .icon = "folder",
       .heading = "Tools/System",
       .menuText = "Windows Explorer (View Both Panels)",
       .run = [this] { shortcuts.winexplBoth_Click(); }},
      {.handler = "regedit_Click",
       .toolTip = "Look at the program's registry",
       .icon = "settings",
       .heading = "Tools/System",
       .menuText = "Registry Editor",
       .newGroup = true,
       .run = [this] { shortcuts.regedit_Click(); }},
      {.handler = "OutlookExpress_Click",
       .toolTip = "Start the desktop's mail program",
       .icon = "run",
       .heading = "Tools/System",
       .menuText = "Mail - Outlook Express",
       .newGroup = true,
       .run = [this] { shortcuts.OutlookExpress_Click(); }},
      {.handler = "InternetB_Click",
       .toolTip = "Open the program's home page in the desktop's browser",
       .icon = "home",
       .heading = "Tools/System",
       .menuText = "Internet Explorer (IE)",
       .run = [this] { shortcuts.InternetB_Click(); }},
      {.handler = "WinShutDown_Click",
       .toolTip = "End the desktop session",
       .icon = "exit",
       .heading = "Tools/System",
       .menuText = "Windows Logoff",
       .newGroup = true,
       .run = [this] { shortcuts.WinShutDown_Click(); }},
      {.handler = "CleanPrefetch_Click",
       .toolTip = "Empty the folder Prefetch of the Windows folder",
       .icon = "clean-windows",
       .heading = "Tools/Clean Windows Items",
       .menuText = "Clean Prefetch Folder",
       .run = [this] { cleanWindows.CleanPrefetch_Click(); }},
      {.handler = "DelCookies_Click",
       .toolTip = "Delete the files of the cookies folder",
       .icon = "clean-windows",
       .heading = "Tools/Clean Windows Items",
       .menuText = "Delete Cookies",
       .run = [this] { cleanWindows.DelCookies_Click(); }},
      {.handler = "DelRecent_Click",
       .toolTip = "Delete the files of the recent files folder",
       .icon = "clean-windows",
       .heading = "Tools/Clean Windows Items",
       .menuText = "Delete Recent Files",
       .run = [this] { cleanWindows.DelRecent_Click(); }},
  });
}

void Tools::load() {
  auto& menu = desk_.form.Menu;
  // What hands over to a tool that the system lacks is not offered.
  if (core::systemTool(desk_.program, "system32\\cmd.exe").empty()) menu["Dos"].Enabled = false;
  if (core::systemTool(desk_.program, "system32\\ipconfig.exe").empty())
    for (const char* entry : {"IPconfig", "IPconfignew"})
      menu[entry].Enabled = false;
  const auto version = desk_.program.platform.system.version();
  for (const char* entry : {"Cleanwindows", "NetOp"})
    menu[entry].Enabled = version.major > 5 && version.major < 7;
}

}  // namespace varnholt::tools
