#include "platform/posix/windows_folder.hpp"

#include "platform/posix/shipped_files.hpp"

#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {

std::string WindowsFolder::path() const {
  struct stat facts;
  if (::stat(folder_.c_str(), &facts) == 0) return S_ISDIR(facts.st_mode) ? folder_ : "";
  if (!makeFolderFrom(shipped_, folder_)) return {};
  // The folder goes by both spellings. Where the volume knows no links it also tells no case apart.
  [[maybe_unused]] const int linked = ::symlink("system32", (folder_ + "/System32").c_str());
  return folder_;
}

}  // namespace varnholt::platform::posix
