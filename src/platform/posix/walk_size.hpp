#pragma once

#include "platform/file_system.hpp"

namespace varnholt::platform::posix {

/// FileSystem::folderSize on a system path. A link at the path's own end is followed, as a listing of it would be.
Result<TreeSize> measureTree(const std::string& systemPath, const Progress& progress);

/// FileSystem::sizes on system paths; an empty one is 0.
Result<std::vector<std::uint64_t>> measureAll(const std::vector<std::string>& systemPaths, const Progress& progress);

}  // namespace varnholt::platform::posix
