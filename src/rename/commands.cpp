#include "rename/commands.hpp"

namespace varnholt::rename {

std::vector<panels::Command> commands() {
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

}  // namespace varnholt::rename
