#include "platform/posix/mount_watch.hpp"

#include "platform/posix/mount_table.hpp"

#include <fcntl.h>
#include <glib-unix.h>

namespace varnholt::platform::posix {

MountWatch::MountWatch(std::function<void()> changed)
    : changed_(std::move(changed)), table_(::open(MountInfo, O_RDONLY | O_CLOEXEC)) {
  if (!table_) return;
  const auto tell = [](gint, GIOCondition, gpointer self) -> gboolean {
    static_cast<MountWatch*>(self)->changed_();
    return G_SOURCE_CONTINUE;
  };
  // The table that is open reports a change as "urgent data", once for each reader (proc_pid_mountinfo(5)).
  source_ = g_unix_fd_add(table_.get(), G_IO_PRI, tell, this);
}

MountWatch::~MountWatch() {
  if (source_) g_source_remove(source_);
}

}  // namespace varnholt::platform::posix
