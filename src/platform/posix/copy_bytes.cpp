#include "platform/posix/copy_bytes.hpp"

#include "platform/posix/file_contents.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

/// Below this one read and one write are quicker than any other way.
constexpr off_t smallFile = 128 * 1024;
/// Between two looks at the monitor: more as long as the volumes are quick, so that slow ones can be stopped soon.
constexpr size_t firstChunk = 1u << 20, largestChunk = 16u << 20, smallestChunk = 256u << 10;
constexpr std::chrono::milliseconds longChunk{100};
constexpr std::uint64_t toTheEnd = ~std::uint64_t{0};

/// A refusal means "copy in another way"; these are real failures.
bool isRealFailure(int error) { return error == EIO || error == ENOMEM || error == ENOSPC || error == EDQUOT; }

/// Gives 0 when cloned, -1 when another way must be taken, else errno.
int tryClone(int from, int to, CopyMonitor& monitor) {
  if (monitor.cloneRefused.load(std::memory_order_relaxed)) return -1;
  if (::ioctl(to, FICLONE, from) == 0) return 0;
  if (isRealFailure(errno)) return errno;
  monitor.cloneRefused = true;
  return -1;
}

constexpr size_t bufferSize = 256 * 1024;
static_assert(bufferSize > smallFile);

char* buffer() {
  thread_local const std::unique_ptr<char[]> bytes(new char[bufferSize]);
  return bytes.get();
}

/// From the descriptors' positions to the end of the file or of `count` bytes.
int copyThroughMemory(int from, int to, std::uint64_t count, CopyMonitor& monitor) {
  char* const bytes = buffer();
  while (count > 0) {
    const ssize_t got = ::read(from, bytes, std::min<std::uint64_t>(bufferSize, count));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return got < 0 ? errno : 0;
    if (const int error = writeAll(to, bytes, static_cast<size_t>(got))) return error;
    count -= static_cast<std::uint64_t>(got);
    if (!monitor.add(static_cast<std::uint64_t>(got))) return ECANCELED;
  }
  return 0;
}

/// Both descriptors move on. An answer of 0 at once can be a lie (files of /proc), so it is checked by reading.
int copyInKernel(int from, int to, std::uint64_t count, CopyMonitor& monitor) {
  size_t chunk = firstChunk;
  while (count > 0) {
    const auto begun = std::chrono::steady_clock::now();
    const ssize_t done = ::copy_file_range(from, nullptr, to, nullptr, std::min<std::uint64_t>(chunk, count), 0);
    if (done < 0 && errno == EINTR) continue;
    if (done < 0 && isRealFailure(errno)) return errno;
    if (done <= 0) return copyThroughMemory(from, to, count, monitor);
    count -= static_cast<std::uint64_t>(done);
    const bool slow = std::chrono::steady_clock::now() - begun > longChunk;
    chunk = slow ? std::max(chunk / 2, smallestChunk) : std::min(chunk * 2, largestChunk);
    if (!monitor.add(static_cast<std::uint64_t>(done))) return ECANCELED;
  }
  return 0;
}

/// Data by data, the holes between left out.
int copySparse(int from, int to, off_t size, CopyMonitor& monitor) {
  off_t at = 0;
  while (at < size) {
    const off_t data = ::lseek(from, at, SEEK_DATA);
    if (data < 0 && errno == ENXIO) break;  // a hole to the end
    const off_t end = data < 0 ? size : ::lseek(from, data, SEEK_HOLE);
    if (end < 0 || ::lseek(from, data < 0 ? at : data, SEEK_SET) < 0 || ::lseek(to, data < 0 ? at : data, SEEK_SET) < 0)
      return errno;
    const off_t start = data < 0 ? at : data;
    if (const int error = copyInKernel(from, to, static_cast<std::uint64_t>(end - start), monitor)) return error;
    at = end;
  }
  // A file that shrank meanwhile must not get an end of zeros.
  struct stat now {};
  if (::fstat(from, &now) != 0) return errno;
  return ::ftruncate(to, std::min(size, now.st_size)) == 0 ? 0 : errno;
}

/// The bytes that the file had when the copy began, so that one that grows faster than it is copied comes to an end.
/// Where a volume told less than there is, and the file does not grow, all that there is.
template <class Way>
int copyKnownSize(Way way, int from, int to, off_t size, CopyMonitor& monitor) {
  if (const int error = way(from, to, static_cast<std::uint64_t>(size), monitor)) return error;
  struct stat now {};
  if (::fstat(from, &now) != 0) return errno;
  return now.st_size > size ? 0 : way(from, to, toTheEnd, monitor);
}

/// A file that is read at once. What ends where its facts told is whole; anything else takes the long way.
int copySmall(int from, int to, off_t size, CopyMonitor& monitor) {
  const auto whole = static_cast<size_t>(size);
  const ssize_t got = ::pread(from, buffer(), whole + 1, 0);
  if (got != size) return copyKnownSize(copyThroughMemory, from, to, size, monitor);
  if (const int error = writeAll(to, buffer(), whole)) return error;
  return monitor.add(whole) ? 0 : ECANCELED;
}

}  // namespace

int copyBytes(int from, int to, const struct stat& facts, CopyMonitor& monitor) {
  if (facts.st_size > 0) {
    const int cloned = tryClone(from, to, monitor);
    if (cloned == 0) return monitor.add(static_cast<std::uint64_t>(facts.st_size)) ? 0 : ECANCELED;
    if (cloned > 0) return cloned;
  }
  if (facts.st_size == 0) return copyThroughMemory(from, to, toTheEnd, monitor);
  if (facts.st_size <= smallFile) return copySmall(from, to, facts.st_size, monitor);
  constexpr off_t statBlock = 512;
  if (facts.st_blocks < facts.st_size / statBlock) return copySparse(from, to, facts.st_size, monitor);
  (void)::posix_fadvise(from, 0, 0, POSIX_FADV_SEQUENTIAL);
  return copyKnownSize(copyInKernel, from, to, facts.st_size, monitor);
}

}  // namespace varnholt::platform::posix
