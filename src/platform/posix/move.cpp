#include "platform/posix/move.hpp"

#include "platform/posix/copy_file.hpp"
#include "platform/posix/copy_tree.hpp"
#include "platform/posix/dirents.hpp"
#include "platform/posix/entry_facts.hpp"
#include "platform/posix/identity.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/passing_names.hpp"
#include "platform/posix/path_parts.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/temp_file.hpp"
#include "platform/text_fold.hpp"

#include <cerrno>

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

/// Both ends of a move, and what is at them.
struct Move {
  Place from, to;
  struct stat source {
  }, target{};
  bool targetExists = false;
};

Result<Move> openMove(const std::string& from, const std::string& to) {
  auto source = openPlace(from), target = openPlace(to);
  if (!source || !target) return source ? target.error() : source.error();
  Move move{std::move(*source), std::move(*target)};
  if (::fstatat(move.from.folder.get(), move.from.name.c_str(), &move.source, AT_SYMLINK_NOFOLLOW) != 0)
    return systemError(errno, from);
  move.targetExists = ::fstatat(move.to.folder.get(), move.to.name.c_str(), &move.target, AT_SYMLINK_NOFOLLOW) == 0;
  return move;
}

bool inOneFolder(const Move& move) {
  struct stat a {
  }, b{};
  return ::fstat(move.from.folder.get(), &a) == 0 && ::fstat(move.to.folder.get(), &b) == 0 && sameInode(a, b);
}

/// On a volume that does not tell case apart the target "exists" when only the case of the name changes. On one that
/// does, a second name of the file (a hard link) is an entry of its own, and the folder lists it. Inodes do not tell:
/// many a FUSE driver gives each spelling one of its own.
bool isOtherSpelling(const Move& move) {
  return move.targetExists && inOneFolder(move) && foldCase(move.from.name) == foldCase(move.to.name) &&
         move.from.name != move.to.name && !mayList(move.to.folder.get(), move.to.name);
}

/// In two steps: for a kernel that finds the new spelling to be the same entry a rename does nothing.
int respell(const Move& move, const std::string& to) {
  const Passage passage{PassingNames::nameFor(move.to.name), move.to.name, {move.from.name}};
  return PassingNames::run(move.from.folder.get(), folderOf(to), {passage}).front();
}

/// What is decided before anything is renamed: done (true), refused, or to be renamed (false).
Result<bool> judge(const Move& move, const std::string& to) {
  if (!move.targetExists) return false;
  if (isOtherSpelling(move)) {
    const int error = respell(move, to);
    return error ? Result<bool>(systemError(error, to)) : Result<bool>(true);
  }
  if (sameInode(move.source, move.target)) {
    if (move.from.name == move.to.name && inOneFolder(move)) return true;  // to where it is
    // rename() of two names of one file would report success and do nothing.
    return refusal(ErrorCode::SameEntry, to, "source and target are one file");
  }
  return systemError(EEXIST, to);
}

int rename(const Move& move) {
  return renameNoReplace(move.from.folder.get(), move.from.name.c_str(), move.to.folder.get(), move.to.name.c_str());
}

/// A link that leads to what it would replace would lead to itself then, with nothing behind it.
bool leadsToTarget(const Move& move) {
  struct stat a {
  }, b{};
  return S_ISLNK(move.source.st_mode) && ::fstatat(move.from.folder.get(), move.from.name.c_str(), &a, 0) == 0 &&
         ::fstatat(move.to.folder.get(), move.to.name.c_str(), &b, 0) == 0 && sameInode(a, b);
}

/// Whether the target may go for the source.
Result<void> judgeOver(const Move& move, const std::string& from, const std::string& to) {
  if (S_ISDIR(move.source.st_mode)) return systemError(EISDIR, from);
  if (!move.targetExists) return {};
  if (S_ISDIR(move.target.st_mode)) return systemError(EISDIR, to);
  if (sameInode(move.source, move.target) || leadsToTarget(move))
    return refusal(ErrorCode::SameEntry, to, "source and target are one file");
  if (!S_ISREG(move.target.st_mode) && !S_ISLNK(move.target.st_mode))
    return refusal(ErrorCode::NotRegular, to, "the target is a pipe, socket or device");
  AttributeStore store = AttributeStore::ofDescriptor(move.to.folder.get());
  if (refusesOverwrite(move.to.folder.get(), move.to.name.c_str(), store))
    return refusal(ErrorCode::ReadOnlyTarget, to, "the target is read-only, hidden or system");
  return {};
}

