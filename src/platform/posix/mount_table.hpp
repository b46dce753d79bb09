#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace varnholt::platform::posix {

/// One line of /proc/self/mountinfo.
struct Mount {
  std::uint64_t id = 0;  ///< the kernel's number of the mount
  dev_t device = 0;
  std::string root;    ///< folder of the file system that is mounted; "/" unless a bind mount
  std::string point;   ///< where it is mounted
  std::string type;    ///< the kernel's name of the file system
  std::string source;  ///< device node or share
};

/// The kernel's file of mounts (proc_pid_mountinfo(5)).
inline constexpr char MountInfo[] = "/proc/self/mountinfo";

/// The mounts of a file of that form, in mount order; none when it cannot be read.
std::vector<Mount> readMounts(const std::string& file = MountInfo);

/// The mount that a device number belongs to, preferring one of the file system's root.
std::optional<Mount> mountOfDevice(const std::vector<Mount>& mounts, dev_t device);

/// A file of /proc and alike, whose size is not known before it is read. Empty when it cannot be read.
std::string readSystemFile(const char* path, std::size_t most = 64u << 20);

}  // namespace varnholt::platform::posix
