#pragma once

#include "platform/posix/unique_fd.hpp"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace varnholt::platform::posix {

/// One read of a folder: entries as getdents64(2) gives them, "." and ".." left out by forEach.
class DirentBatch {
 public:
  static constexpr size_t capacity = 32768;

  /// Reads the next entries of an open folder, as many as there is room for: some volumes give few at a time. More
  /// than 0, 0 at the end, or -1 with errno. A folder that was deleted meanwhile is at its end.
  ssize_t read(int folder) {
    bytes_ = 0;
    while (!ended_ && bytes_ <= full) {
      const ssize_t got = ::getdents64(folder, buffer_.get() + bytes_, capacity - static_cast<size_t>(bytes_));
      if (got < 0 && errno != ENOENT) return bytes_ > 0 ? bytes_ : got;
      ended_ = got <= 0 || isEnd(bytes_, got);
      bytes_ += std::max<ssize_t>(got, 0);
    }
    return bytes_;
  }
  /// True when the folder has no more to give.
  bool isLast() const { return ended_; }
  size_t count() const {
    size_t entries = 0;
    forEach([&](const char*, unsigned char) { return ++entries > 0; });
    return entries;
  }

  /// Calls visit(const char* name, unsigned char type) for each; stops when that gives false.
  template <class Visit>
  bool forEach(Visit&& visit) const {
    for (ssize_t at = 0; at < bytes_;) {
      const auto* entry = reinterpret_cast<const dirent64*>(buffer_.get() + at);
      at += entry->d_reclen;
      if (!isDots(entry->d_name) && !visit(static_cast<const char*>(entry->d_name), entry->d_type)) return false;
    }
    return true;
  }

 private:
  static bool isDots(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
  }

  /// Whether nothing comes behind the entries read to `from`. Each tells where the next one lies: ext4 and btrfs have
  /// no place behind the largest number (EXT4_HTREE_EOF_64BIT, LLONG_MAX), so a second call that gives nothing is
  /// spared.
  bool isEnd(ssize_t from, ssize_t got) const {
    const dirent64* last = nullptr;
    for (ssize_t at = from; at < from + got; at += last->d_reclen)
      last = reinterpret_cast<const dirent64*>(buffer_.get() + at);
    return last->d_off == std::numeric_limits<off64_t>::max();
  }

  // What is left then may be too small for an entry.
  static constexpr ssize_t full = capacity - 1024;
  // Aligned for a dirent64, as all that `new char[]` gives is for any object that fits in.
  std::unique_ptr<char[]> buffer_ = std::make_unique_for_overwrite<char[]>(capacity);
  ssize_t bytes_ = 0;
  bool ended_ = false;
};

/// Whether a folder may have an entry of exactly that name: where it cannot be read, any.
inline bool mayList(int folder, const std::string& wanted) {
  const UniqueFd reader(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  DirentBatch batch;
  ssize_t got = -1;
  while (reader && (got = batch.read(reader.get())) > 0)
    if (!batch.forEach([&](const char* name, unsigned char) { return wanted != name; })) return true;
  return got < 0;
}

}  // namespace varnholt::platform::posix
