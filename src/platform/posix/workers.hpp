#pragma once

#include <functional>

namespace varnholt::platform::posix {

/// How many threads one long call uses: the machine's cores, but no more than four, for beyond that the disk or the
/// kernel's locks are what is waited for.
unsigned workerCount();

/// The same for deletes. Where a volume discards at once what is freed, a deleting thread waits for the disk, and the
/// more of them wait together, the sooner all is gone.
constexpr unsigned deleteWorkerCount() { return 4; }

/// Runs `work(index)` once for each index below `count`, index 0 on the calling thread, and returns when all are done.
/// Where the system gives no thread the index is left out: the work must be of a kind that one worker can finish.
void runWorkers(unsigned count, const std::function<void(unsigned)>& work);

}  // namespace varnholt::platform::posix
