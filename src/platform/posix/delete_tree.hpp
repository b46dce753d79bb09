#pragma once

#include "platform/file_system.hpp"

namespace varnholt::platform::posix {

/// Removes a file, link, pipe, socket or device node; never what a link names. Without `force` a read-only file is
/// AccessDenied; a link itself is never read-only. IsAFolder for a folder.
Result<void> removeFile(const std::string& systemPath, bool force);

/// Removes a tree by folder descriptors. Without `force` read-only files and folders are left out (AccessDenied). With
/// `force` folders that their owner may not write or enter are opened up first. Mounted volumes are not entered and
/// left out. A link to a folder is removed as a link. Progress is told the entries removed, for sizes are not asked.
/// What is left out goes to `leftOut`, the folders around it excepted.
Result<void> removeTree(const std::string& systemPath, bool force, const Progress& progress, LeftOuts* leftOut);

}  // namespace varnholt::platform::posix
