#include "panels/panel_commands.hpp"

#include <array>

namespace varnholt::panels {
namespace {

using Rows = std::vector<Command>;

void toggle(Desk& d, const char* entry) {
  auto& item = d.form.Menu[entry];
  item.Checked = !item.Checked;
}

void inActivePanel(Desk& d, void (Navigation::*go)(Panel&)) {
  if (Panel* panel = d.form.activePanel()) (d.navigation.*go)(*panel);
}

constexpr auto HeadingNames = std::to_array<HeadingName>({
    {"File", "FileMenu"},
    {"Select", "SelectMenu"},
    {"View", "View"},
    {"Go", "GoMenu"},
    {"Places", "PlacesMenu"},
    {"Tools", "ToolsMenu"},
    {"Options", "OptionsMenu"},
    {"Help", "HelpMenu"},
    {"Options/List Colors", "ColorMenu"},
    {"Tools/Clean Windows Items", "Cleanwindows"},
});

/// The navigation buttons of both panels.
Rows navigationButtons(Desk& d) {
  struct Pair {
    const char *left, *right, *toolTip, *icon;
    void (Navigation::*go)(Panel&);
  };
  constexpr Pair Pairs[] = {
      {"Command23", "Command25", "Browse Back", "back", &Navigation::Browseback},
      {"Command22", "Command24", "Browse Forward", "forward", &Navigation::Browseforward},
      {"Command8", "Command9", "Return to Parent Folder With History", "parent-history", &Navigation::Prevfolder},
      {"Command18", "Command19", "Return to Parent Folder Without History", "parent", &Navigation::parentFolder},
      {"Command6", "Command7", "Return to Root Folder", "root", &Navigation::rootFolder},
  };
  Rows rows;
  for (const Pair& pair : Pairs)
    for (Panel* panel : {&d.form.Panel1, &d.form.Panel2}) {
      const std::string button = panel->side == Side::Left ? pair.left : pair.right;
      rows.push_back({.handler = button + "_Click",
                      .button = button,
                      .toolTip = pair.toolTip,
                      .icon = pair.icon,
                      .run = [&d, go = pair.go, panel] { (d.navigation.*go)(*panel); }});
    }
  return rows;
}

/// Buttons of the command row without a menu entry of their own.
Rows commandRowButtons(Desk& d) {
  return {
      {.handler = "Command27_Click",
       .button = "Command27",
       .caption = "Reset",
       .toolTip = "Refresh Current View and Resets recall  buffer in current folder.",
       .icon = "reset",
       .number = 14,
       .run = [&d] { d.selection.Command27_Click(); }},
      {.handler = "Command10_Click",
       .button = "Command10",
       .caption = "Exit",
       .toolTip = "Exit Varnholt, With Temp-File CleanUp (Alt+F4)",
       .icon = "exit",
       .run = [&d] { d.state.Command10_Click(); }},
  };
}

Rows fileRows(PanelKeys& k) {
  return {
      {.handler = "OpenSelected_Click",
       .toolTip = "Enter the folder in focus, or open the file with its program",
       .icon = "open",
       .heading = "File",
       .menuText = "Open Selected &Item",
       .run = [&k] { k.OpenSelected_Click(); }},
  };
}

Rows selectRows(Desk& d, PanelKeys& k) {
  return {
      {.handler = "MarkItem_Click",
       .toolTip = "Select the item in focus, or take it from the selection, and step to the next one",
       .heading = "Select",
       .menuText = "Mark And Step &Down",
       .run = [&k] { k.MarkItem_Click(); }},
      {.handler = "selectall_Click",
       .toolTip = "Select All Items in Current View",
       .icon = "select-all",
       .heading = "Select",
       .menuText = "Select &All",
       .number = 15,
       .run = [&d] { d.selection.selectall_Click(); }},
      {.handler = "Inversel_Click",
       .toolTip = "Select what is not selected, and the other way round",
       .icon = "inverse",
       .heading = "Select",
       .menuText = "&Inverse Selection",
       .run = [&d] { d.selection.Inversel_Click(); }},
      {.handler = "Selsize_Click",
       .toolTip = "Size of the selected items",
       .icon = "info",
       .heading = "Select",
       .menuText = "Si&ze Of Selection",
       .run = [&d] { d.selection.Selsize_Click(); }},
      {.handler = "IncludeFolder_Click",
       .toolTip = "Select All and Inverse Selection take folders too",
       .heading = "Select",
       .menuText = "Select Also &Folders",
       .run = [&d] { d.selection.IncludeFolder_Click(); }},
      {.handler = "Command16_Click",
       .button = "Command16",
       .caption = "ReCall",
       .toolTip = "Select again what was selected in the active view",
       .icon = "recall",
       .heading = "Select",
       .menu = "ReCallItems",
       .menuText = "&ReCall",
       .number = 6,
       .newGroup = true,
       .run = [&d] { d.selection.Command16_Click(); }},
      {.handler = "Recallprevius_Click",
       .toolTip = "Recall Last Selection Set, (Select All not included) [Ctrl+S]",
       .icon = "recall",
       .heading = "Select",
       .menuText = "Recall &Last Selection Set",
       .shortcut = "Ctrl+S",
       .run = [&d] { d.selection.Recallprevius_Click(); }},
      {.handler = "ResetRecall_Click",
       .toolTip = "Empty the recall buffer of the active view",
       .icon = "reset",
       .heading = "Select",
       .menuText = "R&eset Recall",
       .run = [&d] { d.selection.ResetRecall_Click(); }},
      {.handler = "selhis_Click",
       .toolTip = "Keep a record of what was selected, for ReCall",
       .heading = "Select",
       .menuText = "Keep Selection &History",
       .run = [&d] { toggle(d, "selhis"); }},
      {.handler = "Psi_Click",
       .toolTip = "Show the number of selected items in the status bar",
       .heading = "Select",
       .menuText = "Show Selected &Count",
       .run = [&d] { d.selection.Psi_Click(); }},
  };
}

/// The two lines that share the right end of the menu bar.
Rows filterLines() {
  return {
      {.handler = "Viewfilter_Click",
       .toolTip = "The files that both panels show",
       .heading = "|",
       .menuText = "|  View Filter:  All Files  (*.*)"},
      {.handler = "Filefilter_Click",
       .toolTip = "The filter that made the selection",
       .heading = "|",
       .menuText = "|  File Filter: "},
  };
}

Rows viewRows(Desk& d) {
  return {
      {.handler = "refrechview_Click",
       .toolTip = "Refresh Current View",
       .icon = "refresh",
       .heading = "View",
       .menuText = "&Refresh View",
       .shortcut = "F4",
       .run =
           [&d] {
             d.drives.refresh();
             d.navigation.leaveVanished();
             d.listing.viewrefresh();
             d.navigation.showPlace();
           }},
      {.handler = "Viewall_Click",
       .toolTip = "Show all files in both panels",
       .heading = "View",
       .menuText = "All Files  (*.*)   [Default]",
       .newGroup = true,
       .run = [&d] { d.choices.Viewall_Click(); }},
      {.handler = "ViewProg_Click",
       .toolTip = "Show programs only in both panels",
       .heading = "View",
       .menuText = "Programs Only (*.exe , *.Com)",
       .run = [&d] { d.choices.ViewProg_Click(); }},
      {.handler = "HidSysfiles_Click",
       .toolTip = "Show hidden and system files too",
       .heading = "View",
       .menuText = "Hidden and system Files",
       .run = [&d] { d.choices.HidSysfiles_Click(); }},
      {.handler = "Treeon_Click",
       .toolTip = "Show or hide the tree window",
       .icon = "tree",
       .heading = "View",
       .menuText = "&Tree Window",
       .newGroup = true,
       .run = [&d] { d.trees.Treeon_Click(); }},
  };
}

Rows dateRows(Desk& d) {
  return {
      {.handler = "DateModi_Click",
       .toolTip = "Show and sort by the date of the last change",
       .heading = "View/Date System",
       .menuText = "Date &Modified",
       .run = [&d] { d.choices.DateModi_Click(); }},
      {.handler = "DateCreate_Click",
       .toolTip = "Show and sort by the date of creation",
       .heading = "View/Date System",
       .menuText = "Date &Created",
       .run = [&d] { d.choices.DateCreate_Click(); }},
      {.handler = "DateAcess_Click",
       .toolTip = "Show and sort by the date of the last access",
       .heading = "View/Date System",
       .menuText = "Date &Accessed",
       .run = [&d] { d.choices.DateAcess_Click(); }},
      {.handler = "DateTime12_Click",
       .toolTip = "Month first, hours with AM and PM",
       .heading = "View/Date System",
       .menuText = "&12 Hour Clock",
       .newGroup = true,
       .run = [&d] { d.choices.DateTime12_Click(); }},
      {.handler = "DateTime24_Click",
       .toolTip = "Day first, hours from 0 to 23",
       .heading = "View/Date System",
       .menuText = "&24 Hour Clock",
       .run = [&d] { d.choices.DateTime24_Click(); }},
  };
}

Rows goRows(Desk& d, PanelKeys& k) {
  return {
      {.handler = "BrowseBack_Click",
       .toolTip = "The active panel goes back to where it was before",
       .icon = "back",
       .heading = "Go",
       .menuText = "Browse Bac&k",
       .run = [&d] { inActivePanel(d, &Navigation::Browseback); }},
      {.handler = "BrowseForward_Click",
       .toolTip = "The active panel goes forward again",
       .icon = "forward",
       .heading = "Go",
       .menuText = "Browse For&ward",
       .run = [&d] { inActivePanel(d, &Navigation::Browseforward); }},
      {.handler = "ParentWithHistory_Click",
       .toolTip = "Return to Parent Folder With History",
       .icon = "parent-history",
       .heading = "Go",
       .menuText = "&Parent Folder With History",
       .run = [&d] { inActivePanel(d, &Navigation::Prevfolder); }},
      {.handler = "OtherPanel_Click",
       .toolTip = "Make the other panel the active one",
       .heading = "Go",
       .menuText = "&Other Panel",
       .run = [&k] { k.OtherPanel_Click(); }},
      {.handler = "rootreset_Click",
       .toolTip = "Both panels go to the root folder of their drive",
       .icon = "root",
       .heading = "Go",
       .menuText = "Return to Root Folder",
       .newGroup = true,
       .run = [&d] { d.navigation.rootreset_Click(); }},
      {.handler = "ResetHomeDrive_Click",
       .toolTip = "Both panels go to the home folder",
       .icon = "home",
       .heading = "Go",
       .menuText = "&Home Folder In Both Panels",
       .run = [&d] { d.navigation.ResetHomeDrive_Click(); }},
      {.handler = "store_Click",
       .toolTip = "Remember the folder of the active panel",
       .icon = "save",
       .heading = "Go",
       .menuText = "&Store Location",
       .newGroup = true,
       .run = [&d] { d.navigation.store_Click(); }},
      {.handler = "viewlastexit_Click",
       .toolTip = "The active panel goes to the stored location",
       .heading = "Go",
       .menuText = "&Go To Stored Location",
       .number = 36,
       .run = [&d] { d.navigation.viewlastexit_Click(); }},
      {.handler = "Recall_Click",
       .toolTip = "Remember the folder of the active panel as the one to recall",
       .icon = "save",
       .heading = "Go",
       .menuText = "Store &Recall Folder",
       .newGroup = true,
       .run = [&d] { d.selection.Recall_Click(); }},
      {.handler = "Undo_recall_Click",
       .toolTip = "The active panel goes back to the recall folder",
       .icon = "undo",
       .heading = "Go",
       .menuText = "&Back To Recall Folder",
       .run = [&d] { d.selection.Undo_recall_Click(); }},
      {.handler = "savefolder_his_Click",
       .toolTip = "Write the folder history to its file now",
       .icon = "save",
       .heading = "Go/Folder History",
       .menuText = "&Save Folder History",
       .newGroup = true,
       .run = [&d] { d.navigation.savefolder_his_Click(); }},
      {.handler = "ClearHis_Click",
       .toolTip = "Empty the folder history",
       .icon = "reset",
       .heading = "Go/Folder History",
       .menuText = "&Clear Folder History",
       .run = [&d] { d.navigation.ClearHis_Click(); }},
      {.handler = "AutoSaveHis_Click",
       .toolTip = "Write the history files at each exit",
       .heading = "Go/Folder History",
       .menuText = "Save Histories At &Exit",
       .run = [&d] { toggle(d, "AutoSaveHis"); }},
  };
}

Rows toolRows(PanelKeys& k) {
  return {
      {.handler = "CmdLine_Click",
       .toolTip = "Show the command line with the item in focus",
       .icon = "command-line",
       .heading = "Tools",
       .menuText = "CommandLine [Ctrl+Enter]",
       .run = [&k] { k.commandline(); }},
  };
}

Rows listLookRows(Desk& d) {
  return {
      {.handler = "BlueBlack_Click",
       .toolTip = "Blue-black lines behind the lists",
       .heading = "Options/List Colors",
       .menuText = "Blue-Black (Default)",
       .run = [&d] { d.looks.BlueBlack_Click(); }},
      {.handler = "BrownBlack_Click",
       .toolTip = "Brown-black lines behind the lists",
       .heading = "Options/List Colors",
       .menuText = "Brown-Black",
       .run = [&d] { d.looks.BrownBlack_Click(); }},
      {.handler = "GrayBlack_Click",
       .toolTip = "Gray-black lines behind the lists",
       .heading = "Options/List Colors",
       .menuText = "Gray-Black",
       .run = [&d] { d.looks.GrayBlack_Click(); }},
      {.handler = "ShiftColors_Click",
       .toolTip = "Shift the color of every other line in the panels",
       .heading = "Options",
       .menuText = "Shift Colors In &Panels",
       .run = [&d] { d.looks.ShiftColors_Click(); }},
      {.handler = "ShiftColorOther_Click",
       .toolTip = "Shift the color of every other line in the lists of other windows",
       .heading = "Options",
       .menuText = "Shift Colors In &Other Lists",
       .run = [&d] { d.looks.ShiftColorOther_Click(); }},
      {.handler = "GridLines_Click",
       .toolTip = "Lines between the rows and columns of the panels",
       .heading = "Options",
       .menuText = "&Grid Lines",
       .run = [&d] { d.looks.GridLines_Click(); }},
  };
}

Rows positionRows(Desk& d) {
  return {
      {.handler = "Auto_Save_Click",
       .toolTip = "Save the window positions at each exit",
       .heading = "Options/Positions and Columns",
       .menuText = "Save Positions At &Exit",
       .newGroup = true,
       .run = [&d] { toggle(d, "Auto_Save"); }},
      {.handler = "Program_pos_Click",
       .toolTip = "Save the positions of the main window and the tree window",
       .icon = "save",
       .heading = "Options/Positions and Columns",
       .menuText = "Save &Positions Now",
       .run = [&d] { d.state.Program_pos_Click(); }},
      {.handler = "SavColumnH_Click",
       .toolTip = "Save the widths of the columns as they are",
       .icon = "save",
       .heading = "Options/Positions and Columns",
       .menuText = "Save &Column Widths",
       .newGroup = true,
       .run = [&d] { d.state.SavColumnH_Click(); }},
      {.handler = "ResetCol_Click",
       .toolTip = "Forget the saved widths of the columns",
       .icon = "reset",
       .heading = "Options/Positions and Columns",
       .menuText = "&Reset Column Widths",
       .run = [&d] { d.state.ResetCol_Click(); }},
      {.handler = "ReturnDefault_Click",
       .toolTip = "Forget all saved positions and widths, and shut down",
       .icon = "reset",
       .heading = "Options/Positions and Columns",
       .menuText = "Return To &Default Positions...",
       .newGroup = true,
       .run = [&d] { d.state.ReturnDefault_Click(); }},
  };
}

Rows lastCommandRows(Desk& d) {
  return {
      {.handler = "RunLastCommand_Click",
       .toolTip = "Run the remembered command again",
       .icon = "run",
       .heading = "Options/Last Command",
       .menuText = "Run Last Command",
       .run = [&d] { d.dispatcher.runLast(); }},
      {.handler = "LockOnLast_Click",
       .toolTip = "Keep remembering the same command, whatever runs",
       .heading = "Options/Last Command",
       .menuText = "&Lock On Last Command",
       .run = [&d] { d.dispatcher.LockOnLast_Click(); }},
      {.handler = "RLC_Click",
       .toolTip = "The space bar opens the parent folder, and the last command can be locked",
       .heading = "Options/Last Command",
       .menuText = "Space Bar Opens &Parent Folder",
       .newGroup = true,
       .run = [&d] { d.dispatcher.RLC_Click(); }},
      {.handler = "PreFolder_Click",
       .toolTip = "The space bar selects the item in focus, and the last command cannot be locked",
       .heading = "Options/Last Command",
       .menuText = "Space Bar &Selects",
       .run = [&d] { d.dispatcher.PreFolder_Click(); }},
  };
}

Rows startRows(Desk& d) {
  return {
      {.handler = "WinStart_Click",
       .toolTip = "A drive opens at the folder that was shown there last",
       .heading = "Options",
       .menuText = "Goto Last Opened Folder When Drive Changed !",
       .newGroup = true,
       .run = [&d] { toggle(d, "WinStart"); }},
      {.handler = "TipStart_Click",
       .toolTip = "Show the tip when the program starts",
       .heading = "Options",
       .menuText = "Show &Tip At Startup",
       .run =
           [&d] {
             toggle(d, "TipStart");
             d.tip.LoadTip.Value = d.form.Menu["TipStart"].Checked ? 0 : 1;
           }},
  };
}

}  // namespace

void PanelCommands::addCommands(CommandTable& table) {
  table.add(navigationButtons(desk_));
  table.add(commandRowButtons(desk_));
  table.add(fileRows(keys_));
  table.add(selectRows(desk_, keys_));
  table.add(filterLines());
  table.add(viewRows(desk_));
  table.add(dateRows(desk_));
  table.add(goRows(desk_, keys_));
  table.add(toolRows(keys_));
  table.add(listLookRows(desk_));
  table.add(positionRows(desk_));
  table.add(lastCommandRows(desk_));
  table.add(startRows(desk_));
}

std::vector<Command> closingCommands(Desk& d) {
  return {
      {.handler = "exit_program_Click",
       .toolTip = "Close the program; its state is kept",
       .icon = "exit",
       .heading = "File",
       .menuText = "E&xit",
       .shortcut = "Alt+F4",
       .newGroup = true,
       .run = [&d] { d.state.exit_program_Click(); }},
      {.handler = "Peruninstall_Click",
       .toolTip = "Delete all settings and data of the program before it is uninstalled",
       .icon = "warning",
       .heading = "Help",
       .menuText = "&Prepare For Uninstall...",
       .after = "Readme",
       .newGroup = true,
       .run = [&d] { d.state.Peruninstall_Click(); }},
  };
}

std::span<const HeadingName> headingNames() { return HeadingNames; }

}  // namespace varnholt::panels
