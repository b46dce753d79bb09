#include "properties/properties.hpp"

namespace varnholt::properties {

Properties::Properties(panels::Desk& desk, fileops::Desktop& desktop)
    : Form15(desk.program.loop),
      Form18(desk.program.loop),
      items(desk, desktop, Form15),
      attributes(desk, Form18),
      desk_(desk) {}

void Properties::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "Command15_Click",
       .button = "Command15",
       .caption = "Properties",
       .toolTip = "File/Folder Details in Seperate window (Ctrl+U)",
       .icon = "properties",
       .number = 10,
       .run = [this] { items.Command15_Click(); }},
      {.handler = "Fdetails_Click",
       .toolTip = "File/Folder Details in Seperate window (Ctrl+U)",
       .icon = "properties",
       .heading = "File",
       .menuText = "Pr&operties...",
       .shortcut = "Ctrl+U",
       .newGroup = true,
       .run = [this] { desk_.dispatcher.perform("Command15_Click"); }},
      {.handler = "multiAtribut_Click",
       .toolTip = "Set the attributes of the selected files",
       .icon = "attributes",
       .heading = "File",
       .menuText = "&Attributes...",
       .number = 81,
       .run = [this] { attributes.multiAtribut_Click(); }},
  });
}

}  // namespace varnholt::properties
