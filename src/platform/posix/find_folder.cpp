#include "platform/posix/find_folder.hpp"

#include "platform/paths.hpp"
#include "platform/posix/dirents.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/tree_walk.hpp"
#include "platform/posix/unique_fd.hpp"
#include "platform/posix/workers.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include <fcntl.h>

namespace varnholt::platform::posix {
namespace {

// How often the caller is asked whether the search goes on.
constexpr std::chrono::milliseconds TickInterval{16};

/// What puts a name where listings have it: lowered, then by bytes. The names on the way to a folder, joined, put it
/// behind the folder that it lies in and before the next one beside that.
std::string orderOf(const std::string& name) {
  std::string order;
  appendFolded(name, order);
  order.push_back('\0');
  order.append(name).push_back('\0');
  return order;
}

std::string_view nameIn(std::string_view order) {
  const std::size_t begins = order.find('\0') + 1;
  return order.substr(begins, order.size() - begins - 1);
}

struct Folder;
using FolderPtr = std::shared_ptr<const Folder>;

/// A folder on the way. Its descriptor is open until all in it are opened.
struct Folder {
  FolderPtr parent;
  std::string name;         ///< in its parent, as the system has it
  std::string path, order;  ///< in program form; among all of the walk
  unsigned level = 0;
  bool isKnown = false;  ///< what was found before, or a folder above that
  mutable UniqueFd fd;
};

struct Name {
  std::string order, system;
};

/// Where a folder lies that is to be looked at.
struct Place {
  FolderPtr parent;
  Name name;
};

/// Folders of one folder that are still to come, in order.
struct Coming {
  FolderPtr folder;
  std::vector<Name> names;
  std::size_t next = 0;
};

/// Walks folder by folder in the order in which they are told; the other workers take what comes next meanwhile. So
/// that one of them never goes far ahead, all that is known to come stands in that order.
class FolderWalk {
 public:
  FolderWalk(unsigned levels, const FolderTest& takes, const SearchProgress& progress)
      : levels_(levels), takes_(takes), progress_(progress) {}

  Result<std::string> find(FolderPtr root, const std::string& after) {
    split(root->path, after);
    insert(read(root));
    runWorkers(workerCount(), [this](unsigned index) { work(index == 0); });
    if (stopped_) return Error{ErrorCode::Stopped, {}, "stopped"};
    return found_ ? found_->path : std::string();
  }

 private:
  using Clock = std::chrono::steady_clock;

  /// The parts of the path found before.
  void split(const std::string& root, const std::string& after) {
    if (after.empty()) return;
    std::string_view rest = std::string_view(after).substr(std::min(after.size(), paths::withClosing(root).size()));
    while (!rest.empty()) {
      const auto end = std::min(rest.find('\\'), rest.size());
      before_.push_back(orderOf(std::string(rest.substr(0, end))));
      rest.remove_prefix(std::min(rest.size(), end + 1));
    }
  }

  void work(bool isCaller) {
    std::optional<Coming> below;
    while (auto folder = take(isCaller, std::move(below))) {
      if (isCaller) {
        told_ = folder->path;
        tick();
      }
      below = handle(folder);
    }
  }

  /// Gives what the worker has found below its last folder, and takes the next one.
  FolderPtr take(bool isCaller, std::optional<Coming> below) {
    std::unique_lock lock(mutex_);
    if (below) {
      if (!below->names.empty()) insert(*std::move(below));
      --running_;
      if (waiting_ > 0) changed_.notify_all();
    }
    while (!over_) {
      if (auto place = next()) {
        ++running_;
        lock.unlock();
        return folderAt(*std::move(place));
      }
      if (running_ == 0) break;
      ++waiting_;
      if (isCaller) {
        changed_.wait_for(lock, TickInterval);
        lock.unlock();
        tick();
        lock.lock();
      } else {
        changed_.wait(lock);
      }
      --waiting_;
    }
    over_ = true;
    changed_.notify_all();
    return nullptr;
  }

