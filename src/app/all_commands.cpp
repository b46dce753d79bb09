#include "app/all_commands.hpp"

#include "app/planned_commands.hpp"
#include "fileops/fileops.hpp"
#include "panels/panel_commands.hpp"

#include <algorithm>
#include <iterator>

namespace varnholt::app {

std::vector<panels::Command> allCommands() {
  std::vector<panels::Command> all;
  for (const auto rows : {panels::panelCommands, fileops::commands, plannedCommands, panels::closingCommands})
    std::ranges::move(rows(), std::back_inserter(all));
  return all;
}

}  // namespace varnholt::app
