#include "platform/posix/walk_size.hpp"

#include "platform/posix/posix_error.hpp"
#include "platform/posix/tree_walk.hpp"

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
    if (error != EXDEV) exact_ = false;
  }

  std::atomic<std::uint64_t> files_ = 0, folders_ = 0;
  std::atomic<bool> exact_ = true;
};

}  // namespace

Result<TreeSize> measureTree(const std::string& path, const Progress& progress) {
  auto root = std::make_shared<WalkFolder>();
  root->name = path;
  root->fd = UniqueFd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  if (!root->fd) return systemError(errno, path);
  return SizeWalk(progress).measure(std::move(root));
}

}  // namespace varnholt::platform::posix
