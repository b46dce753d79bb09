#include "platform/posix/copy_file.hpp"

#include "platform/posix/copy_attributes.hpp"
#include "platform/posix/entry_facts.hpp"
#include "platform/posix/identity.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/modified_time.hpp"
#include "platform/posix/path_parts.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/temp_file.hpp"
#include "platform/posix/tree_walk.hpp"

#include <cerrno>

#include <dirent.h>
#include <fcntl.h>

namespace varnholt::platform::posix {
namespace {

using Failed = std::optional<CopyFailure>;

Failed atSource(int error) { return CopyFailure{systemError(error, {}), false}; }
Failed atTarget(int error) { return CopyFailure{systemError(error, {}), true}; }
Failed refused(ErrorCode code, const char* text) { return CopyFailure{refusal(code, {}, text), true}; }
Failed notRegular() { return CopyFailure{refusal(ErrorCode::NotRegular, {}, "a pipe, socket or device"), false}; }
Failed stopped() { return CopyFailure{{ErrorCode::Stopped, {}, "stopped"}, false}; }

std::string descriptorPath(int folder, const char* name) {
  return "/proc/self/fd/" + std::to_string(folder) + '/' + name;
}

/// Whether what has the target's name may be replaced. `exists` tells whether anything has it.
Failed judgeTarget(const struct stat& source, CopySide& to, const char* name, const CopyRules& rules, bool& exists) {
  struct stat target {};
  exists = false;
  if (rules.targetIsFree) return {};
  exists = !rules.freshFolder && ::fstatat(to.folder, name, &target, AT_SYMLINK_NOFOLLOW) == 0;
  if (!exists) return rules.freshFolder || errno == ENOENT ? Failed() : atTarget(errno);
  struct stat reached = target;
  if (S_ISLNK(target.st_mode)) (void)::fstatat(to.folder, name, &reached, 0);
  if (sameInode(source, target) || sameInode(source, reached))
    return refused(ErrorCode::SameEntry, "source and target are one file");
  if (S_ISDIR(target.st_mode)) return atTarget(EISDIR);
  if (!rules.overwrite) return atTarget(EEXIST);
  if (!S_ISREG(target.st_mode) && !S_ISLNK(target.st_mode))
    return refused(ErrorCode::NotRegular, "the target is a pipe, socket or device");
  if (!rules.protectedToo && refusesOverwrite(to.folder, name, to.store))
    return refused(ErrorCode::ReadOnlyTarget, "the target is read-only, hidden or system");
  return {};
}

/// A file that lends the rights of its owner or group to whoever runs it lends nobody else's. Most new files were made
/// with the right mode, and to look is quicker than to set. Gives 0 or errno.
int copyMode(int to, const struct stat& facts) {
  constexpr mode_t all = 07777, lends = S_ISUID | S_ISGID;
  struct stat made {};
  const bool known = ::fstat(to, &made) == 0;
  const bool own = known && made.st_uid == facts.st_uid && made.st_gid == facts.st_gid;
  const mode_t mode = facts.st_mode & (own ? all : all & ~lends);
  if (known && (made.st_mode & all) == mode) return 0;
  return ::fchmod(to, mode) == 0 || cannotKeep(errno) ? 0 : errno;
}

/// Everything of a file but its bytes and its native attributes. Extended attributes before the mode: a file that may
/// not be written takes none. A copy is its maker's; what is moved keeps its owner where that is allowed. Gives 0 or
/// errno.
int copyFacts(int from, int to, const struct stat& facts, bool moves) {
  if (const int error = copyExtendedAttributes(from, to)) return error;
  if (moves) giveOwner(facts, to);
  if (const int error = copyMode(to, facts)) return error;
  return ::futimens(to, modifiedTime(facts.st_mtim).data()) == 0 || cannotKeep(errno) ? 0 : errno;
}

/// What a file is copied from and to, looked at and judged.
struct FileCopy {
  CopySide& from;
  const char* fromName;
  CopySide& to;
  const char* toName;
  const CopyRules& rules;
  struct stat facts {};
  bool replaces = false;
};

/// Puts a new file on the disk; a large one piece by piece, since nobody can stop a sync. Gives 0, errno, or ECANCELED.
int writeOut(int fd, off_t size, CopyMonitor& monitor) {
  constexpr off_t piece = 64 << 20;
  constexpr unsigned all = SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER;
  for (off_t at = 0; size > piece && at < size; at += piece) {
    // A failure to write is told once, here or by the sync.
    if (::sync_file_range(fd, at, piece, all) != 0 && (errno == EIO || errno == ENOSPC || errno == EDQUOT))
      return errno;
    if (!monitor.add(0)) return ECANCELED;
  }
  return syncFile(fd);
}

/// Fills a new file. Gives nothing when all is done but its name.
Failed fill(TempFile& file, int source, const FileCopy& copy, CopyMonitor& monitor) {
  constexpr mode_t ours = S_IRUSR | S_IWUSR;
  // In a folder that nobody else can enter yet, a file has its mode from the start.
  const int created = copy.rules.freshFolder
                          ? file.createAs(copy.to.folder, copy.toName, (copy.facts.st_mode & 0777) | ours)
                          : file.create(copy.to.folder, ours);
  if (created) return atTarget(created);
  if (const int error = copyBytes(source, file.fd(), copy.facts, monitor))
    return error == ECANCELED ? stopped() : error == EIO ? atSource(error) : atTarget(error);
  if (const int error = copyFacts(source, file.fd(), copy.facts, copy.rules.moves)) return atTarget(error);
  copyNativeAttributes(copy.from, copy.fromName, copy.facts.st_mode, copy.to.store, file.openPath());
  // The old file goes only when the new one is on the disk.
  const bool mustLast = copy.replaces || copy.rules.moves;
  const int error = mustLast ? writeOut(file.fd(), copy.facts.st_size, monitor) : 0;
  if (error == ECANCELED) return stopped();
  return error ? atTarget(error) : Failed();
}

Failed copyIntoPlace(int source, const FileCopy& copy, CopyMonitor& monitor) {
  TempFile file;
  if (auto failed = fill(file, source, copy, monitor)) return failed;
  const int error = copy.rules.freshFolder ? file.keep()
                    : copy.replaces        ? file.replace(copy.toName)
                                           : file.placeNew(copy.toName);
  return error ? atTarget(error) : Failed();
}

Failed copyRegular(CopySide& from, const char* fromName, CopySide& to, const char* toName, const CopyRules& rules,
                   CopyMonitor& monitor) {
  const UniqueFd source(::openat(from.folder, fromName, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  FileCopy copy{from, fromName, to, toName, rules};
  if (!source || ::fstat(source.get(), &copy.facts) != 0) return atSource(errno);
  if (!S_ISREG(copy.facts.st_mode)) return notRegular();
  monitor.begin(static_cast<std::uint64_t>(copy.facts.st_size));
  if (auto failed = judgeTarget(copy.facts, to, toName, rules, copy.replaces)) return failed;
  return copyIntoPlace(source.get(), copy, monitor);
}

/// Gives 0 or errno.
int makeLink(const std::string& text, int folder, const char* name) {
  if (::symlinkat(text.c_str(), folder, name) == 0) return 0;
  return errno == EPERM ? EOPNOTSUPP : errno;
}

/// A link gets its name in one step anyway; only one that replaces something is made elsewhere first. A link itself
/// cannot be held against a clean-up, so that is a folder that can.
int replaceByLink(const std::string& text, int folder, const char* name) {
  std::string temporary;
  UniqueFd between;
  if (const int error = makeTemporaryFolder(folder, temporary, between)) return error;
  int error = makeLink(text, between.get(), "link");
  if (!error && ::renameat(between.get(), "link", folder, name) != 0) {
    error = errno;
    ::unlinkat(between.get(), "link", 0);
  }
  ::unlinkat(folder, temporary.c_str(), AT_REMOVEDIR);
  return error;
}

Failed copyLink(CopySide& from, const char* fromName, CopySide& to, const char* toName, const CopyRules& rules) {
  struct stat facts {};
  if (::fstatat(from.folder, fromName, &facts, AT_SYMLINK_NOFOLLOW) != 0) return atSource(errno);
  std::string text(static_cast<size_t>(facts.st_size) + 4096, '\0');
  const ssize_t length = ::readlinkat(from.folder, fromName, text.data(), text.size());
  if (length < 0) return atSource(errno);
  text.resize(static_cast<size_t>(length));
  bool replaces = false;
  if (auto failed = judgeTarget(facts, to, toName, rules, replaces)) return failed;
  if (const int error = replaces ? replaceByLink(text, to.folder, toName) : makeLink(text, to.folder, toName))
    return atTarget(error);
  if (rules.moves) (void)!::fchownat(to.folder, toName, facts.st_uid, facts.st_gid, AT_SYMLINK_NOFOLLOW);
  (void)::utimensat(to.folder, toName, modifiedTime(facts.st_mtim).data(), AT_SYMLINK_NOFOLLOW);
  return {};
}

/// For a copy of one file, on the caller's thread.
class ProgressMonitor final : public CopyMonitor {
 public:
  explicit ProgressMonitor(const Progress& progress) : progress_(progress) {}
  bool add(std::uint64_t bytes) override {
    done_ += bytes;
    return !progress_ || progress_(done_);
  }

 private:
  const Progress& progress_;
  std::uint64_t done_ = 0;
};

}  // namespace

std::optional<CopyFailure> copyEntry(CopySide& from, const char* fromName, unsigned char type, CopySide& to,
                                     const char* toName, const CopyRules& rules, CopyMonitor& monitor) {
  if (type == DT_REG) return copyRegular(from, fromName, to, toName, rules, monitor);
  if (type == DT_LNK) return copyLink(from, fromName, to, toName, rules);
  return type == DT_DIR ? atSource(EISDIR) : notRegular();
}

void copyNativeAttributes(CopySide& from, const char* fromName, mode_t mode, AttributeStore& to,
                          const std::string& toPath) {
  using Kind = AttributeStore::Kind;
  const auto isNative = [](Kind kind) { return kind != Kind::User && kind != Kind::None; };
  if (!isNative(from.store.kind()) && !isNative(to.kind())) return;
  const auto stored = from.store.read(descriptorPath(from.folder, fromName).c_str());
  const bool readOnly = isNative(to.kind()) && S_ISREG(mode) && !(mode & S_IWUSR);
  if (stored || readOnly)
    (void)to.write(toPath.c_str(), stored.value_or(attribute::Archive) | (readOnly ? attribute::ReadOnly : 0), true);
}

namespace {

/// Puts the name of a new file on the disk. A folder that may be written but not read cannot be synced itself; all of
/// its volume can. Gives 0 or errno.
int syncName(int folder, const char* name) {
  const int error = syncFile(folder);
  if (error != EBADF) return error;
  const UniqueFd file(::openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (file) return ::syncfs(file.get()) == 0 ? 0 : errno;
  // A link or an unreadable file leads to no descriptor of the volume.
  ::sync();
  return 0;
}

}  // namespace

Result<void> copyFileTo(const std::string& from, const std::string& to, const CopyRules& rules,
                        const Progress& progress) {
  sweepFolderOf(to);
  const auto source = openPlace(from), target = openPlace(to);
  if (!source || !target) return source ? target.error() : source.error();
  struct stat facts {};
  if (::fstatat(source->folder.get(), source->name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
    return systemError(errno, from);
  CopySide fromSide{source->folder.get(), AttributeStore::ofDescriptor(source->folder.get())};
  CopySide toSide{target->folder.get(), AttributeStore::ofDescriptor(target->folder.get())};
  ProgressMonitor monitor(progress);
  auto failed = copyEntry(fromSide, source->name.c_str(), static_cast<unsigned char>(IFTODT(facts.st_mode)), toSide,
                          target->name.c_str(), rules, monitor);
  if (failed) {
    failed->error.path = failed->atTarget ? to : from;
    return failed->error;
  }
  const int error = rules.moves ? syncName(toSide.folder, target->name.c_str()) : 0;
  if (!error) return {};
  ::unlinkat(toSide.folder, target->name.c_str(), 0);
  return systemError(error, to);
}

}  // namespace varnholt::platform::posix
