#include "rename/rename.hpp"

namespace varnholt::rename {

void Rename::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "Command14_Click",
       .button = "Command14",
       .caption = "Rename",
       .toolTip = "Rename Selected item",
       .icon = "rename",
       .number = 9,
       .run = [this] { Command14_Click(); }},
      {.handler = "RenFileFolder_Click",
       .toolTip = "Rename Selected item",
       .icon = "rename",
       .heading = "File",
       .menuText = "&Rename...",
       .newGroup = true,
       .run = [this] { desk_.dispatcher.perform("Command14_Click"); }},
  });
}

}  // namespace varnholt::rename
