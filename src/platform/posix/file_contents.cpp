#include "platform/posix/file_contents.hpp"

#include "platform/posix/copy_attributes.hpp"
#include "platform/posix/entry_facts.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/path_parts.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/temp_file.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

Error notRegular(const std::string& path, mode_t mode) {
  return S_ISDIR(mode) ? systemError(EISDIR, path) : refusal(ErrorCode::NotRegular, path, "a pipe, socket or device");
}

/// The file that a chain of links names; the path itself when it is no link or leads nowhere yet.
Result<std::string> targetOfLinks(const std::string& path) {
  std::string at = path;
  for (int hops = 0; hops < 40; ++hops) {
    char link[4096];
    const ssize_t length = ::readlink(at.c_str(), link, sizeof link);
    if (length < 0) return at;
    const std::string_view text(link, static_cast<size_t>(length));
    at = text.starts_with('/') ? std::string(text) : at.substr(0, at.rfind('/') + 1).append(text);
  }
  return systemError(ELOOP, path);
}

/// Reads from the beginning until the file ends or `most` bytes are there. The size is a hint only: files of /proc tell
/// 0, and others grow while they are read.
Result<std::string> readUpTo(const UniqueFd& file, const std::string& path, std::uint64_t expected,
                             std::uint64_t most) {
  std::string bytes(static_cast<size_t>(std::min(expected, most)), '\0');
  size_t filled = 0;
  while (filled < most) {
    if (filled == bytes.size()) bytes.resize(static_cast<size_t>(std::min<std::uint64_t>(filled * 2 + 4096, most)));
    const ssize_t got = ::read(file.get(), bytes.data() + filled, bytes.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return systemError(errno, path);
    if (got == 0) break;
    filled += static_cast<size_t>(got);
  }
  bytes.resize(filled);
  return bytes;
}

/// The permissions that a new file gets from the process's mask.
constexpr mode_t newFileMode = 0666;

}  // namespace

Result<UniqueFd> openRegular(const std::string& path) {
  struct stat facts {};
  // Opening a device can have an effect of its own (a tape winds), so it is looked at before, and again after, for a
  // pipe may have come in its place.
  if (::stat(path.c_str(), &facts) != 0) return systemError(errno, path);
  if (!S_ISREG(facts.st_mode)) return notRegular(path, facts.st_mode);
  UniqueFd file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file || ::fstat(file.get(), &facts) != 0) return systemError(errno, path);
  if (!S_ISREG(facts.st_mode)) return notRegular(path, facts.st_mode);
  return file;
}

Result<std::string> readWholeFile(const std::string& path, std::uint64_t limit) {
  auto file = openRegular(path);
  if (!file) return file.error();
  struct stat facts {};
  if (::fstat(file->get(), &facts) != 0) return systemError(errno, path);
  const Error tooLarge = refusal(ErrorCode::TooLarge, path, "the file is larger than this use allows");
  const auto size = static_cast<std::uint64_t>(facts.st_size);
  if (size > limit) return tooLarge;
  auto bytes = readUpTo(*file, path, size + 1, limit + 1);
  if (bytes && bytes->size() > limit) return tooLarge;
  return bytes;
}

Result<std::string> readFileBeginning(const std::string& path, std::uint64_t most) {
  auto file = openRegular(path);
  if (!file) return file.error();
  struct stat facts {};
  if (::fstat(file->get(), &facts) != 0) return systemError(errno, path);
  return readUpTo(*file, path, static_cast<std::uint64_t>(facts.st_size) + 1, most);
}

int writeAll(int fd, const char* bytes, size_t count) {
  while (count > 0) {
    const ssize_t done = ::write(fd, bytes, count);
    if (done < 0 && errno != EINTR) return errno;
    if (done > 0) {
      bytes += done;
      count -= static_cast<size_t>(done);
    }
  }
  return 0;
}

namespace {

/// What has the name now, if anything; refused when it may not be replaced.
Result<UniqueFd> openOld(int folder, const char* name, struct stat& facts) {
  UniqueFd old(::openat(folder, name, O_PATH | O_NOFOLLOW | O_CLOEXEC));
  if (!old && errno == ENOENT) return old;
  if (!old || ::fstat(old.get(), &facts) != 0) return systemError(errno, {});
  if (!S_ISREG(facts.st_mode)) return notRegular({}, facts.st_mode);
  AttributeStore store = AttributeStore::ofDescriptor(folder);
  if (refusesWriting(folder, name, store))
    return refusal(ErrorCode::ReadOnlyTarget, {}, "the file is read-only, hidden or system");
  return old;
}

/// Gives 0 or errno.
int writeSynced(TempFile& temp, std::string_view bytes) {
  if (const int error = writeAll(temp.fd(), bytes.data(), bytes.size())) return error;
  return syncFile(temp.fd());
}

/// Everything from the temporary name to the synced folder. Errors have no path yet.
Result<void> replaceIn(int folder, const char* name, std::string_view bytes) {
  struct stat facts {};
  const auto old = openOld(folder, name, facts);
  if (!old) return old.error();
  TempFile temp;
  if (const int error = temp.create(folder, *old ? facts.st_mode & 0777 : newFileMode)) return systemError(error, {});
  if (*old) copyOwnership(facts, old->get(), temp.fd());
  if (const int error = writeSynced(temp, bytes)) return systemError(error, {});
  if (const int error = temp.replace(name)) return systemError(error, {});
  // The rename has happened; a folder that cannot be synced (some network volumes) does not undo it.
  ::fsync(folder);
  return {};
}

}  // namespace

Result<void> replaceFile(const std::string& path, std::string_view bytes) {
  const auto target = targetOfLinks(path);
  if (!target) return target.error();
  sweepFolderOf(*target);
  const auto place = openPlace(*target);
  if (!place) return place.error();
  auto replaced = replaceIn(place->folder.get(), place->name.c_str(), bytes);
  if (replaced) return {};
  Error error = replaced.error();
  error.path = path;
  return error;
}

}  // namespace varnholt::platform::posix
