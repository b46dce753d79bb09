#include "platform/posix/windows_folder.hpp"

#include "platform/posix/shipped_files.hpp"

#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {

namespace {

bool isFolder(const std::string& path) {
  struct stat facts;
  return ::stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

}  // namespace

std::string WindowsFolder::path() const {
  struct stat facts;
  if (isFolder(folder_)) return folder_;
  // A full or read-only volume is no reason not to start.
  if (::stat(folder_.c_str(), &facts) == 0 || !makeFolderFrom(shipped_, folder_))
    return isFolder(shipped_) ? shipped_ : "";
  // The folder goes by both spellings. Where the volume knows no links it also tells no case apart.
  [[maybe_unused]] const int linked = ::symlink("system32", (folder_ + "/System32").c_str());
  return folder_;
}

}  // namespace varnholt::platform::posix
