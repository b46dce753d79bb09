#pragma once

#include <array>

#include <sys/stat.h>

namespace varnholt::platform::posix {

/// What futimens() and utimensat() take to set a modified time. The accessed time comes with it, of a new entry now:
/// drivers on an older FUSE library pass over a call that leaves one of the two out, and report success.
inline std::array<timespec, 2> modifiedTime(timespec modified, timespec accessed = {0, UTIME_NOW}) {
  return {accessed, modified};
}

}  // namespace varnholt::platform::posix
