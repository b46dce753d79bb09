#include "platform/posix/workers.hpp"

#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

namespace varnholt::platform::posix {

unsigned workerCount() {
  static const unsigned count = std::clamp(std::thread::hardware_concurrency(), 1u, 4u);
  return count;
}

void runWorkers(unsigned count, const std::function<void(unsigned)>& work) {
  std::vector<std::thread> threads;
  for (unsigned index = 1; index < count; ++index) {
    try {
      threads.emplace_back(work, index);
    } catch (const std::system_error&) {
      break;
    }
  }
  work(0);
  for (std::thread& thread : threads)
    thread.join();
}

}  // namespace varnholt::platform::posix
