#pragma once

#include "platform/posix/unique_fd.hpp"

#include <string>
#include <string_view>

#include <sys/types.h>

namespace varnholt::platform::posix {

/// A new file in an open folder that has no name yet, or, where the file system knows no such files, a temporary one of
/// ours, held (see holdTemporary) until it is put into place. Unless that happens it is gone again when this object
/// goes; without a name also when the program is killed.
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
  /// The same with the hold kept until this object goes: the rename is still to come.
  int closeHeld();

  int folder_ = -1;
  std::string name_;
  UniqueFd fd_;
  UniqueFd hold_;  ///< keeps the lock behind close()
};

/// A new folder under a temporary name, for its owner alone and held as long as its descriptor is open. Gives 0 or
/// errno.
int makeTemporaryFolder(int place, std::string& name, UniqueFd& folder);

/// A temporary name that no other thread or process of this program uses now: ".vnh-", a mark of the machine, a random
/// number of the process and a count, each of them hex digits with "-" between.
std::string temporaryName();
/// Whether the name is of that form and bears the mark of this machine.
bool isTemporaryName(std::string_view name);

/// Takes the lock that tells a temporary file or folder in use from one whose writer was killed: the kernel gives the
/// lock back whenever a process ends. False when a clean-up was quicker and the name must be given up. A volume without
/// locks gives true: no clean-up gets a lock there either.
bool holdTemporary(int folder, const char* name, int fd);

/// renameat2(2) with RENAME_NOREPLACE where the file system can; else link and unlink, which works for files alone.
int renameNoReplace(int fromFolder, const char* from, int toFolder, const char* to);

}  // namespace varnholt::platform::posix
