#pragma once

#include "platform/file_system.hpp"
#include "platform/posix/path_map.hpp"

#include <string>
#include <vector>

namespace varnholt::platform::posix {

/// FileSystem::findFiles for the folder in system form.
Result<std::vector<FoundFile>> findFiles(const PathMap& map, const std::string& systemFolder, unsigned levels,
                                         const NameTest& takes, const SearchProgress& progress);

/// FileSystem::deleteBelow; the paths in system form.
std::vector<Result<void>> deleteBelow(const std::string& systemRoot, const std::vector<Result<std::string>>& paths,
                                      const Progress& progress);

}  // namespace varnholt::platform::posix
