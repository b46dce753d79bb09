#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <unistd.h>

namespace varnholt::platform::posix {

/// One read of a folder: entries as getdents64(2) gives them, "." and ".." left out by forEach.
class DirentBatch {
 public:
  static constexpr size_t capacity = 32768;

  /// Reads the next entries of an open folder: more than 0, 0 at the end, or -1 with errno. A folder that was deleted
  /// meanwhile is at its end.
  ssize_t read(int folder) {
    bytes_ = ::getdents64(folder, buffer_.get(), capacity);
    if (bytes_ < 0 && errno == ENOENT) bytes_ = 0;
    return bytes_;
  }
  /// True when the folder has probably more to give.
  bool isFull() const { return bytes_ > static_cast<ssize_t>(capacity - 1024); }

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

  struct Free {
    void operator()(char* bytes) const { ::operator delete[](bytes, std::align_val_t(alignof(dirent64))); }
  };
  std::unique_ptr<char[], Free> buffer_{
      static_cast<char*>(::operator new[](capacity, std::align_val_t(alignof(dirent64))))};
  ssize_t bytes_ = 0;
};

}  // namespace varnholt::platform::posix
