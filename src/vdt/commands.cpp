#include "vdt/vdt.hpp"

namespace varnholt::vdt {
namespace {

constexpr const char* Group = "Places/Virtual DeskTop (VDT) Options...";

}  // namespace

void VDT::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "LocalDesk_Click",
       .toolTip = "Show or hide the Virtual DeskTop: pointers to files and folders of all drives",
       .icon = "vdt",
       .heading = Group,
       .menuText = "&Virtual DeskTop [on/off]",
       .shortcut = "Ctrl+L",
       .number = 63,
       .newGroup = true,
       .run = [this] { LocalDesk_Click(); }},
      {.handler = "DelItems_Vd_Click",
       .toolTip = "Take the selected pointers out of the Virtual DeskTop; what they point to stays",
       .icon = "delete",
       .heading = Group,
       .menuText = "Detete &Selected Item(s)",
       .newGroup = true,
       .run = [this] { DelItems_Vd_Click(); }},
      {.handler = "Clear_Vd_Click",
       .toolTip = "Take all pointers out of the Virtual DeskTop; what they point to stays",
       .icon = "reset",
       .heading = Group,
       .menuText = "&Clear Virtual Desktop",
       .run = [this] { Clear_Vd_Click(); }},
      {.handler = "OpenPro_Click",
       .toolTip = "Store the pointers, and show those of another project",
       .icon = "open",
       .heading = Group,
       .menuText = "&Open Project",
       .number = 72,
       .newGroup = true,
       .run = [this] { OpenPro_Click(); }},
      {.handler = "NewPro_Click",
       .toolTip = "Store the pointers, and begin a new project",
       .icon = "make-file",
       .heading = Group,
       .menuText = "&New Project",
       .number = 71,
       .run = [this] { NewPro_Click(); }},
      {.handler = "DeletePro_Click",
       .toolTip = "Show the projects' files in the active panel, where they can be deleted",
       .icon = "wastebasket",
       .heading = Group,
       .menuText = "&Delete Project",
       .run = [this] { DeletePro_Click(); }},
      {.handler = "GoToVDT_Click",
       .toolTip = "The keyboard goes to the Virtual DeskTop, and from there back to the active panel",
       .icon = "vdt",
       .heading = "Go",
       .menuText = "&Virtual DeskTop",
       .shortcut = "Ctrl+Shift+L",
       .after = "OtherPanel",
       .run = [this] { GoToVDT_Click(); }},
      {.handler = "CopyVDT_Click",
       .toolTip = "Copy the selected files of the Virtual DeskTop into the active panel, where they are not there yet",
       .icon = "copy",
       .heading = "File/Copy",
       .menuText = "Copy Items (Simplified) From &VDT",
       .run = [this] { CopyVDT_Click(); }},
      {.handler = "VDTstartup_Click",
       .toolTip = "Show the Virtual DeskTop when the program starts",
       .heading = "Options",
       .menuText = "&Enable Virtual DeskTop At StartUp",
       .run = [this] { VDTstartup_Click(); }},
  });
  // Delete belongs to whichever list has the keyboard.
  if (panels::Command* command = table.find("Command4_Click"))
    command->run = [this, inPanels = command->run] { desk_.form.VDT_Aktive ? DelItems_Vd_Click() : inPanels(); };
}

}  // namespace varnholt::vdt
