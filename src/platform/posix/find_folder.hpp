#pragma once

#include "platform/file_system.hpp"
#include "platform/posix/path_map.hpp"

#include <string>

namespace varnholt::platform::posix {

/// FileSystem::findFolder for the folder in both forms.
Result<std::string> findFolder(const std::string& systemFolder, const std::string& folder, unsigned levels,
                               const FolderTest& takes, const std::string& after, const SearchProgress& progress);

}  // namespace varnholt::platform::posix
