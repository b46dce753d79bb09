#pragma once

#include <atomic>
#include <cstdint>

#include <sys/stat.h>

namespace varnholt::platform::posix {

/// What a running copy tells its caller, and is told.
class CopyMonitor {
 public:
  virtual ~CopyMonitor() = default;
  /// Bytes were copied; false ends the copy.
  virtual bool add(std::uint64_t bytes) = 0;
  /// Set when the volume has refused to share blocks between files, so that it is not asked for each file.
  std::atomic<bool> cloneRefused = false;
};

/// Copies a file's bytes into a new, empty one: shared blocks where the volume can, else in the kernel, else through
/// memory. Holes stay holes. Gives 0, errno, or ECANCELED when the monitor ended it. Names and facts are the caller's
/// affair; `facts` are those of `from`.
int copyBytes(int from, int to, const struct stat& facts, CopyMonitor& monitor);

}  // namespace varnholt::platform::posix
