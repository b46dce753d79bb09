#include "support/own_mounts.hpp"
#include "support/testing.hpp"

#include <sched.h>

#include <sys/mount.h>

namespace varnholt::test {

bool enterOwnMounts() {
  static const bool entered =
      ::unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  return entered;
}

ScopedMount ScopedMount::memory(const std::string& folder, const std::string& options) {
  return ScopedMount(folder, enterOwnMounts() && ::mount("none", folder.c_str(), "tmpfs", 0, options.c_str()) == 0);
}

ScopedMount ScopedMount::bind(const std::string& source, const std::string& folder) {
  return ScopedMount(folder,
                     enterOwnMounts() && ::mount(source.c_str(), folder.c_str(), nullptr, MS_BIND, nullptr) == 0);
}

ScopedMount::ScopedMount(ScopedMount&& other) noexcept : folder_(std::exchange(other.folder_, {})) {}

ScopedMount& ScopedMount::operator=(ScopedMount&& other) noexcept {
  std::swap(folder_, other.folder_);
  return *this;
}

ScopedMount::~ScopedMount() {
  if (!folder_.empty()) ::umount2(folder_.c_str(), MNT_DETACH);
}

bool ScopedMount::makeReadOnly() const {
  return ::mount("none", folder_.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
}

}  // namespace varnholt::test
