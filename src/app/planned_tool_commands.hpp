#pragma once

#include "panels/command_table.hpp"

#include <vector>

namespace varnholt::app {

/// The part of plannedCommands() that is not about the files in the panels: places, search, zip, tools, appearance.
std::vector<panels::Command> plannedToolCommands();

}  // namespace varnholt::app
