#include "platform/posix/temp_file.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/identity.hpp"
#include "platform/posix/mount_table.hpp"
#include "platform/posix/tree_walk.hpp"

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <random>
#include <utility>

#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

constexpr int mostAttempts = 100;

/// Shares and drivers that go by paths lose a folder that others rename: its descriptor leads nowhere then, and what
/// was made in it stands elsewhere. Mostly beside, known by our temporary name in it, which no other folder has.
void unlinkInRenamed(int folder, const char* temporary, const char* name) {
  const UniqueFd place(::openat(folder, "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  DirentBatch batch;
  bool found = false;
  while (place && !found && batch.read(place.get()) > 0)
    found = !batch.forEach([&](const std::string& beside, unsigned char type) {
      struct stat facts {};
      const bool isIt = (type == DT_DIR || type == DT_UNKNOWN) &&
                        ::fstatat(place.get(), (beside + '/' + temporary).c_str(), &facts, AT_SYMLINK_NOFOLLOW) == 0;
      if (isIt) ::unlinkat(place.get(), (beside + '/' + name).c_str(), 0);
      return !isIt;
    });
}

/// The start of all temporary names of this machine. Locks of some shares are not seen by other machines, so each
/// machine clears away its own left-overs only. The machine's number is not to be told (machine-id(5)): a hash is.
const std::string& namesOfThisMachine() {
  static const std::string start = [] {
    std::string machine = readSystemFile("/etc/machine-id");
    if (machine.empty()) machine = readSystemFile("/proc/sys/kernel/random/boot_id");
    char text[24];
    std::snprintf(text, sizeof text, ".vnh-%08x-", static_cast<unsigned>(digest(machine + "varnholt")));
    return std::string(text);
  }();
  return start;
}

}  // namespace

std::string temporaryName() {
  // The start is random, so that several processes do not meet in one folder.
  static const std::uint64_t start =
      (static_cast<std::uint64_t>(std::random_device{}()) << 20) ^ static_cast<std::uint64_t>(::getpid());
  static std::atomic<std::uint64_t> next = 0;
  char name[40];
  std::snprintf(name, sizeof name, "%llx-%llx", static_cast<unsigned long long>(start),
                static_cast<unsigned long long>(next++));
  return namesOfThisMachine() + name;
}

bool isTemporaryName(std::string_view name) {
  if (!name.starts_with(namesOfThisMachine())) return false;
  const std::string_view rest = name.substr(namesOfThisMachine().size());
  const size_t dash = rest.find('-');
  return dash != 0 && dash != std::string_view::npos && dash + 1 < rest.size() &&
         rest.find_first_not_of("0123456789abcdef") == dash &&
         rest.find_first_not_of("0123456789abcdef", dash + 1) == std::string_view::npos;
}

bool holdTemporary(int folder, const char* name, int fd) {
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) return errno != EWOULDBLOCK;
  struct stat held {
  }, named{};
  return ::fstat(fd, &held) == 0 && ::fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         held.st_ino == named.st_ino;
}

int makeTemporaryFolder(int place, std::string& name, UniqueFd& folder) {
  for (int attempt = 0; attempt < mostAttempts; ++attempt) {
    name = temporaryName();
    if (::mkdirat(place, name.c_str(), 0700) != 0) {
      if (errno == EEXIST) continue;
      return errno;
    }
    const int fd = openFolderAt(place, name.c_str(), true);
    if (fd < 0 && fd != -ENOENT) {
      ::unlinkat(place, name.c_str(), AT_REMOVEDIR);
      return -fd;
    }
    folder = UniqueFd(fd);
    if (folder && holdTemporary(place, name.c_str(), folder.get())) return 0;
  }
  return EEXIST;
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
  for (int attempt = 0; attempt < mostAttempts && error == EEXIST; ++attempt) {
    error = createAs(folder, temporaryName().c_str(), mode);
    if (error || holdTemporary(folder_, name_.c_str(), fd_.get())) continue;
    fd_.reset();
    name_.clear();
    error = EEXIST;
  }
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
  if (!name_.empty() && ::unlinkat(folder_, name_.c_str(), 0) != 0 && errno == ENOENT)
    unlinkInRenamed(folder_, name_.c_str(), name_.c_str());
}

int TempFile::close() { return fd_.reset() == 0 || errno == EINTR ? 0 : errno; }

int TempFile::closeHeld() {
  // Each close of a descriptor writes out and tells, not the last alone.
  hold_ = UniqueFd(::fcntl(fd_.get(), F_DUPFD_CLOEXEC, 0));
  return close();
}

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
  // Nobody sees a file without a name, so nobody is quicker.
  if (name_.empty()) (void)::flock(fd_.get(), LOCK_EX | LOCK_NB);
  for (int attempt = 0; name_.empty(); ++attempt) {
    std::string temporary = temporaryName();
    const int error = link(temporary.c_str());
    if (!error) name_ = std::move(temporary);
    if (error && (error != EEXIST || attempt == mostAttempts)) return error;
  }
  if (const int error = closeHeld()) return error;
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
  if (const int error = closeHeld()) return error;
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
  if (::linkat(fromFolder, from, toFolder, to, 0) == 0) {
    // Gone already: somebody empties the folder, and what has the new name is all there is.
    if (::unlinkat(fromFolder, from, 0) == 0 || errno == ENOENT) return 0;
    const int error = errno;
    ::unlinkat(toFolder, to, 0);
    return error;
  }
  if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS) return errno;
  // No links either (exfat over FUSE and alike): a name held by an exclusive create is ours to rename over.
  // Closed at once: drivers keep what is open under a passing name when it is renamed over.
  UniqueFd holder(::openat(toFolder, to, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
  if (!holder) return errno;
  holder.reset();
  if (::renameat(fromFolder, from, toFolder, to) == 0) return 0;
  const int error = errno;
  if (::unlinkat(toFolder, to, 0) != 0 && errno == ENOENT && isTemporaryName(from)) unlinkInRenamed(toFolder, from, to);
  return error;
}

}  // namespace varnholt::platform::posix
