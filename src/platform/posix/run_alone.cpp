#include "platform/posix/run_alone.hpp"

#include "platform/posix/unique_fd.hpp"

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace varnholt::platform::posix {

void runAlone(const std::string& folder, const std::function<void()>& call) {
  constexpr std::chrono::milliseconds pause{10};
  constexpr int mostTries = 200;
  const UniqueFd lock(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  for (int tries = 0; lock && tries < mostTries; ++tries) {
    if (::flock(lock.get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) break;
    std::this_thread::sleep_for(pause);
  }
  call();
}

}  // namespace varnholt::platform::posix
