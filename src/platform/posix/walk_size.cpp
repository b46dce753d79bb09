#include "platform/posix/walk_size.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/tree_walk.hpp"
#include "platform/posix/workers.hpp"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <tuple>

#include <fcntl.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

class SizeWalk final : public TreeWalk {
 public:
  explicit SizeWalk(const Progress& progress) : TreeWalk(progress, false) {}

  Result<TreeSize> measure(WalkFolderPtr root) {
    if (auto walked = run(std::move(root)); !walked) return walked.error();
    return TreeSize{bytes(), files_, folders_, exact_};
  }

 private:
  bool beforeOpening(WalkFolder&) override {
    folders_.fetch_add(1, std::memory_order_relaxed);
    return true;
  }

  void entry(WalkFolder& folder, const char* name, unsigned char type) override {
    files_.fetch_add(1, std::memory_order_relaxed);
    if (type != DT_REG) return;
    struct statx facts;
    if (::statx(folder.fd.get(), name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_SIZE, &facts) != 0)
      exact_ = exact_ && errno == ENOENT;
    else if (S_ISREG(facts.stx_mode))
      addBytes(facts.stx_size);
  }

  /// A mounted volume is left out on purpose; anything else that cannot be read is missing in the sum.
  void unreadable(WalkFolder&, int error) override {
    if (error != EXDEV && error != ENOENT) exact_ = false;
  }

  std::atomic<std::uint64_t> files_ = 0, folders_ = 0;
  std::atomic<bool> exact_ = true;
};

/// A file of several names, as one of the paths leads to it.
struct SharedFile {
  dev_t device;
  ino_t inode;
  std::size_t path;
  std::uint64_t bytes;
};

class SharingWalk final : public TreeWalk {
 public:
  SharingWalk(std::size_t path, const Progress& progress, std::vector<SharedFile>& shared)
      : TreeWalk(progress, false, 1), path_(path), shared_(shared) {}

  std::uint64_t measure(WalkFolderPtr root) { return (void)run(std::move(root)), bytes(); }

 private:
  void entry(WalkFolder& folder, const char* name, unsigned char type) override {
    struct stat facts {};
    if (type != DT_REG || ::fstatat(folder.fd.get(), name, &facts, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0) return;
    if (!S_ISREG(facts.st_mode)) return;
    const auto size = static_cast<std::uint64_t>(facts.st_size);
    facts.st_nlink > 1 ? shared_.push_back({facts.st_dev, facts.st_ino, path_, size}) : addBytes(size);
  }
  void unreadable(WalkFolder&, int) override {}

  const std::size_t path_;
  std::vector<SharedFile>& shared_;
};

}  // namespace

Result<std::vector<std::uint64_t>> measureAll(const std::vector<std::string>& paths, const Progress& progress) {
  std::vector<std::uint64_t> sizes(paths.size());
  std::vector<SharedFile> shared;
  std::mutex mutex;  // of the shared files, and of the progress function
  std::atomic<std::size_t> next = 0, done = 0;
  std::atomic<bool> stopped = false;
  const Progress goesOn = [&](std::uint64_t) {
    const std::lock_guard lock(mutex);
    if (progress && !stopped) stopped = !progress(done);
    return !stopped;
  };
  runWorkers(workerCount(), [&](unsigned) {
    std::vector<SharedFile> found;
    for (std::size_t at = next++; at < paths.size() && !stopped; at = next++) {
      struct stat facts {};
      if (::stat(paths[at].c_str(), &facts) == 0 && S_ISDIR(facts.st_mode)) {
        auto root = std::make_shared<WalkFolder>();
        root->name = paths[at];
        root->fd = UniqueFd(::open(paths[at].c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
        if (root->fd) sizes[at] = SharingWalk(at, goesOn, found).measure(std::move(root));
      } else if (S_ISREG(facts.st_mode)) {
        const auto size = static_cast<std::uint64_t>(facts.st_size);
        facts.st_nlink > 1 ? found.push_back({facts.st_dev, facts.st_ino, at, size}) : void(sizes[at] = size);
      }
      if (++done % 1024 == 0) (void)goesOn(0);
    }
    const std::lock_guard lock(mutex);
    shared.insert(shared.end(), found.begin(), found.end());
  });
  if (stopped) return Error{ErrorCode::Stopped, {}, "stopped"};
  const auto byFile = [](const SharedFile& each) { return std::tuple(each.device, each.inode, each.path); };
  std::ranges::sort(shared, {}, byFile);
  const SharedFile* last = nullptr;
  for (const SharedFile& each : shared) {
    if (!last || last->device != each.device || last->inode != each.inode) sizes[each.path] += each.bytes;
    last = &each;
  }
  return sizes;
}

Result<TreeSize> measureTree(const std::string& path, const Progress& progress) {
  auto root = std::make_shared<WalkFolder>();
  root->name = path;
  root->fd = UniqueFd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  if (!root->fd) return systemError(errno, path);
  return SizeWalk(progress).measure(std::move(root));
}

}  // namespace varnholt::platform::posix
