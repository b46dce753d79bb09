#pragma once

#include <functional>

#include <gio/gunixmounts.h>

namespace varnholt::platform::posix {

/// Tells when the kernel's table of mounts changes, from the main loop of the thread that makes it.
class MountWatch {
 public:
  explicit MountWatch(std::function<void()> changed);
  ~MountWatch();
  MountWatch(const MountWatch&) = delete;
  MountWatch& operator=(const MountWatch&) = delete;

 private:
  std::function<void()> changed_;
  GUnixMountMonitor* monitor_;
  gulong handler_;
};

}  // namespace varnholt::platform::posix
