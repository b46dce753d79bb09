#pragma once

#include "platform/posix/unique_fd.hpp"

#include <functional>

#include <glib.h>

namespace varnholt::platform::posix {

/// Tells when the kernel's table of mounts changes, from the program's main loop.
class MountWatch {
 public:
  explicit MountWatch(std::function<void()> changed);
  ~MountWatch();
  MountWatch(const MountWatch&) = delete;
  MountWatch& operator=(const MountWatch&) = delete;

 private:
  std::function<void()> changed_;
  UniqueFd table_;
  guint source_ = 0;
};

}  // namespace varnholt::platform::posix
