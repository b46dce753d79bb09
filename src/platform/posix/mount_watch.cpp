#include "platform/posix/mount_watch.hpp"

namespace varnholt::platform::posix {

MountWatch::MountWatch(std::function<void()> changed)
    : changed_(std::move(changed)), monitor_(g_unix_mount_monitor_get()) {
  const auto tell = [](GUnixMountMonitor*, gpointer self) { static_cast<MountWatch*>(self)->changed_(); };
  handler_ = g_signal_connect(monitor_, "mounts-changed", G_CALLBACK(+tell), this);
}

MountWatch::~MountWatch() {
  g_signal_handler_disconnect(monitor_, handler_);
  g_object_unref(monitor_);
}

}  // namespace varnholt::platform::posix
