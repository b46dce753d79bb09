#include "platform/posix/copy_tree.hpp"

#include "platform/posix/copy_attributes.hpp"
#include "platform/posix/copy_file.hpp"
#include "platform/posix/copy_undo.hpp"
#include "platform/posix/delete_tree.hpp"
#include "platform/posix/identity.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/modified_time.hpp"
#include "platform/posix/mounted_place.hpp"
#include "platform/posix/path_parts.hpp"
#include "platform/posix/temp_file.hpp"
#include "platform/posix/tree_walk.hpp"
#include "platform/posix/work_places.hpp"

#include <fcntl.h>

namespace varnholt::platform::posix {
namespace {

struct CopyFolder final : WalkFolder {
  UniqueFd target;
  UniqueFd rootPlace;                 ///< the root only: the folder that holds the target
  std::string targetName;             ///< the root only: the whole path
  std::string temporaryName;          ///< until it is settled; empty for a folder that was there
  bool made = false;                  ///< by this copy
  std::atomic<bool> isNoted = false;  ///< as a place where a kill may leave something
  struct stat facts {};               ///< of the source
  AttributeStore fromStore, toStore;
  size_t entriesRead = 0;
  std::atomic<size_t> entries = 0;  ///< all of them, when the last is read
  std::atomic<double> done = 0;     ///< of them, as far as the folder above has not been told

  CopyFolder* above() const { return static_cast<CopyFolder*>(parent.get()); }
  int targetPlace() const { return above() ? above()->target.get() : rootPlace.get(); }
  std::string finalName() const { return above() ? name : nameOf(targetName); }
  std::string targetPath() const { return above() ? above()->targetPath() + '/' + name : targetName; }
};

class CopyWalk final : public TreeWalk, private CopyMonitor {
 public:
  CopyWalk(bool overwrite, const FolderProgress& progress)
      : TreeWalk(tick_, true), overwrite_(overwrite), progress_(progress) {}

  Result<void> copy(std::shared_ptr<CopyFolder> root) {
    if (const int error = openTarget(*root)) return systemError(error, root->targetName);
    if (::fstat(root->target.get(), &targetRoot_) != 0) return systemError(errno, root->targetName);
    auto copied = run(root);
    (void)tell();
    if (!copied && copied.error().code == ErrorCode::Stopped && root->made && root->temporaryName.empty())
      removeCopies(root->name, root->targetPlace(), root->finalName());
    return copied;
  }

 private:
  bool tell() const { return !progress_ || progress_({bytes(), std::min(share_.load(), 1.0)}); }

  /// Counts the bytes of one entry, and of a large file what share of it is done.
  class EntryMonitor final : public CopyMonitor {
   public:
    EntryMonitor(CopyWalk& walk, CopyFolder& folder) : CopyMonitor(walk), walk_(walk), folder_(folder) {}

    void begin(std::uint64_t size) override { size_ = size; }

    bool add(std::uint64_t bytes) override {
      copied_ += bytes;
      if (copied_ < size_) advance(static_cast<double>(copied_) / static_cast<double>(size_));
      return walk_.add(bytes);
    }

    /// Bytes that were not copied belong to the folder's size all the same: holes, and files that are left out.
    void end() {
      if (size_ > copied_) walk_.addBytes(size_ - copied_);
      advance(1);
    }

   private:
    void advance(double to) { credit(walk_.share_, &folder_, to - std::exchange(told_, to)); }

    CopyWalk& walk_;
    CopyFolder& folder_;
    std::uint64_t size_ = 0, copied_ = 0;
    double told_ = 0;
  };

  /// So much of an entry of the folder is done, which is its part of an entry of the folder above, and so on. What is
  /// done before the folder is read to its end waits there for its weight.
  static void credit(std::atomic<double>& whole, CopyFolder* folder, double part) {
    for (; folder; folder = folder->above()) {
      folder->done.fetch_add(part);
      const size_t entries = folder->entries;
      if (entries == 0) return;
      part = folder->done.exchange(0) / static_cast<double>(entries);
    }
    whole.fetch_add(part);
  }

  static CopyFolder& own(WalkFolder& folder) { return static_cast<CopyFolder&>(folder); }

