#include "platform/posix/leftovers.hpp"

#include "platform/posix/delete_tree.hpp"
#include "platform/posix/dirents.hpp"
#include "platform/posix/identity.hpp"
#include "platform/posix/path_parts.hpp"
#include "platform/posix/temp_file.hpp"
#include "platform/posix/tree_walk.hpp"
#include "platform/posix/unique_fd.hpp"
#include "platform/posix/work_places.hpp"

#include <array>
#include <chrono>
#include <climits>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

using Moment = std::chrono::steady_clock;

/// The folders swept last, and when each is due again.
template <class Key>
class Sweeps {
 public:
  bool isDue(const Key& folder) {
    const std::lock_guard lock(mutex_);
    const Sweep* sweep = find(folder);
    return !sweep || Moment::now() >= sweep->due;
  }

  void swept(const Key& folder, Moment::duration cost) {
    constexpr int restPerCost = 100;
    const std::lock_guard lock(mutex_);
    Sweep* sweep = find(folder);
    if (!sweep) sweep = &sweeps_[next_++ % sweeps_.size()];
    *sweep = {folder, Moment::now() + cost * restPerCost};
  }

 private:
  struct Sweep {
    Key folder{};
    Moment::time_point due{};
  };

  Sweep* find(const Key& folder) {
    for (Sweep& sweep : sweeps_)
      if (sweep.folder == folder) return &sweep;
    return nullptr;
  }

  std::mutex mutex_;
  std::array<Sweep, 16> sweeps_{};
  size_t next_ = 0;
};

using Inode = std::pair<dev_t, ino_t>;

Sweeps<Inode>& sweeps() {
  static Sweeps<Inode> all;
  return all;
}

/// By path, which is known without a call. One that leads to another folder meanwhile is swept a little later.
Sweeps<std::string>& sweptPaths() {
  static Sweeps<std::string> all;
  return all;
}

/// Locks of some volumes need a descriptor that can write; a copy may have been made read-only already.
UniqueFd openLeftover(int folder, const char* name, bool isFolder) {
  constexpr int flags = O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  if (isFolder) return UniqueFd(::openat(folder, name, O_RDONLY | O_DIRECTORY | flags));
  UniqueFd file(::openat(folder, name, O_RDWR | flags));
  return file ? std::move(file) : UniqueFd(::openat(folder, name, O_RDONLY | flags));
}

void removeIfLeft(int folder, const char* name, bool isFolder) {
  const UniqueFd left = openLeftover(folder, name, isFolder);
  struct stat facts {
  }, named{};
  if (!left || ::fstat(left.get(), &facts) != 0 || facts.st_uid != ::geteuid()) return;
  if (isFolder ? !S_ISDIR(facts.st_mode) : !S_ISREG(facts.st_mode)) return;
  if (::flock(left.get(), LOCK_EX | LOCK_NB) != 0) return;
  // Its writer may have put it into place and ended before the lock was ours.
  if (::fstatat(folder, name, &named, AT_SYMLINK_NOFOLLOW) != 0 || !sameInode(facts, named)) return;
  if (isFolder)
    (void)removeTree("/proc/self/fd/" + std::to_string(folder) + '/' + name, true, {}, nullptr);
  else
    ::unlinkat(folder, name, 0);
}

/// Names first: a folder that is changed while it is read may give entries twice or not at all.
std::vector<std::string> temporaryNamesIn(int folder) {
  std::vector<std::string> names;
  DirentBatch batch;
  while (batch.read(folder) > 0)
    batch.forEach([&](const char* name, unsigned char) {
      if (isTemporaryName(name)) names.emplace_back(name);
      return true;
    });
  return names;
}

/// Where an open folder lies now.
std::string pathOf(int folder) {
  std::string path(PATH_MAX, '\0');
  const auto length = ::readlink(("/proc/self/fd/" + std::to_string(folder)).c_str(), path.data(), path.size());
  path.resize(length > 0 ? static_cast<size_t>(length) : 0);
  return path;
}

}  // namespace

void sweepLeftovers(int folder) {
  struct stat facts {};
  if (::fstat(folder, &facts) != 0) return;
  const Inode inode(facts.st_dev, facts.st_ino);
  if (!sweeps().isDue(inode)) return;
  noteWorkPlace(pathOf(folder));
  const auto start = Moment::now();
  clearLeftovers(folder);
  sweeps().swept(inode, Moment::now() - start);
}

void clearLeftovers(int folder) {
  // Opened anew: the caller's descriptor may be of a kind that cannot be read, and has a position of its own.
  const UniqueFd reader(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK));
  const auto names = reader ? temporaryNamesIn(reader.get()) : std::vector<std::string>();
  for (const std::string& name : names) {
    const unsigned char type = entryType(folder, name.c_str());
    if (type == DT_REG || type == DT_DIR) removeIfLeft(folder, name.c_str(), type == DT_DIR);
  }
}

void sweepFolderOf(const std::string& path) {
  const std::string folder = folderOf(path);
  if (!sweptPaths().isDue(folder)) return;
  const auto start = Moment::now();
  if (const UniqueFd open{::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)}) sweepLeftovers(open.get());
  sweptPaths().swept(folder, Moment::now() - start);
}

}  // namespace varnholt::platform::posix
