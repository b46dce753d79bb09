#pragma once

#include "platform/posix/path_map.hpp"
#include "platform/result.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace varnholt::platform::posix {

/// FileSystem::resolve, for one path or many: a folder that has to be searched is read once. Slashes count as
/// backslashes here, for users type them; "." and ".." are taken as text, as the original platform does. Of several
/// entries that are equal when lowered the first by bytes is taken. The result has no closing backslash unless it is a
/// root. Errors carry the path as it was given.
class PathResolver {
 public:
  explicit PathResolver(const PathMap& map) : map_(map) {}
  Result<std::string> resolve(const std::string& programPath);

 private:
  using Names = std::unordered_map<std::string, std::string>;
  const Names& namesOf(const std::string& folder);
  /// The entry's name as the disk has it; system form.
  std::optional<std::string> matchPart(const std::string& folder, std::string_view part);

  const PathMap& map_;
  std::unordered_map<std::string, Names> folders_;  ///< those that were searched
};

}  // namespace varnholt::platform::posix
