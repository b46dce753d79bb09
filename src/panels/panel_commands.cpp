#include "panels/panel_commands.hpp"

#include <algorithm>
#include <array>
#include <iterator>

namespace varnholt::panels {
namespace {

using Rows = std::vector<Command>;

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
    {"Tools/Clean Windows", "Cleanwindows"},
});

/// The navigation buttons of both panels: the first of each pair is the left panel's.
Rows navigationButtons() {
  return {
      {.handler = "Command23_Click", .button = "Command23", .toolTip = "Browse Back", .icon = "back"},
      {.handler = "Command25_Click", .button = "Command25", .toolTip = "Browse Back", .icon = "back"},
      {.handler = "Command22_Click", .button = "Command22", .toolTip = "Browse Forward", .icon = "forward"},
      {.handler = "Command24_Click", .button = "Command24", .toolTip = "Browse Forward", .icon = "forward"},
      {.handler = "Command8_Click",
       .button = "Command8",
       .toolTip = "Return to Parent Folder With History",
       .icon = "parent-history"},
      {.handler = "Command9_Click",
       .button = "Command9",
       .toolTip = "Return to Parent Folder With History",
       .icon = "parent-history"},
      {.handler = "Command18_Click",
       .button = "Command18",
       .toolTip = "Return to Parent Folder Without History",
       .icon = "parent"},
      {.handler = "Command19_Click",
       .button = "Command19",
       .toolTip = "Return to Parent Folder Without History",
       .icon = "parent"},
      {.handler = "Command6_Click", .button = "Command6", .toolTip = "Return to Root Folder", .icon = "root"},
      {.handler = "Command7_Click", .button = "Command7", .toolTip = "Return to Root Folder", .icon = "root"},
  };
}

/// Buttons of the command row without a menu entry of their own.
Rows commandRowButtons() {
  return {
      {.handler = "Command27_Click",
       .button = "Command27",
       .caption = "Reset",
       .toolTip = "Refresh Current View and Resets recall  buffer in current folder.",
       .icon = "reset",
       .number = 14},
      {.handler = "Command10_Click",
       .button = "Command10",
       .caption = "Exit",
       .toolTip = "Exit Varnholt, With Temp-File CleanUp (Alt+F4)",
       .icon = "exit"},
  };
}

Rows fileRows() {
  return {
      {.handler = "OpenSelected_Click",
       .toolTip = "Enter the folder in focus, or open the file with its program",
       .icon = "open",
       .heading = "File",
       .menuText = "Open Selected &Item"},
  };
}

