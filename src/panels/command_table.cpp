#include "panels/command_table.hpp"

#include <algorithm>
#include <iterator>

namespace varnholt::panels {

void CommandTable::add(std::vector<Command> commands) { std::ranges::move(commands, std::back_inserter(commands_)); }

bool CommandTable::bind(std::string_view handler, std::function<void()> run) {
  auto found = std::ranges::find(commands_, handler, &Command::handler);
  if (found == commands_.end()) {
    unknown_.emplace(handler);
    return false;
  }
  found->run = std::move(run);
  return true;
}

const Command* CommandTable::find(std::string_view handler) const {
  auto found = std::ranges::find(commands_, handler, &Command::handler);
  return found == commands_.end() ? nullptr : &*found;
}

}  // namespace varnholt::panels
