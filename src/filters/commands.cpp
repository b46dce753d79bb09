#include "filters/filters.hpp"

namespace varnholt::filters {

void Filters::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "Command5_Click",
       .button = "Command5",
       .caption = "Filter",
       .toolTip = "FilePattern As  [*.*],  [?x?y.*],  [*.ext] ect. (Ctrl+M)",
       .icon = "filter",
       .number = 5,
       .run = [this] { Command5_Click(); }},
      {.handler = "Viewuser_Click",
       .toolTip = "Show only the files that pass a filter of your own",
       .heading = "View",
       .menuText = "User Specification (User.user)",
       .number = 80,
       .after = "ViewProg",
       .run = [this] { Viewuser_Click(); }},
      {.handler = "Filepatt_Click",
       .toolTip = "FilePattern As  [*.*],  [?x?y.*],  [*.ext] ect. (Ctrl+M)",
       .icon = "filter",
       .heading = "Select",
       .menuText = "Filter Function",
       .shortcut = "Ctrl+M",
       .newGroup = true,
       .run = [this] { desk_.dispatcher.perform("Command5_Click"); }},
  });
}

}  // namespace varnholt::filters
