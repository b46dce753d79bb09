#pragma once

#include "platform/file_system.hpp"
#include "platform/posix/dirents.hpp"
#include "platform/posix/unique_fd.hpp"
#include "platform/posix/workers.hpp"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace varnholt::platform::posix {

/// One folder of a tree while it is walked. Its descriptor is open until all below it is done, so names below it are
/// always asked of this very folder, whatever is renamed or swapped for a link meanwhile.
struct WalkFolder {
  virtual ~WalkFolder() = default;
  std::shared_ptr<WalkFolder> parent;  ///< none for the root of the walk
  std::string name;                    ///< in its parent; the whole path for the root
  UniqueFd fd;
  std::atomic<size_t> unfinished = 1;  ///< its own reading, its batches and its sub-folders
  std::atomic<size_t> unread = 1;      ///< the same without its sub-folders

  std::string path() const {
    std::string path;
    appendPath(path);
    return path;
  }
  std::string path(const char* entry) const { return path().append(1, '/').append(entry); }

 private:
  void appendPath(std::string& path) const {
    if (parent) parent->appendPath(path);
    path.append(parent ? "/" : "").append(name);
  }
};
using WalkFolderPtr = std::shared_ptr<WalkFolder>;

/// Walks a tree with all workers: by descriptors and d_type, depth first, links never followed. The hooks are called
/// on any worker, several at a time; those of one folder come in order: enter, entries, entriesDone, leave.
class TreeWalk {
 public:
  virtual ~TreeWalk() = default;
  TreeWalk(const TreeWalk&) = delete;
  TreeWalk& operator=(const TreeWalk&) = delete;

  /// What was left out, by path, once the walk is done.
  LeftOuts takeLeftOut() { return std::move(leftOut_); }

 protected:
  TreeWalk(const Progress& progress, bool crossMounts, unsigned workers = workerCount())
      : progress_(progress), crossMounts_(crossMounts), queues_(workers) {}

  /// Walks from an open folder. The calling thread is one of the workers and the one that calls the progress function.
  /// Fails with the reason for giving up, else with the first entry by path that was left out.
  Result<void> run(WalkFolderPtr root);

  // --- Hooks -----------------------------------------------------------------------------------------------------

  virtual WalkFolderPtr makeFolder() { return std::make_shared<WalkFolder>(); }
  /// A sub-folder is about to be opened; its descriptor is none. What is given false is left out.
  virtual bool beforeOpening(WalkFolder&) { return true; }
  /// The folder is open; its entries are read when this gives true.
  virtual bool enter(WalkFolder&) { return true; }
  /// The next entries of a folder are read, and are handled afterwards; the last batch says so itself.
  virtual void batchRead(WalkFolder&, const DirentBatch&) {}
  /// An entry that is no folder. `type` is a d_type, never DT_UNKNOWN.
  virtual void entry(WalkFolder&, const char* name, unsigned char type) = 0;
  /// Its own entries are done, those of its sub-folders perhaps not. Not called when the walk has failed.
  virtual void entriesDone(WalkFolder&) {}
  enum class Leaving { Done, Again };
  /// All below is done, or given up when the walk has failed. Again: read it once more.
  virtual Leaving leave(WalkFolder&) { return Leaving::Done; }
  /// A folder could not be opened or read (errno; EXDEV for a mounted volume that is not to be entered). The hook may
  /// open it itself into folder.fd. ENOENT: it vanished.
  virtual void unreadable(WalkFolder& folder, int error) = 0;

  // --- For hooks -------------------------------------------------------------------------------------------------

  /// Ends the walk. Of several failures that workers meet at one time the first by path is told.
  void fail(Error error);
  /// The entry stays as it is and the walk goes on, unless all that is to come must fail alike.
  void leaveOut(Error error);
  bool isOver() const { return over_.load(std::memory_order_relaxed); }
  void addBytes(std::uint64_t count) { bytes_.fetch_add(count, std::memory_order_relaxed); }
  std::uint64_t bytes() const { return bytes_.load(std::memory_order_relaxed); }

 private:
  struct Task {
    WalkFolderPtr folder;
    std::optional<DirentBatch> batch;  ///< entries of a large folder that is being read; none: open and read it
  };

  /// The tasks that one worker has found. It takes the newest itself: the walk goes deep before it goes wide, and few
  /// folders are open at a time. Workers that have none take the oldest, which most lies below.
  struct Queue {
    std::mutex mutex;  ///< locked alone, or behind mutex_
    std::deque<Task> tasks;
    bool isWorking = false;  ///< of its worker alone: it is counted in working_
  };

  void work(unsigned index);
  /// From its own queue, else from the others'. None: the walk is done.
  std::optional<Task> take(unsigned index);
  std::optional<Task> takeOwn(Queue& own);
  std::optional<Task> takeOldest();
  void push(Queue& own, Task task);
  void perform(Queue& own, Task& task);
  bool open(WalkFolder& folder);
  void read(Queue& own, const WalkFolderPtr& folder);
  void handle(Queue& own, const WalkFolderPtr& folder, const DirentBatch& batch);
  void finish(Queue& own, WalkFolderPtr folder);
  void tick();

  const Progress& progress_;
  const bool crossMounts_;
  std::atomic<bool> over_ = false;
  std::atomic<std::uint64_t> bytes_ = 0;
  std::chrono::steady_clock::time_point nextTick_{};

  std::vector<Queue> queues_;
  std::atomic<unsigned> waiting_ = 0;  ///< workers that look for a task

  std::mutex mutex_;  ///< guards all below
  std::condition_variable changed_;
  unsigned working_ = 0;  ///< only they find tasks, and they are counted as long as their own queues hold any
  std::optional<Error> error_;
  LeftOuts leftOut_;
};

/// Opens a folder by name in another, never through a link. With `crossMounts` false a mounted volume gives EXDEV.
/// Gives a descriptor or -errno. When the process runs out of descriptors its limit is raised as far as allowed.
int openFolderAt(int parent, const char* name, bool crossMounts);

/// The entry's type where the folder does not tell it (DT_UNKNOWN).
unsigned char entryType(int folder, const char* name);

}  // namespace varnholt::platform::posix
