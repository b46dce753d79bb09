#include "platform/posix/dos_attributes.hpp"

#include "platform/posix/posix_error.hpp"
#include "platform/posix/unique_fd.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <linux/magic.h>
#include <linux/msdos_fs.h>
#include <sys/ioctl.h>
#include <sys/statfs.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <sys/xattr.h>
#include <time.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

constexpr char userName[] = "user.DOSATTRIB";
constexpr char ntfsName[] = "system.ntfs_attrib";
constexpr char cifsName[] = "user.cifs.dosattrib";
// Magic numbers that linux/magic.h leaves out.
constexpr unsigned long exfatMagic = 0x2011BAB0, ntfs3Magic = 0x7366746E, cifsMagic = 0xFF534D42,
                        smb2Magic = 0xFE534D42;

AttributeStore::Kind kindOf(unsigned long magic) {
  switch (magic) {
  case MSDOS_SUPER_MAGIC:
  case exfatMagic:
    return AttributeStore::Kind::Fat;
  case ntfs3Magic:
  case FUSE_SUPER_MAGIC:
    return AttributeStore::Kind::Ntfs;
  case cifsMagic:
  case smb2Magic:
    return AttributeStore::Kind::Cifs;
  default:
    return AttributeStore::Kind::User;
  }
}

bool meansNoStore(int error) { return error == ENOTSUP || error == ENOSYS || error == ENOTTY; }

/// A FAT volume answers an ioctl on the open entry.
UniqueFd openForIoctl(const char* path, bool follow) {
  return UniqueFd(::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | (follow ? 0 : O_NOFOLLOW)));
}

ssize_t readXattr(const char* path, bool follow, const char* name, void* value, size_t size) {
  return follow ? ::getxattr(path, name, value, size) : ::lgetxattr(path, name, value, size);
}

int setXattr(const char* path, bool follow, const char* name, const void* value, size_t size) {
  return (follow ? ::setxattr(path, name, value, size, 0) : ::lsetxattr(path, name, value, size, 0)) == 0 ? 0 : errno;
}

/// Gives 0 or errno; EOPNOTSUPP for a link. The kernel's own call for it (from 6.6 on) spares the way that the library
/// goes, by a descriptor.
int changeMode(const char* path, mode_t mode) {
  constexpr long Fchmodat2 = 452;  // asm-generic/unistd.h; one number on all machines that the program runs on
  if (::syscall(Fchmodat2, AT_FDCWD, path, mode, AT_SYMLINK_NOFOLLOW) == 0) return 0;
  if (errno != ENOSYS && errno != EPERM) return errno;
  return ::fchmodat(AT_FDCWD, path, mode, AT_SYMLINK_NOFOLLOW) == 0 ? 0 : errno;
}

}  // namespace

AttributeStore AttributeStore::ofDescriptor(int fd) {
  struct statfs facts {};
  return AttributeStore(::fstatfs(fd, &facts) == 0 ? kindOf(static_cast<unsigned long>(facts.f_type)) : Kind::User);
}

AttributeStore AttributeStore::ofPath(const char* systemPath) {
  struct statfs facts {};
  return AttributeStore(::statfs(systemPath, &facts) == 0 ? kindOf(static_cast<unsigned long>(facts.f_type))
                                                          : Kind::User);
}

AttributeStore AttributeStore::ofVolume(dev_t device, const char* systemPath) {
  constexpr time_t TrustedSeconds = 1;
  struct Known {
    dev_t device = 0;
    Kind kind = Kind::None;
    time_t until = 0;
  };
  thread_local Known known;
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  if (known.device != device || now.tv_sec > known.until)
    known = {device, ofPath(systemPath).kind(), now.tv_sec + TrustedSeconds};
  return AttributeStore(known.kind);
}

std::optional<Attributes> AttributeStore::readWord(const char* path, bool follow, const char* name) {
  std::uint32_t word = 0;
  const ssize_t got = readXattr(path, follow, name, &word, sizeof word);
  if (got == sizeof word) return word;
  // A FUSE volume need not be NTFS, and a share may be mounted without this attribute.
  if (got < 0 && (meansNoStore(errno) || errno == ENODATA)) kind_ = Kind::User;
  return {};
}

std::optional<Attributes> AttributeStore::readText(const char* path, bool follow) {
  char value[256];
  const ssize_t got = readXattr(path, follow, userName, value, sizeof value);
  if (got >= 0) return decodeDosAttrib({value, static_cast<size_t>(got)});
  if (meansNoStore(errno)) kind_ = Kind::None;
  return {};
}

std::optional<Attributes> AttributeStore::read(const char* path, bool follow) {
  if (kind_ == Kind::Fat) {
    const UniqueFd entry = openForIoctl(path, follow);
    std::uint32_t word = 0;
    if (entry && ::ioctl(entry.get(), FAT_IOCTL_GET_ATTRIBUTES, &word) == 0) return word;
    return {};
  }
  if (kind_ == Kind::Ntfs || kind_ == Kind::Cifs)
    if (const auto word = readWord(path, follow, kind_ == Kind::Ntfs ? ntfsName : cifsName)) return word;
  return kind_ == Kind::User ? readText(path, follow) : std::nullopt;
}

