#include "platform/posix/tree_walk.hpp"

#include "platform/posix/posix_error.hpp"

#include <algorithm>
#include <utility>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace varnholt::platform::posix {
namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
constexpr auto tickInterval = std::chrono::milliseconds(50);

/// Very deep trees need a descriptor a level.
bool raiseDescriptorLimit() {
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= limit.rlim_max) return false;
  limit.rlim_cur = limit.rlim_max;
  return ::setrlimit(RLIMIT_NOFILE, &limit) == 0;
}

/// For kernels and sandboxes without openat2: the mark of a mounted root (kernel 5.8), else the device.
int openChecked(int parent, const char* name) {
  UniqueFd folder(::openat(parent, name, folderFlags));
  if (!folder) return -errno;
  struct statx facts;
  if (::statx(folder.get(), "", AT_EMPTY_PATH, STATX_TYPE, &facts) != 0) return -errno;
  if (facts.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT)
    return facts.stx_attributes & STATX_ATTR_MOUNT_ROOT ? -EXDEV : folder.release();
  struct stat here {
  }, above{};
  if (::fstat(folder.get(), &here) != 0 || ::fstat(parent, &above) != 0) return -errno;
  return here.st_dev == above.st_dev ? folder.release() : -EXDEV;
}

int openOnce(int parent, const char* name, bool crossMounts) {
  if (crossMounts) {
    const int fd = ::openat(parent, name, folderFlags);
    return fd >= 0 ? fd : -errno;
  }
  open_how how{};
  how.flags = folderFlags;
  how.resolve = RESOLVE_NO_XDEV;
  const long fd = ::syscall(SYS_openat2, parent, name, &how, sizeof how);
  if (fd >= 0) return static_cast<int>(fd);
  return errno == ENOSYS || errno == EPERM || errno == EAGAIN ? openChecked(parent, name) : -errno;
}

}  // namespace

int openFolderAt(int parent, const char* name, bool crossMounts) {
  const int fd = openOnce(parent, name, crossMounts);
  return fd == -EMFILE && raiseDescriptorLimit() ? openOnce(parent, name, crossMounts) : fd;
}

unsigned char entryType(int folder, const char* name) {
  struct stat facts {};
  if (::fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) != 0) return DT_UNKNOWN;
  return static_cast<unsigned char>(IFTODT(facts.st_mode));
}

Result<void> TreeWalk::run(WalkFolderPtr root) {
  const std::string path = root->path();
  Queue& callers = queues_.front();
  push(callers, {std::move(root), {}});
  callers.isWorking = true;
  working_ = 1;
  // Asked once before the work: in a small tree the other worker may leave the calling one nothing to do.
  tick();
  runWorkers(static_cast<unsigned>(queues_.size()), [this](unsigned index) { work(index); });
  std::sort(leftOut_.begin(), leftOut_.end(), [](const Error& a, const Error& b) { return a.path < b.path; });
  if (error_) {
    if (error_->code != ErrorCode::Stopped)
      leftOut_.push_back({error_->code, path, "the rest was not tried: " + error_->text});
    return *error_;
  }
  return leftOut_.empty() ? Result<void>() : leftOut_.front();
}

void TreeWalk::leaveOut(Error error) {
  const std::lock_guard lock(mutex_);
  // A full or vanished volume has nothing better to say about the next hundred thousand files.
  const bool isHopeless = error.code == ErrorCode::NoSpace || error.code == ErrorCode::NotReady;
  if (isHopeless && (!error_ || error.path < error_->path)) error_ = error;
  if (isHopeless) over_ = true;
  leftOut_.push_back(std::move(error));
}

void TreeWalk::fail(Error error) {
  const std::lock_guard lock(mutex_);
  if (!error_ || error.path < error_->path) error_ = std::move(error);
  over_ = true;
}

void TreeWalk::work(unsigned index) {
  while (auto task = take(index)) {
    perform(queues_[index], *task);
    if (index == 0) tick();
  }
}

