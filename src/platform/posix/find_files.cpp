#include "platform/posix/find_files.hpp"

#include "platform/paths.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/tree_walk.hpp"
#include "platform/sort_on_two_cores.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <mutex>
#include <utility>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

struct SearchFolder : WalkFolder {
  unsigned level = 0;
  std::string place;  ///< in program form; empty: no drive holds it
  std::string order;  ///< what the hits in it are sorted by, in front of their names
};

Date dateOf(const statx_timestamp& time) { return {time.tv_sec, static_cast<std::int32_t>(time.tv_nsec)}; }

class SearchWalk final : public TreeWalk {
 public:
  SearchWalk(const PathMap& map, unsigned levels, const NameTest& takes, const Progress& progress)
      : TreeWalk(progress, false), map_(map), levels_(levels), takes_(takes) {}

  std::vector<FoundFile> find(WalkFolderPtr root) {
    // What cannot be read holds nothing; a search that is stopped has found what it has.
    (void)run(std::move(root));
    std::vector<Hit*> sorted;
    sorted.reserve(hits_.size());
    for (Hit& hit : hits_)
      sorted.push_back(&hit);
    sortOnTwoCores(sorted, [](const Hit* a, const Hit* b) { return a->order < b->order; });
    std::vector<FoundFile> found;
    found.reserve(hits_.size());
    for (Hit* hit : sorted)
      found.push_back(std::move(hit->file));
    return found;
  }
  SearchAdvance advance() {
    const std::lock_guard lock(mutex_);
    isWanted_ = true;
    return {folder_, static_cast<double>(done_) / static_cast<double>(met_)};
  }

 private:
  struct Hit {
    std::string order;
    FoundFile file;
  };
  static SearchFolder& known(WalkFolder& folder) { return static_cast<SearchFolder&>(folder); }

  WalkFolderPtr makeFolder() override {
    ++met_;
    return std::make_shared<SearchFolder>();
  }
  bool beforeOpening(WalkFolder& folder) override {
    known(folder).level = known(*folder.parent).level + 1;
    return known(folder).level < levels_;
  }
  bool enter(WalkFolder& folder) override {
    SearchFolder& entered = known(folder);
    entered.place = map_.toProgram(folder.path()).valueOr({});
    if (folder.parent) {
      entered.order = known(*folder.parent).order;
      appendPart(PathMap::nameToProgram(folder.name), entered.order);
    }
    if (!isWanted_.load(std::memory_order_relaxed) || !isWanted_.exchange(false)) return true;
    const std::lock_guard lock(mutex_);
    folder_ = entered.place;
    return true;
  }
  void entriesDone(WalkFolder&) override { ++done_; }
  void unreadable(WalkFolder&, int) override {}

  void entry(WalkFolder& folder, const char* name, unsigned char type) override {
    if (type != DT_REG && type != DT_LNK) return;
    const SearchFolder& in = known(folder);
    const std::string ours = PathMap::nameToProgram(name);
    if (in.place.empty() || !takes_(ours, in.level)) return;
    struct stat target {};
    if (type == DT_LNK && ::fstatat(folder.fd.get(), name, &target, 0) == 0 && S_ISDIR(target.st_mode)) return;
    struct statx facts;
    constexpr unsigned Wanted = STATX_SIZE | STATX_MTIME | STATX_ATIME | STATX_BTIME;
    if (::statx(folder.fd.get(), name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, Wanted, &facts) != 0) return;
    const Date modified = dateOf(facts.stx_mtime);
    Hit hit{orderOf(in, ours),
            {paths::join(in.place, ours), facts.stx_size, modified,
             facts.stx_mask & STATX_BTIME ? dateOf(facts.stx_btime) : modified, dateOf(facts.stx_atime)}};
    const std::lock_guard lock(mutex_);
    hits_.push_back(std::move(hit));
  }

  /// By level, then part by part as listings are sorted: lowered, then by bytes.
  static std::string orderOf(const SearchFolder& folder, std::string_view name) {
    std::string order;
    order.reserve(1 + folder.order.size() + 2 * (name.size() + 1));
    order.push_back(static_cast<char>(folder.level));
    order.append(folder.order);
    appendPart(name, order);
    return order;
  }
  static void appendPart(std::string_view name, std::string& order) {
    appendFolded(name, order);
    order.push_back('\0');
    order.append(name).push_back('\0');
  }

  const PathMap& map_;
  const unsigned levels_;
  const NameTest& takes_;
  std::atomic<std::size_t> met_ = 1, done_ = 0;
  std::atomic<bool> isWanted_ = true;
  std::mutex mutex_;  ///< guards all below
  std::vector<Hit> hits_;
  std::string folder_;
};

/// A folder that really lies below the root: neither a link nor a mounted volume stands between them.
UniqueFd openBelow(int root, const std::string& relative) {
  open_how how{};
  how.flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;
  how.resolve = RESOLVE_BENEATH | RESOLVE_NO_SYMLINKS | RESOLVE_NO_XDEV;
  return UniqueFd(static_cast<int>(::syscall(SYS_openat2, root, relative.c_str(), &how, sizeof how)));
}

}  // namespace

Result<std::vector<FoundFile>> findFiles(const PathMap& map, const std::string& systemFolder, unsigned levels,
                                         const NameTest& takes, const SearchProgress& progress) {
  auto root = std::make_shared<SearchFolder>();
  root->name = systemFolder;
  root->fd = UniqueFd(::open(systemFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  if (!root->fd) return systemError(errno, systemFolder);
  SearchWalk* walk = nullptr;
  const Progress tick = [&](std::uint64_t) { return !progress || progress(walk->advance()); };
  SearchWalk search(map, levels, takes, tick);
  walk = &search;
  return search.find(std::move(root));
}

std::vector<Result<void>> deleteBelow(const std::string& systemRoot, const std::vector<Result<std::string>>& paths,
                                      const Progress& progress) {
  std::vector<Result<void>> results;
  const UniqueFd root(::open(systemRoot.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  const std::string above = systemRoot == "/" ? systemRoot : systemRoot + '/';
  std::string openFolder;
  UniqueFd folder;
  const auto remove = [&](const std::string& path) -> int {
    if (!root || !path.starts_with(above)) return EXDEV;
    const std::string relative = path.substr(above.size());
    const auto slash = relative.rfind('/');
    const std::string in = slash == std::string::npos ? "." : relative.substr(0, slash);
    if (!folder || in != openFolder) {
      folder = openBelow(root.get(), in);
      openFolder = in;
    }
    if (!folder) return errno;
    return ::unlinkat(folder.get(), relative.c_str() + (slash == std::string::npos ? 0 : slash + 1), 0) == 0 ? 0
                                                                                                             : errno;
  };
  for (const auto& path : paths) {
    if (progress && !progress(results.size())) break;
    if (!path)
      results.push_back(path.error());
    else if (const int error = remove(*path))
      results.push_back(systemError(error, *path));
    else
      results.emplace_back();
  }
  return results;
}

}  // namespace varnholt::platform::posix
