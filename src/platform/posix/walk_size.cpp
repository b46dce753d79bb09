#include "platform/posix/walk_size.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/path_map.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/tree_walk.hpp"
#include "platform/posix/workers.hpp"

#include <algorithm>
#include <atomic>
#include <optional>
#include <unordered_set>

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

}  // namespace

Result<TreeSize> measureTree(const std::string& path, const Progress& progress) {
  auto root = std::make_shared<WalkFolder>();
  root->name = path;
  root->fd = UniqueFd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  if (!root->fd) return systemError(errno, path);
  return SizeWalk(progress).measure(std::move(root));
}

namespace {

/// The names in a folder that holds at most `limit` of them; nothing for a fuller one.
std::optional<std::unordered_set<std::string>> fewNames(int folder, std::size_t limit) {
  std::unordered_set<std::string> names;
  DirentBatch batch;
  while (batch.read(folder) > 0) {
    batch.forEach([&](const char* name, unsigned char) { return names.emplace(name), true; });
    if (names.size() > limit) return {};
  }
  return names;
}

}  // namespace

std::vector<std::uint64_t> sizesOf(const std::string& systemFolder, const std::vector<std::string>& names) {
  std::vector<std::uint64_t> sizes(names.size());
  const UniqueFd folder(::open(systemFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  if (!folder) return sizes;
  // Where most are not there, the folder's own word is quicker than a question for each.
  const auto there = fewNames(folder.get(), names.size() / 4);
  constexpr std::size_t Block = 1024;
  std::atomic<std::size_t> next = 0;
  runWorkers(workerCount(), [&](unsigned) {
    for (std::size_t from = next.fetch_add(Block); from < names.size(); from = next.fetch_add(Block))
      for (std::size_t at = from; at < std::min(from + Block, names.size()); ++at) {
        struct stat facts {};
        const std::string name = PathMap::nameToSystem(names[at]);
        if (there && !there->contains(name)) continue;
        if (::fstatat(folder.get(), name.c_str(), &facts, 0) == 0 && !S_ISDIR(facts.st_mode))
          sizes[at] = static_cast<std::uint64_t>(facts.st_size);
      }
  });
  return sizes;
}

}  // namespace varnholt::platform::posix
