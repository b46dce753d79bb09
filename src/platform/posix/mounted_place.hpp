#pragma once

#include <string>

namespace varnholt::platform::posix {

/// Whether one existing folder is the other or lies in it when both are seen by where they are in their file system:
/// a bind mount shows a folder at a place from which no way leads up to the folders that it really lies in. False also
/// when it cannot be told (no /proc, a path too long).
bool liesWithinByMounts(const std::string& folderPath, const std::string& ancestorPath);

}  // namespace varnholt::platform::posix
