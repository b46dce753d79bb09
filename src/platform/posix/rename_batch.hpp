#pragma once

#include "platform/file_system.hpp"

#include <span>
#include <string>
#include <vector>

namespace varnholt::platform::posix {

/// FileSystem::renameFiles and checkRenames on a system path and system names.
std::vector<NotRenamed> renameBatch(const std::string& folder, std::span<const NewName> names);
std::vector<NotRenamed> checkBatch(const std::string& folder, std::span<const NewName> names);

}  // namespace varnholt::platform::posix