int AttributeStore::write(const char* path, Attributes attributes, bool follow) const {
  const std::uint32_t word = attributes;
  switch (kind_) {
  case Kind::Fat: {
    const UniqueFd entry = openForIoctl(path, follow);
    return entry && ::ioctl(entry.get(), FAT_IOCTL_SET_ATTRIBUTES, &word) == 0 ? 0 : errno;
  }
  case Kind::Ntfs:
    return setXattr(path, follow, ntfsName, &word, sizeof word);
  case Kind::Cifs:
    return setXattr(path, follow, cifsName, &word, sizeof word);
  case Kind::User: {
    const std::string text = encodeDosAttrib(attributes);
    return setXattr(path, follow, userName, text.data(), text.size());
  }
  case Kind::None:
    break;
  }
  return ENOTSUP;
}

Attributes reportedAttributes(std::optional<Attributes> stored, mode_t mode, std::string_view name, bool compressed) {
  const bool folder = S_ISDIR(mode);
  const bool pointName = !name.empty() && name.front() == '.';
  Attributes reported = stored ? *stored & (attribute::Settable | attribute::Compressed)
                               : (pointName ? attribute::Hidden : 0) | (folder ? 0 : attribute::Archive);
  if (folder)
    reported |= attribute::Folder;
  else if (!(mode & S_IWUSR))
    reported |= attribute::ReadOnly;
  return compressed ? reported | attribute::Compressed : reported;
}

namespace {

std::string_view lastName(std::string_view path) { return path.substr(path.rfind('/') + 1); }

/// The volume's own attributes know read-only themselves, and the mode follows them.
Result<void> setNative(const AttributeStore& store, const std::string& path, Attributes word) {
  const int error = store.write(path.c_str(), word);
  return error ? Result<void>(systemError(error, path)) : Result<void>();
}

/// user.* attributes need write permission on the file itself, so it is lent while one is set.
int storeWithPermission(const AttributeStore& store, const std::string& path, mode_t mode, Attributes word) {
  const bool lend = !(mode & S_IWUSR);
  if (const int error = lend ? changeMode(path.c_str(), (mode & 07777) | S_IWUSR) : 0) return error;
  const int error = store.write(path.c_str(), word);
  const int taken = lend ? changeMode(path.c_str(), mode & 07777) : 0;
  return error ? error : taken;
}

mode_t modeFor(mode_t mode, Attributes attributes) {
  if (S_ISDIR(mode)) return mode;
  return attributes & attribute::ReadOnly ? mode & ~static_cast<mode_t>(S_IWUSR) : mode | S_IWUSR;
}

/// An entry that may be given attributes, and what it has.
struct Present {
  struct statx facts {};
  AttributeStore store;
  std::optional<Attributes> stored;

  mode_t mode() const { return facts.stx_mode; }
  Attributes reported(const std::string& path) const {
    return reportedAttributes(stored, mode(), lastName(path), facts.stx_attributes & STATX_ATTR_COMPRESSED);
  }
};

Result<Present> readPresent(const std::string& path) {
  Present present;
  if (::statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_TYPE | STATX_MODE, &present.facts))
    return systemError(errno, path);
  const mode_t mode = present.mode();
  if (S_ISLNK(mode)) return systemError(EOPNOTSUPP, path);
  if (!S_ISREG(mode) && !S_ISDIR(mode)) return present;
  const dev_t device = makedev(present.facts.stx_dev_major, present.facts.stx_dev_minor);
  present.store = AttributeStore::ofVolume(device, path.c_str());
  present.stored = present.store.read(path.c_str());
  return present;
}

/// `kept`: the bits that stay, beside those that the user sets.
Result<void> setWord(const std::string& path, const Present& present, Attributes kept, Attributes wanted) {
  const AttributeStore& store = present.store;
  if (store.kind() != AttributeStore::Kind::User && store.kind() != AttributeStore::Kind::None)
    return setNative(store, path, kept | wanted);

  const mode_t before = present.mode(), mode = modeFor(before, wanted);
  int error = 0;
  // Where the mode and the name tell all that is wanted, nothing needs to be stored.
  if (present.stored || (reportedAttributes({}, mode, lastName(path), false) & attribute::Settable) != wanted)
    error = storeWithPermission(store, path, before, kept | wanted);
  if (error && !meansNoStore(error)) return systemError(error, path);
  if (const int refused = mode != before ? changeMode(path.c_str(), mode & 07777) : 0)
    return systemError(refused, path);
  return error ? Result<void>(systemError(error, path)) : Result<void>();
}

Attributes withoutUsersBits(const Present& present) {
  return present.stored.value_or(S_ISDIR(present.mode()) ? attribute::Folder : 0) & ~attribute::Settable;
}

}  // namespace

Result<void> setAttributesAt(const std::string& path, Attributes attributes) {
  const auto set = setAttributesUnless(path, {}, attributes);
  return set ? Result<void>() : set.error();
}

Result<bool> setAttributesUnless(const std::string& path, std::span<const Attributes> spared, Attributes attributes) {
  const auto present = readPresent(path);
  if (!present) return present.error();
  if (std::ranges::find(spared, present->reported(path)) != spared.end()) return false;
  const auto set = setWord(path, *present, withoutUsersBits(*present), attributes & attribute::Settable);
  return set ? Result<bool>(true) : set.error();
}

Result<void> resetAttributesAt(const std::string& path) {
  const auto present = readPresent(path);
  if (!present) return present.error();
  return setWord(path, *present, 0, present->reported(path) & attribute::System);
}

}  // namespace varnholt::platform::posix
