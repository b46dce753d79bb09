#include "filters/commands.hpp"

namespace varnholt::filters {

std::vector<panels::Command> commands() {
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

}  // namespace varnholt::filters
