#include "platform/posix/temp_file.hpp"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <random>
#include <utility>

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
  folder_ = folder;
  fd_ = UniqueFd(::openat(folder, ".", O_RDWR | O_TMPFILE | O_CLOEXEC, mode));
  if (fd_) return 0;
  // A kernel or file system that does not know them says any of these.
  const bool unknown = errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL || errno == ENOENT;
  return unknown ? createNamed(folder, mode) : errno;
}

int TempFile::createNamed(int folder, mode_t mode) {
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

// The short way is for the privileged alone on older kernels.
int TempFile::link(const char* name) {
  static std::atomic<bool> shortWay = true;
  if (shortWay) {
    if (::linkat(fd_.get(), "", folder_, name, AT_EMPTY_PATH) == 0) return 0;
    if (errno != ENOENT && errno != EPERM) return errno;
    shortWay = false;
  }
  return ::linkat(AT_FDCWD, openPath().c_str(), folder_, name, AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
}

int TempFile::replace(const char* name) {
  for (int attempt = 0; name_.empty(); ++attempt) {
    std::string temporary = temporaryName();
    const int error = link(temporary.c_str());
    if (!error) name_ = std::move(temporary);
    if (error && (error != EEXIST || attempt == 100)) return error;
  }
  if (const int error = close()) return error;
  if (::renameat(folder_, name_.c_str(), folder_, name) != 0) return errno;
  name_.clear();
  return 0;
}

int TempFile::placeNew(const char* name) {
  if (name_.empty()) {
    if (const int error = link(name)) return error;
    const int error = close();
    if (error) ::unlinkat(folder_, name, 0);
    return error;
  }
  if (const int error = close()) return error;
  const int error = renameNoReplace(folder_, name_.c_str(), folder_, name);
  if (!error) name_.clear();
  return error;
}

int TempFile::keep() {
  const int error = close();
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
