#pragma once

#include "platform/posix/path_map.hpp"
#include "platform/result.hpp"

#include <string>

namespace varnholt::platform::posix {

/// FileSystem::resolve. Slashes count as backslashes here, for users type them; "." and ".." are taken as text, as the
/// original platform does. Of several entries that are equal when lowered the first by bytes is taken. The result has
/// no closing backslash unless it is a root. Errors carry the path as it was given.
Result<std::string> resolvePath(const PathMap& map, const std::string& programPath);

}  // namespace varnholt::platform::posix
