#pragma once

#include "platform/posix/unique_fd.hpp"

#include <string>

#include <sys/types.h>

namespace varnholt::platform::posix {

/// A new file in an open folder that has no name yet, or, where the file system knows no such files, a temporary one of
/// ours (".vnh-..." and digits). Unless it is put into place it is gone again when this object goes; without a name
/// also when the program is killed.
class TempFile {
 public:
  /// Gives 0 or errno. The folder's descriptor must stay open as long as this object.
  int create(int folder, mode_t mode);
  /// The same under a name that it is to keep, in a folder that nobody looks into yet; keep() puts it into place.
  int createAs(int folder, const char* name, mode_t mode);
  TempFile() = default;
  TempFile(const TempFile&) = delete;
  TempFile& operator=(const TempFile&) = delete;
  ~TempFile();

  int fd() const { return fd_.get(); }
  /// A path to it as long as it is open.
  std::string openPath() const { return "/proc/self/fd/" + std::to_string(fd_.get()); }
  /// Puts it over whatever has the name. A failure that only close() tells is heard before. Gives 0 or errno.
  int replace(const char* name);
  /// Gives it the name if nothing has it; else EEXIST.
  int placeNew(const char* name);
  /// It has its name already: createAs().
  int keep();

 private:
  int createNamed(int folder, mode_t mode);
  int link(const char* name);
  int close();

  int folder_ = -1;
  std::string name_;
  UniqueFd fd_;
};

/// A temporary name that no other thread or process of this program uses now.
std::string temporaryName();

/// renameat2(2) with RENAME_NOREPLACE where the file system can; else link and unlink, which works for files alone.
int renameNoReplace(int fromFolder, const char* from, int toFolder, const char* to);

}  // namespace varnholt::platform::posix
