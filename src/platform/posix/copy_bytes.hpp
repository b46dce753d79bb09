#pragma once

#include <atomic>
#include <cstdint>

#include <sys/stat.h>

namespace varnholt::platform::posix {

/// What a running copy tells its caller, and is told.
class CopyMonitor {
 public:
  CopyMonitor() = default;
  /// For one file of several: what they find out of their volume they share.
  explicit CopyMonitor(CopyMonitor& all) : cloneRefused(all.cloneRefused) {}
  virtual ~CopyMonitor() = default;
  CopyMonitor(const CopyMonitor&) = delete;
  CopyMonitor& operator=(const CopyMonitor&) = delete;
  /// A regular file of so many bytes is about to be copied.
  virtual void begin(std::uint64_t /*size*/) {}
  /// Bytes were copied; false ends the copy.
  virtual bool add(std::uint64_t bytes) = 0;
  /// Set when the volume has refused to share blocks between files, so that it is not asked for each file.
  std::atomic<bool>& cloneRefused = cloneRefused_;

 private:
  std::atomic<bool> cloneRefused_ = false;
};

/// Copies a file's bytes into a new, empty one: shared blocks where the volume can, else in the kernel, else through
/// memory. Holes stay holes. Gives 0, errno, or ECANCELED when the monitor ended it. Names and facts are the caller's
/// affair; `facts` are those of `from`.
int copyBytes(int from, int to, const struct stat& facts, CopyMonitor& monitor);

}  // namespace varnholt::platform::posix
