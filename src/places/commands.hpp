#pragma once

#include "panels/command_table.hpp"

#include <vector>

namespace varnholt::places {

/// The commands of places: presets, favorites, bookmarks, recent items and notes; their handlers are bound by who
/// builds them.
std::vector<panels::Command> commands();

}  // namespace varnholt::places
