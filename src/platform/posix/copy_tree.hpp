#pragma once

#include "platform/file_system.hpp"

#include <sys/stat.h>

namespace varnholt::platform::posix {

/// FileSystem::copyFolder on system paths. Mounted volumes below the source are copied like folders. A folder that the
/// copy makes gets the source's dates, permissions and attributes when all below it is done; one that existed keeps
/// its own. What is left out goes to `leftOut`.
Result<void> copyTree(const std::string& from, const std::string& to, bool overwrite, const FolderProgress& progress,
                      LeftOuts* leftOut);

/// Whether the folder, or one above it, is the given one (device and inode).
bool liesWithin(const std::string& folderPath, const struct stat& ancestor);

}  // namespace varnholt::platform::posix
