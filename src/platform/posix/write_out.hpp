#pragma once

#include "platform/file_system.hpp"

namespace varnholt::platform::posix {

/// FileSystem::writeOut on a system path.
Result<void> writeVolumeOut(const std::string& systemPath, bool wait, const Progress& progress);

}  // namespace varnholt::platform::posix