  WalkFolderPtr makeFolder() override { return std::make_shared<CopyFolder>(); }

  bool add(std::uint64_t bytes) override {
    addBytes(bytes);
    return !isOver();
  }

  bool enter(WalkFolder& walked) override {
    CopyFolder& folder = own(walked);
    if (::fstat(folder.fd.get(), &folder.facts) != 0) return leaveOut(systemError(errno, folder.path())), false;
    if (folder.parent && sameInode(folder.facts, targetRoot_))
      return fail(refusal(ErrorCode::IntoItself, folder.path(), "the target lies in the source")), false;
    if (!folder.target && !makeTarget(folder)) return false;
    folder.fromStore = AttributeStore::ofDescriptor(folder.fd.get());
    folder.toStore = AttributeStore::ofDescriptor(folder.target.get());
    return true;
  }

  bool makeTarget(CopyFolder& folder) {
    const int error = openTarget(folder);
    if (error) leaveOut(systemError(error, folder.targetPath()));
    return !error;
  }

  /// Opens the target that is there, or makes one: under a temporary name until its own files are in it, so that a kill
  /// leaves no half file under a name that somebody trusts, and open to us whatever the source's permissions. Gives 0
  /// or errno; EEXIST for anything there that is no folder.
  static int openTarget(CopyFolder& folder) {
    const bool fresh = folder.above() && folder.above()->made;
    const int place = folder.targetPlace();
    const std::string name = folder.finalName();
    // A link at the top was named by the caller; below it nobody did.
    const int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK | (folder.above() ? O_NOFOLLOW : 0);
    if (!fresh) folder.target = UniqueFd(::openat(place, name.c_str(), flags));
    if (folder.target) {
      sweepLeftovers(folder.target.get());
      return 0;
    }
    if (!fresh && errno != ENOENT) return errno == ENOTDIR || errno == ELOOP ? EEXIST : errno;
    // What was there has been noted when it was swept. By its last name: under its temporary one it goes as a whole.
    if (fresh && !folder.above()->isNoted.exchange(true)) noteWorkPlace(folder.above()->targetPath());
    const int error = makeTemporaryFolder(place, folder.temporaryName, folder.target);
    folder.made = error == 0;
    return error;
  }

  /// Gives a folder its own name. Gives 0 or errno; EEXIST when somebody made one of that name meanwhile.
  static int settle(CopyFolder& folder) {
    if (folder.temporaryName.empty()) return 0;
    const int error = renameNoReplace(folder.targetPlace(), folder.temporaryName.c_str(), folder.targetPlace(),
                                      folder.finalName().c_str());
    if (!error) folder.temporaryName.clear();
    return error;
  }

  /// The source's permissions and `more`. A folder that hands its group on to what is made in it has handed that on,
  /// too: a folder that many share stays shared all the way down.
  static void giveMode(const CopyFolder& folder, mode_t more) {
    struct stat made {};
    const mode_t handed = ::fstat(folder.target.get(), &made) == 0 ? made.st_mode & S_ISGID : 0;
    (void)::fchmod(folder.target.get(), (folder.facts.st_mode & 07777) | handed | more);
  }

  void batchRead(WalkFolder& walked, const DirentBatch& batch) override {
    CopyFolder& folder = own(walked);
    folder.entriesRead += batch.count();
    if (!batch.isLast()) return;
    folder.entries = folder.entriesRead;
    credit(share_, &folder, 0);
  }

  void entriesDone(WalkFolder& walked) override {
    CopyFolder& folder = own(walked);
    // As near to its permissions as the copy of what is below it allows: a kill before the end leaves these.
    if (folder.made) giveMode(folder, S_IRWXU);
    if (const int error = settle(folder)) leaveOut(systemError(error, folder.targetPath()));
  }

