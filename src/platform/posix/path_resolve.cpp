#include "platform/posix/path_resolve.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/unique_fd.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

/// The parts behind the drive, "." left out and ".." taken back.
std::vector<std::string> partsOf(std::string_view rest) {
  std::vector<std::string> parts;
  while (!rest.empty()) {
    const size_t end = std::min(rest.find_first_of("\\/"), rest.size());
    const std::string_view part = rest.substr(0, end);
    if (part == ".." && !parts.empty())
      parts.pop_back();
    else if (!part.empty() && part != "." && part != "..")
      parts.emplace_back(part);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return parts;
}

bool exists(const std::string& path) {
  struct stat facts {};
  return ::lstat(path.c_str(), &facts) == 0;
}

}  // namespace

// A lowered name leads to the first by bytes of those that have it.
const PathResolver::Names& PathResolver::namesOf(const std::string& folderPath) {
  const auto [known, isNew] = folders_.try_emplace(folderPath);
  Names& names = known->second;
  if (!isNew) return names;
  const UniqueFd folder(::open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  DirentBatch batch;
  while (folder && batch.read(folder.get()) > 0)
    batch.forEach([&](const char* name, unsigned char) {
      std::string& first = names[foldCase(PathMap::nameToProgram(name))];
      if (first.empty() || name < first) first = name;
      return true;
    });
  return names;
}

std::optional<std::string> PathResolver::matchPart(const std::string& folder, std::string_view part) {
  const std::string exact = PathMap::nameToSystem(part);
  if (exists(folder + "/" + exact)) return exact;
  const Names& names = namesOf(folder);
  if (const auto lowered = names.find(foldCase(part)); lowered != names.end()) return lowered->second;
  const size_t end = part.find_last_not_of('.');
  if (end == std::string_view::npos || end + 1 == part.size()) return {};
  return matchPart(folder, part.substr(0, end + 1));
}

Result<std::string> PathResolver::resolve(const std::string& path) {
  if (path.size() > 2 && path[2] != '\\' && path[2] != '/')
    return refusal(ErrorCode::InvalidPath, path, "no backslash after the drive");
  auto at = map_.toSystem(path.substr(0, 2));
  if (!at) return at.error();
  if (path.find('\0') != std::string::npos) return refusal(ErrorCode::InvalidPath, path, "a NUL in the path");
  std::string resolved{static_cast<char>(path[0] & ~0x20), ':'};
  for (const std::string& part : partsOf(std::string_view(path).substr(2))) {
    const auto name = matchPart(*at, part);
    if (!name) return systemError(ENOENT, path);
    *at += "/" + *name;
    resolved += '\\';
    PathMap::appendNameToProgram(*name, resolved);
  }
  if (!exists(*at)) return systemError(ENOENT, path);
  return resolved.size() == 2 ? resolved + '\\' : resolved;
}

}  // namespace varnholt::platform::posix
