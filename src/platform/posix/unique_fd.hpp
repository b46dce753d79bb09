#pragma once

#include <utility>

#include <unistd.h>

namespace varnholt::platform::posix {

/// A file descriptor that closes itself. -1 is none.
class UniqueFd {
 public:
  UniqueFd() = default;
  explicit UniqueFd(int fd) : fd_(fd) {}
  UniqueFd(UniqueFd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    if (this != &other) {
      reset();
      fd_ = std::exchange(other.fd_, -1);
    }
    return *this;
  }
  ~UniqueFd() { reset(); }

  int get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }
  int release() { return std::exchange(fd_, -1); }
  /// Closes; gives close()'s answer, which is where network volumes tell of failed writes.
  int reset() { return fd_ >= 0 ? ::close(std::exchange(fd_, -1)) : 0; }

 private:
  int fd_ = -1;
};

}  // namespace varnholt::platform::posix