  /// The name that comes next in order; nothing when none is known, or what comes lies behind a folder that was found.
  std::optional<Place> next() {
    while (!coming_.empty()) {
      Coming& first = coming_.back();
      if (first.next == first.names.size()) {
        coming_.pop_back();
        continue;
      }
      if (found_ && first.folder->order + first.names[first.next].order > found_->order) {
        coming_.clear();
        break;
      }
      return Place{first.folder, std::move(first.names[first.next++])};
    }
    return {};
  }

  FolderPtr folderAt(Place place) const {
    auto folder = std::make_shared<Folder>();
    const Folder& parent = *place.parent;
    folder->level = parent.level + 1;
    folder->isKnown =
        parent.isKnown && folder->level <= before_.size() && place.name.order == before_[folder->level - 1];
    folder->path = paths::join(parent.path, nameIn(place.name.order));
    folder->order = parent.order + place.name.order;
    folder->name = std::move(place.name.system);
    folder->parent = std::move(place.parent);
    return folder;
  }

  /// What there is below the folder: nothing where that is not asked for.
  Coming handle(const FolderPtr& folder) {
    if (!folder->isKnown && takes_(folder->path)) {
      const std::lock_guard lock(mutex_);
      if (!found_ || folder->order < found_->order) found_ = folder;
      return {};
    }
    if (folder->level >= levels_) return {};
    const int fd = openFolderAt(folder->parent->fd.get(), folder->name.c_str(), false);
    if (fd < 0) return {};
    folder->fd = UniqueFd(fd);
    return read(folder);
  }

  Coming read(const FolderPtr& folder) {
    Coming below{folder, {}, 0};
    DirentBatch batch;
    while (!over_ && batch.read(folder->fd.get()) > 0)
      batch.forEach([&](const char* name, unsigned char type) {
        if (type == DT_UNKNOWN) type = entryType(folder->fd.get(), name);
        if (type == DT_DIR) below.names.push_back({orderOf(PathMap::nameToProgram(name)), name});
        return true;
      });
    std::ranges::sort(below.names, {}, &Name::order);
    if (folder->isKnown && folder->level < before_.size()) {
      const auto past = std::ranges::lower_bound(below.names, before_[folder->level], {}, &Name::order);
      below.next = static_cast<std::size_t>(past - below.names.begin());
    }
    return below;
  }

  void insert(Coming below) {
    const auto place = std::ranges::find_if(coming_.rbegin(), coming_.rend(), [&](const Coming& each) {
                         return isBefore(*below.folder, *each.folder);
                       }).base();
    coming_.insert(place, std::move(below));
  }

  /// What lies in the one comes before what is still to come in the other.
  static bool isBefore(const Folder& a, const Folder& b) {
    if (a.order.starts_with(b.order)) return true;
    return !b.order.starts_with(a.order) && a.order < b.order;
  }

  void tick() {
    const auto now = Clock::now();
    if (!progress_ || now < nextTick_) return;
    nextTick_ = now + TickInterval;
    if (progress_({told_, 0})) return;
    stopped_ = over_ = true;
    changed_.notify_all();
  }

  const unsigned levels_;
  const FolderTest& takes_;
  const SearchProgress& progress_;
  std::vector<std::string> before_;  ///< by level
  // Of the calling thread.
  Clock::time_point nextTick_{};
  std::string told_;
  bool stopped_ = false;

  std::atomic<bool> over_ = false;

  std::mutex mutex_;  ///< guards all below
  std::condition_variable changed_;
  std::vector<Coming> coming_;  ///< the next one last
  std::size_t running_ = 0, waiting_ = 0;
  FolderPtr found_;
};

}  // namespace

Result<std::string> findFolder(const std::string& systemFolder, const std::string& folder, unsigned levels,
                               const FolderTest& takes, const std::string& after, const SearchProgress& progress) {
  auto root = std::make_shared<Folder>();
  root->path = paths::withoutClosing(folder);
  root->isKnown = !after.empty();
  root->fd = UniqueFd(::open(systemFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  if (!root->fd) return systemError(errno, systemFolder);
  return FolderWalk(levels, takes, progress).find(std::move(root), after);
}

}  // namespace varnholt::platform::posix
