#pragma once

#include "panels/command_table.hpp"

#include <vector>

namespace varnholt::app {

/// The commands of rooms that are not built yet. Their buttons and menu entries stand in their places, disabled. A room
/// that gets built takes its rows out of here into its own table.
std::vector<panels::Command> plannedCommands();

}  // namespace varnholt::app
