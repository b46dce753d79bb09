#pragma once

#include "panels/command_table.hpp"

#include <vector>

namespace varnholt::app {

/// As plannedCommands(), for search, zip, tools and appearance.
std::vector<panels::Command> plannedToolCommands();

}  // namespace varnholt::app
