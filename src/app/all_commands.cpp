#include "app/all_commands.hpp"

#include "app/planned_commands.hpp"
#include "app/planned_tool_commands.hpp"
#include "fileops/fileops.hpp"
#include "filters/commands.hpp"
#include "panels/panel_commands.hpp"
#include "places/commands.hpp"
#include "rename/commands.hpp"

#include <algorithm>
#include <iterator>

namespace varnholt::app {

std::vector<panels::Command> allCommands() {
  std::vector<panels::Command> all;
  for (const auto rows : {panels::panelCommands, fileops::commands, rename::commands, filters::commands,
                          plannedCommands, places::commands, plannedToolCommands, panels::closingCommands})
    std::ranges::move(rows(), std::back_inserter(all));
  return all;
}

}  // namespace varnholt::app