Rows selectRows() {
  return {
      {.handler = "MarkItem_Click",
       .toolTip = "Select the item in focus, or take it from the selection, and step to the next one",
       .heading = "Select",
       .menuText = "Mark And Step &Down"},
      {.handler = "selectall_Click",
       .toolTip = "Select All Items in Current View",
       .icon = "select-all",
       .heading = "Select",
       .menuText = "Select &All",
       .number = 15,
       .mode = "SelectMode"},
      {.handler = "Inversel_Click",
       .toolTip = "Select what is not selected, and the other way round",
       .icon = "inverse",
       .heading = "Select",
       .menuText = "&Inverse Selection",
       .mode = "SelectMode"},
      {.handler = "Selsize_Click",
       .toolTip = "Size of the selected items",
       .icon = "info",
       .heading = "Select",
       .menuText = "Si&ze Of Selection"},
      {.handler = "IncludeFolder_Click",
       .toolTip = "Select All and Inverse Selection take folders too",
       .heading = "Select",
       .menuText = "Select Also &Folders",
       .checkable = true},
      {.handler = "-1", .heading = "Select", .menuText = "-"},
      {.handler = "Command16_Click",
       .button = "Command16",
       .caption = "ReCall",
       .toolTip = "Select again what was selected in the active view",
       .icon = "recall",
       .heading = "Select",
       .menu = "ReCallItems",
       .menuText = "&ReCall",
       .number = 6,
       .mode = "RecallMode"},
      {.handler = "Recallprevius_Click",
       .toolTip = "Recall Last Selection Set, (Select All not included) [Ctrl+S]",
       .icon = "recall",
       .heading = "Select",
       .menuText = "Recall &Last Selection Set",
       .shortcut = "Ctrl+S"},
      {.handler = "ResetRecall_Click",
       .toolTip = "Empty the recall buffer of the active view",
       .icon = "reset",
       .heading = "Select",
       .menuText = "R&eset Recall"},
      {.handler = "selhis_Click",
       .toolTip = "Keep a record of what was selected, for ReCall",
       .heading = "Select",
       .menuText = "Keep Selection &History",
       .checkable = true},
      {.handler = "Psi_Click",
       .toolTip = "Show the number of selected items in the status bar",
       .heading = "Select",
       .menuText = "Show Selected &Count",
       .checkable = true},
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

Rows viewRows() {
  return {
      {.handler = "refrechview_Click",
       .toolTip = "Refresh Current View",
       .icon = "refresh",
       .heading = "View",
       .menuText = "&Refresh View",
       .shortcut = "F4"},
      {.handler = "-2", .heading = "View", .menuText = "-"},
      {.handler = "Viewall_Click",
       .toolTip = "Show all files in both panels",
       .heading = "View",
       .menuText = "All Files  (*.*)   [Default]",
       .checkable = true},
      {.handler = "ViewProg_Click",
       .toolTip = "Show programs only in both panels",
       .heading = "View",
       .menuText = "Programs Only (*.exe , *.Com)",
       .checkable = true},
      {.handler = "Viewuser_Click",
       .toolTip = "Show only the files that pass a filter of your own",
       .heading = "View",
       .menuText = "User Specification (User.user)",
       .number = 80,
       .mode = "ViewMode",
       .checkable = true},
      {.handler = "HidSysfiles_Click",
       .toolTip = "Show hidden and system files too",
       .heading = "View",
       .menuText = "Hidden and system Files",
       .checkable = true},
      {.handler = "-3", .heading = "View", .menuText = "-"},
      {.handler = "Treeon_Click",
       .toolTip = "Show or hide the tree window",
       .icon = "tree",
       .heading = "View",
       .menuText = "&Tree Window",
       .mode = "TreeMode"},
  };
}

Rows dateRows() {
  return {
      {.handler = "DateModi_Click",
       .toolTip = "Show and sort by the date of the last change",
       .heading = "View/Date System",
       .menuText = "Date &Modified",
       .checkable = true},
      {.handler = "DateCreate_Click",
       .toolTip = "Show and sort by the date of creation",
       .heading = "View/Date System",
       .menuText = "Date &Created",
       .checkable = true},
      {.handler = "DateAcess_Click",
       .toolTip = "Show and sort by the date of the last access",
       .heading = "View/Date System",
       .menuText = "Date &Accessed",
       .checkable = true},
      {.handler = "-4", .heading = "View/Date System", .menuText = "-"},
      {.handler = "DateTime12_Click",
       .toolTip = "Month first, hours with AM and PM",
       .heading = "View/Date System",
       .menuText = "&12 Hour Clock",
       .checkable = true},
      {.handler = "DateTime24_Click",
       .toolTip = "Day first, hours from 0 to 23",
       .heading = "View/Date System",
       .menuText = "&24 Hour Clock",
       .checkable = true},
  };
}

Rows goRows() {
  return {
      {.handler = "BrowseBack_Click",
       .toolTip = "The active panel goes back to where it was before",
       .icon = "back",
       .heading = "Go",
       .menuText = "Browse Bac&k"},
      {.handler = "BrowseForward_Click",
       .toolTip = "The active panel goes forward again",
       .icon = "forward",
       .heading = "Go",
       .menuText = "Browse For&ward"},
      {.handler = "ParentWithHistory_Click",
       .toolTip = "Return to Parent Folder With History",
       .icon = "parent-history",
       .heading = "Go",
       .menuText = "&Parent Folder With History"},
      {.handler = "OtherPanel_Click",
       .toolTip = "Make the other panel the active one",
       .heading = "Go",
       .menuText = "&Other Panel"},
      {.handler = "-16", .heading = "Go", .menuText = "-"},
      {.handler = "rootreset_Click",
       .toolTip = "Both panels go to the root folder of their drive",
       .icon = "root",
       .heading = "Go",
       .menuText = "Return to Root Folder"},
      {.handler = "ResetHomeDrive_Click",
       .toolTip = "Both panels go to the home folder",
       .icon = "home",
       .heading = "Go",
       .menuText = "&Home Folder In Both Panels"},
      {.handler = "-5", .heading = "Go", .menuText = "-"},
      {.handler = "store_Click",
       .toolTip = "Remember the folder of the active panel",
       .icon = "save",
       .heading = "Go",
       .menuText = "&Store Location"},
      {.handler = "viewlastexit_Click",
       .toolTip = "The active panel goes to the stored location",
       .heading = "Go",
       .menuText = "&Go To Stored Location",
       .number = 36},
      {.handler = "-6", .heading = "Go", .menuText = "-"},
      {.handler = "Recall_Click",
       .toolTip = "Remember the folder of the active panel as the one to recall",
       .icon = "save",
       .heading = "Go",
       .menuText = "Store &Recall Folder"},
      {.handler = "Undo_recall_Click",
       .toolTip = "The active panel goes back to the recall folder",
       .icon = "undo",
       .heading = "Go",
       .menuText = "&Back To Recall Folder"},
      {.handler = "-7", .heading = "Go", .menuText = "-"},
      {.handler = "savefolder_his_Click",
       .toolTip = "Write the folder history to its file now",
       .icon = "save",
       .heading = "Go/Folder History",
       .menuText = "&Save Folder History"},
      {.handler = "ClearHis_Click",
       .toolTip = "Empty the folder history",
       .icon = "reset",
       .heading = "Go/Folder History",
       .menuText = "&Clear Folder History"},
      {.handler = "AutoSaveHis_Click",
       .toolTip = "Write the history files at each exit",
       .heading = "Go/Folder History",
       .menuText = "Save Histories At &Exit",
       .checkable = true},
  };
}

Rows toolRows() {
  return {
      {.handler = "Dos_Click",
       .toolTip = "Open a command prompt",
       .icon = "command-prompt",
       .heading = "Tools",
       .menuText = "Command &Prompt",
       .mode = "DosMode"},
      {.handler = "CmdLine_Click",
       .toolTip = "Show the command line with the item in focus",
       .icon = "command-line",
       .heading = "Tools",
       .menuText = "CommandLine [Ctrl+Enter]"},
  };
}

Rows skinRows() {
  return {
      {.handler = "SkinBlue_Click",
       .toolTip = "Dress all windows in blue",
       .heading = "Options/Skin",
       .menuText = "Blue (default)"},
      {.handler = "SkinGreen_Click",
       .toolTip = "Dress all windows in green",
       .heading = "Options/Skin",
       .menuText = "Green"},
      {.handler = "SkinBrown_Click",
       .toolTip = "Dress all windows in brown",
       .heading = "Options/Skin",
       .menuText = "Brown"},
      {.handler = "SkinMetal_Click",
       .toolTip = "Dress all windows in metal",
       .heading = "Options/Skin",
       .menuText = "Metal"},
      {.handler = "SkinUser_Click",
       .toolTip = "Dress all windows in the two pictures of your own in the folder Skins",
       .heading = "Options/Skin",
       .menuText = "User"},
      {.handler = "SkinPlastic_Click",
       .toolTip = "Dress all windows in plastic",
       .heading = "Options/Skin",
       .menuText = "Plastic"},
      {.handler = "SkinBlack_Click",
       .toolTip = "Dress all windows in black",
       .heading = "Options/Skin",
       .menuText = "Black"},
      {.handler = "SkinViolet_Click",
       .toolTip = "Dress all windows in violet",
       .heading = "Options/Skin",
       .menuText = "Violet"},
  };
}

Rows listLookRows() {
  return {
      {.handler = "BlueBlack_Click",
       .toolTip = "Blue-black lines behind the lists",
       .heading = "Options/List Colors",
       .menuText = "Blue-Black (Default)",
       .checkable = true},
      {.handler = "BrownBlack_Click",
       .toolTip = "Brown-black lines behind the lists",
       .heading = "Options/List Colors",
       .menuText = "Brown-Black",
       .checkable = true},
      {.handler = "GrayBlack_Click",
       .toolTip = "Gray-black lines behind the lists",
       .heading = "Options/List Colors",
       .menuText = "Gray-Black",
       .checkable = true},
      {.handler = "ShiftColors_Click",
       .toolTip = "Shift the color of every other line in the panels",
       .heading = "Options",
       .menuText = "Shift Colors In &Panels",
       .checkable = true},
      {.handler = "ShiftColorOther_Click",
       .toolTip = "Shift the color of every other line in the lists of other windows",
       .heading = "Options",
       .menuText = "Shift Colors In &Other Lists",
       .checkable = true},
      {.handler = "GridLines_Click",
       .toolTip = "Lines between the rows and columns of the panels",
       .heading = "Options",
       .menuText = "&Grid Lines",
       .checkable = true},
      {.handler = "-8", .heading = "Options", .menuText = "-"},
  };
}

Rows positionRows() {
  return {
      {.handler = "Auto_Save_Click",
       .toolTip = "Save the window positions at each exit",
       .heading = "Options/Positions and Columns",
       .menuText = "Save Positions At &Exit",
       .checkable = true},
      {.handler = "Program_pos_Click",
       .toolTip = "Save the positions of the main window and the tree window",
       .icon = "save",
       .heading = "Options/Positions and Columns",
       .menuText = "Save &Positions Now"},
      {.handler = "-9", .heading = "Options/Positions and Columns", .menuText = "-"},
      {.handler = "SavColumnH_Click",
       .toolTip = "Save the widths of the columns as they are",
       .icon = "save",
       .heading = "Options/Positions and Columns",
       .menuText = "Save &Column Widths"},
      {.handler = "ResetCol_Click",
       .toolTip = "Forget the saved widths of the columns",
       .icon = "reset",
       .heading = "Options/Positions and Columns",
       .menuText = "&Reset Column Widths"},
      {.handler = "-10", .heading = "Options/Positions and Columns", .menuText = "-"},
      {.handler = "ReturnDefault_Click",
       .toolTip = "Forget all saved positions and widths, and shut down",
       .icon = "reset",
       .heading = "Options/Positions and Columns",
       .menuText = "Return To &Default Positions..."},
  };
}

Rows lastCommandRows() {
  return {
      {.handler = "RunLastCommand_Click",
       .toolTip = "Run the remembered command again",
       .icon = "run",
       .heading = "Options/Last Command",
       .menuText = "Run Last Command"},
      {.handler = "LockOnLast_Click",
       .toolTip = "Keep remembering the same command, whatever runs",
       .heading = "Options/Last Command",
       .menuText = "&Lock On Last Command",
       .checkable = true},
      {.handler = "-11", .heading = "Options/Last Command", .menuText = "-"},
      {.handler = "RLC_Click",
       .toolTip = "The space bar opens the parent folder, and the last command can be locked",
       .heading = "Options/Last Command",
       .menuText = "Space Bar Opens &Parent Folder",
       .checkable = true},
      {.handler = "PreFolder_Click",
       .toolTip = "The space bar selects the item in focus, and the last command cannot be locked",
       .heading = "Options/Last Command",
       .menuText = "Space Bar &Selects",
       .checkable = true},
      {.handler = "-12", .heading = "Options", .menuText = "-"},
  };
}

Rows startRows() {
  return {
      {.handler = "WinStart_Click",
       .toolTip = "A drive opens at the folder that was shown there last",
       .heading = "Options",
       .menuText = "Goto Last Opened Folder When Drive Changed !",
       .checkable = true},
      {.handler = "TipStart_Click",
       .toolTip = "Show the tip when the program starts",
       .heading = "Options",
       .menuText = "Show &Tip At Startup",
       .checkable = true},
  };
}

Rows helpRows() {
  return {
      {.handler = "Help_file_Click",
       .toolTip = "Open the user's manual",
       .icon = "help",
       .heading = "Help",
       .menuText = "&User's Manual"},
      {.handler = "Readme_Click",
       .toolTip = "Open the file Readme.txt",
       .icon = "info",
       .heading = "Help",
       .menuText = "Read me.."},
      {.handler = "-13", .heading = "Help", .menuText = "-"},
      {.handler = "Peruninstall_Click",
       .toolTip = "Delete all settings and data of the program before it is uninstalled",
       .icon = "warning",
       .heading = "Help",
       .menuText = "&Prepare For Uninstall..."},
      {.handler = "-14", .heading = "Help", .menuText = "-"},
      {.handler = "About_program_Click",
       .toolTip = "Version of the program",
       .icon = "about",
       .heading = "Help",
       .menuText = "&About Varnholt..."},
  };
}

}  // namespace

std::vector<Command> panelCommands() {
  Rows all;
  for (const auto rows : {navigationButtons, commandRowButtons, fileRows, selectRows, filterLines, viewRows, dateRows,
                          goRows, toolRows, skinRows, listLookRows, positionRows, lastCommandRows, startRows, helpRows})
    std::ranges::move(rows(), std::back_inserter(all));
  return all;
}

std::vector<Command> closingCommands() {
  return {
      {.handler = "-15", .heading = "File", .menuText = "-"},
      {.handler = "exit_program_Click",
       .toolTip = "Close the program; its state is kept",
       .icon = "exit",
       .heading = "File",
       .menuText = "E&xit",
       .shortcut = "Alt+F4"},
  };
}

std::span<const HeadingName> headingNames() { return HeadingNames; }

}  // namespace varnholt::panels
