#include "platform/posix/copy_attributes.hpp"

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>

#include <sys/xattr.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

bool isOurs(std::string_view name) { return name.starts_with("user.") || name.starts_with("system.posix_acl_"); }

/// A fault of the moment or of the medium. Anything else that reading says is a volume without attributes, or one that
/// is not ours to read.
bool isFault(int error) { return error == EIO || error == ENOMEM; }

/// What the volume would take, had it the room or the health; all else it has no place for.
bool isFailure(int error) {
  return isFault(error) || error == ENOSPC || error == EDQUOT || error == E2BIG || error == ERANGE;
}

/// One attribute. Gives 0 or errno.
int copyOne(const char* fromPath, int from, int to, const char* name) {
  std::string value(1024, '\0');
  for (;;) {
    const ssize_t got = fromPath ? ::getxattr(fromPath, name, value.data(), value.size())
                                 : ::fgetxattr(from, name, value.data(), value.size());
    if (got >= 0) return ::fsetxattr(to, name, value.data(), static_cast<size_t>(got), 0) == 0 ? 0 : errno;
    if (errno != ERANGE || value.size() >= 65536) return isFault(errno) ? errno : 0;
    value.resize(65536);
  }
}

int copyNames(const char* fromPath, int from, int to, std::string_view names) {
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find('\0'));
    names.remove_prefix(std::min(name.size() + 1, names.size()));
    if (!isOurs(name)) continue;
    const int error = copyOne(fromPath, from, to, name.data());
    if (isFailure(error)) return error;
  }
  return 0;
}

int copyAll(const char* fromPath, int from, int to) {
  char small[1024];
  const auto list = [&](char* names, size_t size) {
    return fromPath ? ::listxattr(fromPath, names, size) : ::flistxattr(from, names, size);
  };
  ssize_t got = list(small, sizeof small);
  if (got >= 0) return copyNames(fromPath, from, to, {small, static_cast<size_t>(got)});
  if (errno != ERANGE) return isFault(errno) ? errno : 0;
  std::string large(65536, '\0');  // XATTR_LIST_MAX
  got = list(large.data(), large.size());
  if (got < 0) return isFault(errno) ? errno : 0;
  return copyNames(fromPath, from, to, {large.data(), static_cast<size_t>(got)});
}

}  // namespace

int copyExtendedAttributes(int from, int to) { return copyAll(nullptr, from, to); }

void giveOwner(const struct stat& old, int newFd) {
  if (::fchown(newFd, old.st_uid, old.st_gid) != 0) (void)!::fchown(newFd, static_cast<uid_t>(-1), old.st_gid);
}

void copyOwnership(const struct stat& old, int oldFd, int newFd) {
  const std::string path = "/proc/self/fd/" + std::to_string(oldFd);
  (void)copyAll(path.c_str(), -1, newFd);
  // The owner first: a change of owner takes set-user-id bits away again.
  giveOwner(old, newFd);
  (void)::fchmod(newFd, old.st_mode & 07777);
}

}  // namespace varnholt::platform::posix
