#pragma once

#include "panels/command_table.hpp"

#include <vector>

namespace varnholt::app {

/// The rows of all rooms, in the order of the menus. The handlers are bound by the App.
std::vector<panels::Command> allCommands();

}  // namespace varnholt::app
