#pragma once

#include "platform/result.hpp"

#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace varnholt::platform::posix {

/// What a command begins with whose program is a desktop entry.
inline constexpr std::string_view DesktopEntry = "desktop:";

/// Has the desktop's library launch an entry (Desktop Entry Specification 1.5) with files in system form, byte for
/// byte, and variables "NAME=value" on top of our environment. Gives the child, which must be waited for; 0 when the
/// program is no child of ours. NotFound: no such entry.
Result<pid_t> launchDesktopEntry(const std::string& name, const std::vector<std::string>& files,
                                 const std::vector<std::string>& environment);

}  // namespace varnholt::platform::posix
