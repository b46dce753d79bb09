#pragma once

#include "platform/drives.hpp"

namespace varnholt::properties {

/// A disc: nothing on it can be changed.
inline bool isReadOnlyMedium(const platform::DriveInfo& drive) {
  return drive.fileSystem == "CDFS" || drive.fileSystem == "UDF";
}

}  // namespace varnholt::properties
