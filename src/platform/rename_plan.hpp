#pragma once

#include "platform/file_system.hpp"

#include <cstddef>
#include <span>
#include <vector>

namespace varnholt::platform {

/// How files of one folder come to their new names although some of these are still old names of others.
struct RenamePlan {
  /// Numbers of renames in the order in which each finds its new name free, as far as the others make it so.
  std::vector<std::size_t> order;
  /// Renames that wait for each other in a ring: each file gets the old name of the next, the last that of the first.
  std::vector<std::vector<std::size_t>> rings;
};

/// Each rename stands in the plan once, but for those that change nothing.
RenamePlan planRenames(std::span<const NewName> names);

}  // namespace varnholt::platform