  void entry(WalkFolder& walked, const char* name, unsigned char type) override {
    CopyFolder& folder = own(walked);
    // Stores learn while they are asked; a large folder is asked by several workers, so each takes its own.
    CopySide from{folder.fd.get(), folder.fromStore}, to{folder.target.get(), folder.toStore};
    EntryMonitor monitor(*this, folder);
    auto failed = copyEntry(from, name, type, to, name, {.overwrite = overwrite_, .freshFolder = folder.made}, monitor);
    if (failed && type == DT_REG) monitor.begin(sizeOf(folder, name));
    monitor.end();
    if (!failed || failed->error.code == ErrorCode::Stopped) return;
    failed->error.path = failed->atTarget ? folder.targetPath() + '/' + name : folder.path(name);
    leaveOut(std::move(failed->error));
  }

  static std::uint64_t sizeOf(const CopyFolder& folder, const char* name) {
    struct stat facts {};
    const bool known = ::fstatat(folder.fd.get(), name, &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(facts.st_mode);
    return known ? static_cast<std::uint64_t>(facts.st_size) : 0;
  }

  /// Also when the walk has failed: a folder that stays half filled must not stay locked.
  Leaving leave(WalkFolder& walked) override {
    CopyFolder& folder = own(walked);
    if (folder.entries == 0) credit(share_, folder.above(), 1);
    if (!folder.made || !folder.target) return Leaving::Done;
    (void)copyExtendedAttributes(folder.fd.get(), folder.target.get());
    CopySide from{folder.fd.get(), folder.fromStore}, to{folder.target.get(), folder.toStore};
    copyNativeAttributes(from, ".", folder.facts.st_mode, to.store, "/proc/self/fd/" + std::to_string(to.folder));
    giveMode(folder, 0);
    (void)::futimens(folder.target.get(), modifiedTime(folder.facts.st_mtim).data());
    // After a failure: what was copied stays, unless its name is taken.
    if (settle(folder) != 0)
      (void)removeTree("/proc/self/fd/" + std::to_string(folder.targetPlace()) + '/' + folder.temporaryName, true, {},
                       nullptr);
    folder.target.reset();
    return Leaving::Done;
  }

  void unreadable(WalkFolder& folder, int error) override {
    if (!folder.fd) credit(share_, own(folder).above(), 1);
    leaveOut(systemError(error, folder.path()));
  }

  const Progress tick_ = [this](std::uint64_t) { return tell(); };
  const bool overwrite_;
  const FolderProgress& progress_;
  std::atomic<double> share_ = 0;
  struct stat targetRoot_ {};
};

Error intoItself(const std::string& path) {
  return refusal(ErrorCode::IntoItself, path, "the target lies in the source");
}

}  // namespace

bool liesWithin(const std::string& folderPath, const struct stat& ancestor) {
  UniqueFd at(::open(folderPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  struct stat here {};
  while (at && ::fstat(at.get(), &here) == 0) {
    if (sameInode(here, ancestor)) return true;
    struct stat above {};
    UniqueFd up(::openat(at.get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!up || ::fstat(up.get(), &above) != 0 || sameInode(above, here)) return false;
    at = std::move(up);
  }
  return false;
}

Result<void> copyTree(const std::string& from, const std::string& to, bool overwrite, const FolderProgress& progress,
                      LeftOuts* leftOut) {
  struct stat source {
  }, target{};
  if (::lstat(from.c_str(), &source) != 0) return systemError(errno, from);
  if (S_ISLNK(source.st_mode)) return copyFileTo(from, to, {.overwrite = overwrite}, {});
  auto root = std::make_shared<CopyFolder>();
  root->name = from;
  root->targetName = to;
  root->fd = UniqueFd(::open(from.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK));
  if (!root->fd || ::fstat(root->fd.get(), &source) != 0) return systemError(errno, from);
  const bool exists = ::stat(to.c_str(), &target) == 0;
  if (exists && sameInode(source, target)) return refusal(ErrorCode::SameEntry, to, "source and target are one folder");
  const std::string& holder = exists ? to : folderOf(to);
  if (liesWithin(holder, source) || liesWithinByMounts(holder, from)) return intoItself(to);
  sweepFolderOf(to);
  auto place = openPlace(to);
  if (!place) return place.error();
  root->rootPlace = std::move(place->folder);
  CopyWalk walk(overwrite, progress);
  auto copied = walk.copy(std::move(root));
  if (leftOut) *leftOut = walk.takeLeftOut();
  return copied;
}

}  // namespace varnholt::platform::posix