std::optional<TreeWalk::Task> TreeWalk::take(unsigned index) {
  Queue& own = queues_[index];
  if (auto task = takeOwn(own)) return task;
  std::unique_lock lock(mutex_);
  if (std::exchange(own.isWorking, false)) --working_;
  ++waiting_;
  std::optional<Task> task;
  while (!(task = takeOldest()) && working_ > 0) {
    if (index == 0) {
      changed_.wait_for(lock, tickInterval);
      lock.unlock();
      tick();
      lock.lock();
    } else {
      changed_.wait(lock);
    }
  }
  --waiting_;
  if (task) {
    own.isWorking = true;
    ++working_;
  } else {
    changed_.notify_all();
  }
  return task;
}

std::optional<TreeWalk::Task> TreeWalk::takeOwn(Queue& own) {
  const std::lock_guard lock(own.mutex);
  if (own.tasks.empty()) return {};
  std::optional<Task> task(std::move(own.tasks.back()));
  own.tasks.pop_back();
  return task;
}

std::optional<TreeWalk::Task> TreeWalk::takeOldest() {
  for (Queue& queue : queues_) {
    const std::lock_guard lock(queue.mutex);
    if (queue.tasks.empty()) continue;
    std::optional<Task> task(std::move(queue.tasks.front()));
    queue.tasks.pop_front();
    return task;
  }
  return {};
}

void TreeWalk::push(Queue& own, Task task) {
  {
    const std::lock_guard lock(own.mutex);
    own.tasks.push_back(std::move(task));
  }
  // Whoever waits has counted itself before it looked into this queue.
  if (waiting_ == 0) return;
  const std::lock_guard lock(mutex_);
  changed_.notify_one();
}

void TreeWalk::tick() {
  const auto now = std::chrono::steady_clock::now();
  if (!progress_ || isOver() || now < nextTick_) return;
  nextTick_ = now + tickInterval;
  if (!progress_(bytes())) fail({ErrorCode::Stopped, {}, "stopped"});
}

void TreeWalk::perform(Queue& own, Task& task) {
  bool handled = false;
  if (!isOver() && task.batch) {
    handle(own, task.folder, *task.batch);
    handled = true;
  } else if (!isOver() && open(*task.folder) && !isOver() && enter(*task.folder)) {
    read(own, task.folder);
    handled = true;
  }
  if (handled && --task.folder->unread == 0 && !isOver()) entriesDone(*task.folder);
  finish(own, std::move(task.folder));
}

bool TreeWalk::open(WalkFolder& folder) {
  if (folder.fd) return true;  // the root, or a folder that is read again
  if (!beforeOpening(folder)) return false;
  const int fd = openFolderAt(folder.parent->fd.get(), folder.name.c_str(), crossMounts_);
  if (fd >= 0) {
    folder.fd = UniqueFd(fd);
    return true;
  }
  unreadable(folder, -fd);
  return false;
}

void TreeWalk::read(Queue& own, const WalkFolderPtr& folder) {
  while (!isOver()) {
    DirentBatch batch;
    const ssize_t got = batch.read(folder->fd.get());
    if (got < 0) unreadable(*folder, errno);
    if (got < 0) return;
    batchRead(*folder, batch);
    if (!batch.isLast()) {
      ++folder->unfinished;
      ++folder->unread;
      push(own, {folder, std::move(batch)});
    } else {
      handle(own, folder, batch);
      return;
    }
  }
}

void TreeWalk::handle(Queue& own, const WalkFolderPtr& folder, const DirentBatch& batch) {
  batch.forEach([&](const char* name, unsigned char type) {
    if (type == DT_UNKNOWN) type = entryType(folder->fd.get(), name);
    if (type == DT_DIR) {
      WalkFolderPtr below = makeFolder();
      below->parent = folder;
      below->name = name;
      ++folder->unfinished;
      push(own, {std::move(below), {}});
    } else if (type != DT_UNKNOWN) {
      entry(*folder, name, type);
    }
    return !isOver();
  });
}

void TreeWalk::finish(Queue& own, WalkFolderPtr folder) {
  while (folder && --folder->unfinished == 0) {
    if (folder->fd && leave(*folder) == Leaving::Again && !isOver()) {
      folder->unfinished = 1;
      folder->unread = 1;
      push(own, {folder, {}});
      return;
    }
    folder->fd.reset();
    folder = folder->parent;
  }
}

}  // namespace varnholt::platform::posix
