#pragma once

#include <memory>

namespace varnholt::controls {
class MessageLoop;
}
namespace varnholt::platform {
class FileSystem;
}

namespace varnholt::core {

/// The file system as handlers have it: each call is a long call of the message loop, so that a drive that does not
/// answer holds up no window, whoever forgot that it might. Calls from other threads, such as the loop's own helper, go
/// straight on. Make it on the window's thread; both outlive it.
std::unique_ptr<platform::FileSystem> makeWaitedFiles(platform::FileSystem& files, controls::MessageLoop& loop);

}  // namespace varnholt::core
