#include "platform/posix/write_out.hpp"

#include "platform/posix/posix_error.hpp"
#include "platform/posix/unique_fd.hpp"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

constexpr auto betweenQuestions = std::chrono::milliseconds(50);

/// One writing-out. The thread that runs it and the one that waits for it each hold it: the call of the kernel cannot
/// be broken off, and whoever gives up waiting goes.
struct WriteOut {
  UniqueFd folder;
  std::mutex mutex;
  std::condition_variable ended;
  std::optional<int> result;  ///< 0 or errno

  void run() {
    // A folder that may not be read tells no volume: all of them, then.
    if (!folder) ::sync();
    const int error = !folder || ::syncfs(folder.get()) == 0 ? 0 : errno;
    const std::lock_guard lock(mutex);
    result = error;
    ended.notify_all();
  }
};

}  // namespace

Result<void> writeVolumeOut(const std::string& path, bool wait, const Progress& progress) {
  const auto work = std::make_shared<WriteOut>();
  work->folder = UniqueFd(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!work->folder && errno != EACCES) return systemError(errno, path);
  try {
    std::thread([work] { work->run(); }).detach();
  } catch (const std::system_error&) {
    work->run();  // no thread to be had: slower, and as safe
  }
  std::unique_lock lock(work->mutex);
  while (wait && !work->result) {
    work->ended.wait_for(lock, betweenQuestions);
    if (!work->result && progress && !progress(0)) return Error{ErrorCode::Stopped, path, "stopped"};
  }
  if (const int error = work->result.value_or(0)) return systemError(error, path);
  return {};
}

}  // namespace varnholt::platform::posix
