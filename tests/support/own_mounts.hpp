#pragma once

#include "support/testing.hpp"

#include <sched.h>

#include <sys/mount.h>

namespace varnholt::test {

/// A mount for as long as this object lives, in a mount table of this process's own: its mounts are seen by itself and
/// its children alone and go with it. False where that is not permitted; a test says so and skips.
class ScopedMount {
 public:
  ScopedMount() = default;
  /// A new file system in memory; `options` as mount(8) takes them ("size=4m").
  static ScopedMount memory(const std::string& folder, const std::string& options = "mode=0777") {
    return ScopedMount(folder, "none", "tmpfs", 0, options.c_str());
  }
  /// A folder shown at a second place.
  static ScopedMount bind(const std::string& source, const std::string& folder) {
    return ScopedMount(folder, source, nullptr, MS_BIND, nullptr);
  }
  ScopedMount(ScopedMount&& other) noexcept : folder_(std::exchange(other.folder_, {})) {}
  ScopedMount& operator=(ScopedMount&& other) noexcept {
    std::swap(folder_, other.folder_);
    return *this;
  }
  ~ScopedMount() {
    if (!folder_.empty()) ::umount2(folder_.c_str(), MNT_DETACH);
  }

  explicit operator bool() const { return !folder_.empty(); }
  /// Nothing can be written to it any more. False when that failed.
  bool makeReadOnly() const {
    return ::mount("none", folder_.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
  }

 private:
  ScopedMount(const std::string& folder, const std::string& source, const char* type, unsigned long flags,
              const char* options) {
    static const bool hasOwnTable =
        ::unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    if (hasOwnTable && ::mount(source.c_str(), folder.c_str(), type, flags, options) == 0) folder_ = folder;
  }
  std::string folder_;
};

}  // namespace varnholt::test
