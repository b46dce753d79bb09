#pragma once

#include "panels/command_table.hpp"

#include <vector>

namespace varnholt::rename {

/// The commands of renaming; their handlers are bound by who builds them.
std::vector<panels::Command> commands();

}  // namespace varnholt::rename
