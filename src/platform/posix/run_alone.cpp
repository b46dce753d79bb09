#include "platform/posix/run_alone.hpp"

#include "platform/posix/unique_fd.hpp"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace varnholt::platform::posix {

void runAlone(const std::string& folder, const std::function<void()>& call) {
  constexpr std::chrono::milliseconds pause{10};
  constexpr int mostTries = 200;
  // Whoever holds it for so long has been stopped or hangs, and a program that ends has many files to write.
  static std::atomic<bool> waitedInVain = false;
  const UniqueFd lock(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  const auto isHeld = [&] { return lock && ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK; };
  bool held = isHeld();
  for (int tries = 0; held && !waitedInVain && tries < mostTries; ++tries) {
    std::this_thread::sleep_for(pause);
    held = isHeld();
  }
  waitedInVain = held;
  call();
}

}  // namespace varnholt::platform::posix