/// The old target must not go while the bytes of what takes its name are in memory alone.
int syncSource(const Move& move) {
  if (!S_ISREG(move.source.st_mode)) return 0;
  const UniqueFd file(::openat(move.from.folder.get(), move.from.name.c_str(),
                               O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  return !file || ::fsync(file.get()) == 0 || errno == EINVAL || errno == EROFS ? 0 : errno;
}

/// What became of the source while it was copied.
enum class Source { Stands, Changed, Replaced, Gone };

Source sourceNow(const Move& move) {
  struct stat now {};
  const struct stat& then = move.source;
  if (::fstatat(move.from.folder.get(), move.from.name.c_str(), &now, AT_SYMLINK_NOFOLLOW) != 0)
    return errno == ENOENT ? Source::Gone : Source::Changed;
  if (!sameInode(now, then)) return Source::Replaced;
  const bool sameTime = now.st_mtim.tv_sec == then.st_mtim.tv_sec && now.st_mtim.tv_nsec == then.st_mtim.tv_nsec;
  return sameTime && now.st_size == then.st_size ? Source::Stands : Source::Changed;
}

/// The source goes only when the copy and its name are on the disk, and only as what was copied: bytes written to it
/// meanwhile are perhaps not in the copy. The copy goes again when the source stays with all that is in the copy.
Result<void> moveAcross(const Move& move, const std::string& from, const std::string& to, const Progress& progress) {
  if (auto copied = copyFileTo(from, to, {.moves = true}, progress); !copied) return copied;
  const Source source = sourceNow(move);
  if (source == Source::Gone) return {};  // somebody deleted it: the copy is all there is
  const Error changed = refusal(ErrorCode::Failed, from, "the file was changed while it was moved");
  if (source == Source::Replaced) return changed;
  if (source == Source::Stands && ::unlinkat(move.from.folder.get(), move.from.name.c_str(), 0) == 0) return {};
  const int error = errno;
  if (source == Source::Stands && error == ENOENT) return {};
  ::unlinkat(move.to.folder.get(), move.to.name.c_str(), 0);
  return source == Source::Changed ? changed : systemError(error, from);
}

/// The usual case in as few calls as it takes. False: something is in the way, which is to be looked at closely.
bool moveDirectly(const std::string& from, const std::string& to) {
  struct stat facts {};
  return ::lstat(from.c_str(), &facts) == 0 && !S_ISDIR(facts.st_mode) &&
         ::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0;
}

}  // namespace

Result<void> moveFileTo(const std::string& from, const std::string& to, const Progress& progress) {
  sweepFolderOf(from);
  sweepFolderOf(to);
  if (moveDirectly(from, to)) return {};
  const auto move = openMove(from, to);
  if (!move) return move.error();
  if (S_ISDIR(move->source.st_mode)) return systemError(EISDIR, from);
  const auto judged = judge(*move, to);
  if (!judged || *judged) return judged ? Result<void>() : judged.error();
  const int error = rename(*move);
  if (error == EXDEV) return moveAcross(*move, from, to, progress);
  return error ? Result<void>(systemError(error, error == EEXIST ? to : from)) : Result<void>();
}

Result<void> renameOverTo(const std::string& from, const std::string& to) {
  const auto move = openMove(from, to);
  if (!move) return move.error();
  if (move->targetExists && isOtherSpelling(*move)) return moveFileTo(from, to, {});
  if (auto judged = judgeOver(*move, from, to); !judged) return judged;
  if (const int error = syncSource(*move)) return systemError(error, from);
  const int failed =
      ::renameat(move->from.folder.get(), move->from.name.c_str(), move->to.folder.get(), move->to.name.c_str());
  return failed ? Result<void>(systemError(errno, from)) : Result<void>();
}

Result<void> moveFolderTo(const std::string& from, const std::string& to) {
  sweepFolderOf(from);
  sweepFolderOf(to);
  const auto move = openMove(from, to);
  if (!move) return move.error();
  struct stat reached {};
  if (::fstatat(move->from.folder.get(), move->from.name.c_str(), &reached, 0) != 0 || !S_ISDIR(reached.st_mode))
    return systemError(ENOTDIR, from);
  const auto judged = judge(*move, to);
  if (!judged || *judged) return judged ? Result<void>() : judged.error();
  if (liesWithin(folderOf(to), move->source))
    return refusal(ErrorCode::IntoItself, to, "the target lies in the source");
  const int error = rename(*move);
  return error ? Result<void>(systemError(error, error == EEXIST ? to : from)) : Result<void>();
}

bool areSpellings(const std::string& a, const std::string& b) {
  if (foldCase(nameOf(a)) != foldCase(nameOf(b)) || nameOf(a) == nameOf(b)) return false;
  const auto one = openMove(a, b), other = openMove(b, a);
  return one && other && (isOtherSpelling(*one) || isOtherSpelling(*other));
}

}  // namespace varnholt::platform::posix
