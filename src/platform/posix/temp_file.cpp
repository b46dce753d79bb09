#include "platform/posix/temp_file.hpp"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <random>

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {

std::string temporaryName() {
  // The start is random, so that programs on several machines do not meet in one folder of a share.
  static const std::uint64_t start =
      (static_cast<std::uint64_t>(std::random_device{}()) << 20) ^ static_cast<std::uint64_t>(::getpid());
  static std::atomic<std::uint64_t> next = 0;
  char name[48];
  std::snprintf(name, sizeof name, ".vnh-%llx-%llx", static_cast<unsigned long long>(start),
                static_cast<unsigned long long>(next++));
  return name;
}

int TempFile::create(int folder, mode_t mode) {
  int error = EEXIST;
  for (int attempt = 0; attempt < 100 && error == EEXIST; ++attempt)
    error = createAs(folder, temporaryName().c_str(), mode);
  return error;
}

int TempFile::createAs(int folder, const char* name, mode_t mode) {
  folder_ = folder;
  fd_ = UniqueFd(::openat(folder, name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode));
  if (!fd_) return errno;
  name_ = name;
  return 0;
}

TempFile::~TempFile() {
  fd_.reset();
  if (!name_.empty()) ::unlinkat(folder_, name_.c_str(), 0);
}

int TempFile::close() { return fd_.reset() == 0 || errno == EINTR ? 0 : errno; }

int TempFile::replace(const char* name) {
  if (::renameat(folder_, name_.c_str(), folder_, name) != 0) return errno;
  name_.clear();
  return 0;
}

int TempFile::placeNew(const char* name) {
  const int error = renameNoReplace(folder_, name_.c_str(), folder_, name);
  if (!error) name_.clear();
  return error;
}

int renameNoReplace(int fromFolder, const char* from, int toFolder, const char* to) {
  if (::renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE) == 0) return 0;
  if (errno != EINVAL && errno != ENOSYS) return errno;
  // A folder cannot be linked, and EINVAL also means that a folder would go into itself.
  struct stat facts {};
  if (::fstatat(fromFolder, from, &facts, AT_SYMLINK_NOFOLLOW) != 0) return errno;
  if (S_ISDIR(facts.st_mode)) {
    // rename() itself refuses a folder that holds something, so at worst an empty folder is replaced.
    struct stat there {};
    if (::fstatat(toFolder, to, &there, AT_SYMLINK_NOFOLLOW) == 0) return EEXIST;
    return ::renameat(fromFolder, from, toFolder, to) == 0 ? 0 : errno;
  }
  if (::linkat(fromFolder, from, toFolder, to, 0) == 0) return ::unlinkat(fromFolder, from, 0) == 0 ? 0 : errno;
  if (errno != EPERM && errno != EOPNOTSUPP) return errno;
  // No links either (exfat over FUSE and alike): a name held by an exclusive create is ours to rename over.
  const UniqueFd holder(::openat(toFolder, to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!holder) return errno;
  if (::renameat(fromFolder, from, toFolder, to) == 0) return 0;
  const int error = errno;
  ::unlinkat(toFolder, to, 0);
  return error;
}

}  // namespace varnholt::platform::posix
