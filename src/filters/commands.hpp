#pragma once

#include "panels/command_table.hpp"

#include <vector>

namespace varnholt::filters {

/// The commands of the filters; their handlers are bound by who builds them.
std::vector<panels::Command> commands();

}  // namespace varnholt::filters
