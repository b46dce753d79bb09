#include "panels/command_table.hpp"

#include <algorithm>

namespace varnholt::panels {

std::string entryName(const Command& command) {
  return command.menu.empty() ? command.handler.substr(0, command.handler.rfind("_Click")) : command.menu;
}

void CommandTable::add(std::vector<Command> commands) {
  for (Command& command : commands) {
    auto place = command.after.empty() ? commands_.end() : std::ranges::find(commands_, command.after, entryName);
    if (place != commands_.end()) ++place;
    commands_.insert(place, std::move(command));
  }
}

Command* CommandTable::find(std::string_view handler) {
  auto found = std::ranges::find(commands_, handler, &Command::handler);
  return found == commands_.end() ? nullptr : &*found;
}

const Command* CommandTable::find(std::string_view handler) const {
  auto found = std::ranges::find(commands_, handler, &Command::handler);
  return found == commands_.end() ? nullptr : &*found;
}

}  // namespace varnholt::panels
