#include "platform/posix/path_parts.hpp"

#include "platform/posix/posix_error.hpp"

#include <cerrno>

#include <fcntl.h>

namespace varnholt::platform::posix {

std::string folderOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

Result<Place> openPlace(const std::string& path) {
  const std::string folder = folderOf(path);
  Place place{UniqueFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK)), nameOf(path)};
  // A folder that may be entered and written but not read can still be worked in.
  if (!place.folder && errno == EACCES)
    place.folder = UniqueFd(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!place.folder) return systemError(errno, folder);
  return place;
}

}  // namespace varnholt::platform::posix
