#pragma once

#include "platform/file_system.hpp"

namespace varnholt::platform::posix {

/// FileSystem::moveFile, renameOver and moveFolder on system paths.
Result<void> moveFileTo(const std::string& from, const std::string& to, const Progress& progress);
Result<void> renameOverTo(const std::string& from, const std::string& to);
Result<void> moveFolderTo(const std::string& from, const std::string& to);
/// Whether two paths are there and lead to one entry, as a volume that does not tell case apart has it.
bool areSpellings(const std::string& a, const std::string& b);

}  // namespace varnholt::platform::posix
