#pragma once

#include "core/environment_folders.hpp"
#include "platform/file_system.hpp"

#include <string_view>

namespace varnholt::core {

/// Names of the temporary files that the program makes in the temporary folders begin with this.
inline constexpr std::string_view TemporaryPrefix = "vnh";

/// Deletes what this program left in the two folders, and nothing else there.
void CleanTempFolders(platform::FileSystem& files, const std::string& tmp, const std::string& temp);

}  // namespace varnholt::core
