#include "platform/posix/work_places.hpp"

#include "platform/posix/dirents.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/mount_table.hpp"
#include "platform/posix/unique_fd.hpp"

#include <algorithm>
#include <mutex>
#include <random>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

constexpr std::string_view NoteStart = ".vnh-working-";

/// The notes of this process. Its file is made with the first place and goes with the last moment.
class Notes {
 public:
  void moveTo(const std::string& folder) {
    const std::lock_guard lock(mutex_);
    drop();
    folder_ = folder;
  }

  void add(const std::string& place) {
    const std::lock_guard lock(mutex_);
    if (folder_.empty()) return;
    if (process_ != ::getpid()) begin();
    if (!file_ || !places_.insert(place).second) return;
    // Any byte but NUL may stand in a path.
    (void)!::write(file_.get(), place.c_str(), place.size() + 1);
  }

 private:
  /// A forked child has its own file: that of its parent goes with the parent.
  void begin() {
    process_ = ::getpid();
    places_.clear();
    name_ = folder_ + "/" + std::string(NoteStart) + std::to_string(process_) + "-" +
            std::to_string(std::random_device{}());
    file_ = UniqueFd(::open(name_.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (file_) (void)::flock(file_.get(), LOCK_EX | LOCK_NB);
  }

  void drop() {
    if (process_ == ::getpid() && file_) ::unlink(name_.c_str());
    file_.reset();
    process_ = 0;
    places_.clear();
  }

  std::mutex mutex_;
  std::string folder_, name_;
  pid_t process_ = 0;
  UniqueFd file_;
  std::unordered_set<std::string> places_;
};

Notes& notes() {
  static Notes all;
  return all;
}

std::vector<std::string> notesIn(int folder) {
  std::vector<std::string> names;
  DirentBatch batch;
  while (batch.read(folder) > 0)
    batch.forEach([&](const char* name, unsigned char) {
      if (std::string_view(name).starts_with(NoteStart)) names.emplace_back(name);
      return true;
    });
  return names;
}

void clearPlaces(std::string_view noted) {
  while (!noted.empty()) {
    const std::string place(noted.substr(0, noted.find('\0')));
    noted.remove_prefix(std::min(place.size() + 1, noted.size()));
    if (const UniqueFd folder{::open(place.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)}) clearLeftovers(folder.get());
  }
}

}  // namespace

void noteWorkPlacesIn(const std::string& programFolder) { notes().moveTo(programFolder); }

void noteWorkPlace(const std::string& folder) { notes().add(folder); }

void clearWorkPlaces(const std::string& programFolder) {
  const UniqueFd folder(::open(programFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder) return;
  for (const std::string& name : notesIn(folder.get())) {
    const UniqueFd file(::openat(folder.get(), name.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    // Its process is at work, and so may be what it made.
    if (!file || ::flock(file.get(), LOCK_EX | LOCK_NB) != 0) continue;
    clearPlaces(readSystemFile((programFolder + "/" + name).c_str()));
    ::unlinkat(folder.get(), name.c_str(), 0);
  }
}

}  // namespace varnholt::platform::posix
