#include "platform/posix/delete_tree.hpp"

#include "platform/posix/entry_facts.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/path_parts.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/tree_walk.hpp"

#include <fcntl.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

constexpr int mostPasses = 10;

Error readOnly(std::string path) { return refusal(ErrorCode::AccessDenied, std::move(path), "read-only"); }

/// Gives the owner all rights to a folder. Never to what a link names: the descriptor is of the folder itself.
bool openUp(int parent, const char* name) {
  const UniqueFd folder(::openat(parent, name, O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat facts {};
  if (!folder || ::fstat(folder.get(), &facts) != 0 || (facts.st_mode & S_IRWXU) == S_IRWXU) return false;
  const std::string self = "/proc/self/fd/" + std::to_string(folder.get());
  return ::chmod(self.c_str(), (facts.st_mode & 07777) | S_IRWXU) == 0;
}

struct DeleteFolder final : WalkFolder {
  std::optional<AttributeStore> store;  ///< of this folder's entries; asked only where read-only counts
  std::mutex storeMutex;                ///< batches of a large folder come on several workers
  std::atomic<bool> openedUp = false;
  std::atomic<bool> holdsLeftOut = false;  ///< it must stay for what stays in it
  int passes = 0;
};

class DeleteWalk final : public TreeWalk {
 public:
  DeleteWalk(bool force, const Progress& progress) : TreeWalk(progress, false, deleteWorkerCount()), force_(force) {}

  Result<void> remove(Place place, const std::string& path) {
    // The folder that holds the tree stands above the root of the walk, so that the root is opened, judged and
    // removed in the one way that holds for all below it.
    auto above = std::make_shared<DeleteFolder>();
    above->name = folderOf(path) == "/" ? "" : folderOf(path);
    above->fd = std::move(place.folder);
    ++above->unfinished;  // never left by the walk
    auto root = std::make_shared<DeleteFolder>();
    root->parent = above;
    root->name = place.name;
    return run(std::move(root));
  }

 private:
  static DeleteFolder& own(WalkFolder& folder) { return static_cast<DeleteFolder&>(folder); }

  WalkFolderPtr makeFolder() override { return std::make_shared<DeleteFolder>(); }

  bool beforeOpening(WalkFolder& folder) override {
    WalkFolder& parent = *folder.parent;
    if (force_ || !carriesReadOnly(parent, folder.name.c_str())) return true;
    keep(parent, readOnly(folder.path()));
    return false;
  }

  /// What stays in a folder keeps it and those above it.
  void keep(WalkFolder& holder, Error reason) {
    for (WalkFolder* each = &holder; each && !own(*each).holdsLeftOut.exchange(true);)
      each = each->parent.get();
    leaveOut(std::move(reason));
  }

  bool carriesReadOnly(WalkFolder& folder, const char* name) {
    DeleteFolder& holder = own(folder);
    const std::lock_guard lock(holder.storeMutex);
    if (!holder.store) holder.store = AttributeStore::ofDescriptor(folder.fd.get());
    return refusesRemoval(folder.fd.get(), name, *holder.store);
  }

  void entry(WalkFolder& folder, const char* name, unsigned char type) override {
    if (!force_ && type != DT_LNK && carriesReadOnly(folder, name)) return keep(folder, readOnly(folder.path(name)));
    if (!unlink(folder, name, 0) && errno != ENOENT) keep(folder, systemError(errno, folder.path(name)));
  }

  bool unlink(WalkFolder& folder, const char* name, int flags) {
    int error = ::unlinkat(folder.fd.get(), name, flags) == 0 ? 0 : errno;
    if (error == EACCES && openUpOnce(folder)) error = ::unlinkat(folder.fd.get(), name, flags) == 0 ? 0 : errno;
    if (!error) addBytes(1);
    errno = error;
    return !error;
  }

  /// Forced, and refused by the permissions of a folder of the tree: those are opened up. True when it may be tried
  /// again. The folder above the tree is never touched.
  bool openUpOnce(WalkFolder& folder) {
    return force_ && folder.parent && !own(folder).openedUp.exchange(true) &&
           openUp(folder.parent->fd.get(), folder.name.c_str());
  }

  Leaving leave(WalkFolder& folder) override {
    if (isOver() || own(folder).holdsLeftOut || unlink(*folder.parent, folder.name.c_str(), AT_REMOVEDIR) ||
        errno == ENOENT)
      return Leaving::Done;
    // Some file systems skip entries of a folder that is changed while it is read, and others may be adding to it.
    if ((errno == ENOTEMPTY || errno == EEXIST) && ++own(folder).passes < mostPasses &&
        ::lseek(folder.fd.get(), 0, SEEK_SET) == 0)
      return Leaving::Again;
    keep(*folder.parent, systemError(errno, folder.path()));
    return Leaving::Done;
  }

  void unreadable(WalkFolder& folder, int error) override {
    if (error == ENOENT) return;
    if (error == EACCES && openUpOnce(folder)) {
      const int fd = openFolderAt(folder.parent->fd.get(), folder.name.c_str(), false);
      if (fd >= 0) {
        folder.fd = UniqueFd(fd);
        return;
      }
      error = -fd;
    }
    WalkFolder& holder = *folder.parent;
    if (error == EXDEV)
      return keep(holder, refusal(ErrorCode::AccessDenied, folder.path(), "another volume is mounted here"));
    // The folder was swapped for a link or a file in mid-walk; what came in its place was not asked to be deleted.
    keep(holder, systemError(error == ELOOP ? ENOTDIR : error, folder.path()));
  }

  const bool force_;
};

/// The usual case in as few calls as it takes. False: something is in the way, which is to be looked at closely.
bool removeDirectly(const std::string& path, bool force) {
  if (!force) {
    Entry facts;
    facts.name = std::string_view(path).substr(path.rfind('/') + 1);
    if (readPathFacts(path.c_str(), facts) != 0) return false;
    if (!facts.isLink && (facts.attributes & attribute::ReadOnly)) return false;
  }
  return ::unlink(path.c_str()) == 0;
}

}  // namespace

Result<void> removeFile(const std::string& path, bool force) {
  sweepFolderOf(path);
  if (removeDirectly(path, force)) return {};
  const auto place = openPlace(path);
  if (!place) return place.error();
  struct stat facts {};
  if (::fstatat(place->folder.get(), place->name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
    return systemError(errno, path);
  if (S_ISDIR(facts.st_mode)) return systemError(EISDIR, path);
  if (!force && !S_ISLNK(facts.st_mode)) {
    AttributeStore store = AttributeStore::ofDescriptor(place->folder.get());
    if (refusesRemoval(place->folder.get(), place->name.c_str(), store)) return readOnly(path);
  }
  if (::unlinkat(place->folder.get(), place->name.c_str(), 0) != 0) return systemError(errno, path);
  return {};
}

Result<void> removeTree(const std::string& path, bool force, const Progress& progress, LeftOuts* leftOut) {
  sweepFolderOf(path);
  auto place = openPlace(path);
  if (!place) return place.error();
  struct stat facts {};
  if (::fstatat(place->folder.get(), place->name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
    return systemError(errno, path);
  if (S_ISDIR(facts.st_mode)) {
    DeleteWalk walk(force, progress);
    auto removed = walk.remove(std::move(*place), path);
    if (leftOut) *leftOut = walk.takeLeftOut();
    return removed;
  }
  struct stat target {};
  const bool linkToFolder = S_ISLNK(facts.st_mode) &&
                            ::fstatat(place->folder.get(), place->name.c_str(), &target, 0) == 0 &&
                            S_ISDIR(target.st_mode);
  if (!linkToFolder) return systemError(ENOTDIR, path);
  if (::unlinkat(place->folder.get(), place->name.c_str(), 0) != 0) return systemError(errno, path);
  return {};
}

}  // namespace varnholt::platform::posix
