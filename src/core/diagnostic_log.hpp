#pragma once

#include "core/environment_folders.hpp"
#include "platform/platform.hpp"

#include <string>

namespace varnholt::core {

/// "major.minor.revision" of this program.
std::string programVersion();

/// Writes `\Varnholt.log` if there is none: what the program found at its first start, for whoever helps its user.
/// Never updated afterwards. Each line is a 16-character tag and its value.
void writeDiagnosticLog(const platform::Platform& platform, const EnvironmentFolders& folders);

/// Bytes as megabytes of 1,000,000, cut to whole ones: "1234 MB Free".
std::string megabytesFree(std::uint64_t bytes);

}  // namespace varnholt::core
