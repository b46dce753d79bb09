#pragma once

#include "platform/file_system.hpp"

namespace varnholt::platform::posix {

/// FileSystem::moveFile, renameOver and moveFolder on system paths.
Result<void> moveFileTo(const std::string& from, const std::string& to, const Progress& progress);
Result<void> renameOverTo(const std::string& from, const std::string& to);
Result<void> moveFolderTo(const std::string& from, const std::string& to);

}  // namespace varnholt::platform::posix
