#pragma once

#include "controls/message_loop.hpp"
#include "platform/result.hpp"

#include <atomic>
#include <cstdint>
#include <functional>

namespace varnholt::core {

/// A long call that one button of its window ends. The button's handler and the close box say `stop`; the call asks
/// `goesOn` and gives up when it is false.
class StoppableCall {
 public:
  explicit StoppableCall(controls::MessageLoop& loop) : loop_(loop) {}

  /// Runs the call to its end, with a tick as MessageLoop::runBlocking has it; false when it was stopped.
  template <class Call>
  bool run(controls::Button& button, const Call& call, const std::function<void()>& tick = {}) {
    running_ = true;
    stopped_ = false;
    loop_.runBlocking(call, {tick, &button});
    running_ = false;
    return !stopped_;
  }
  /// The same for a call of the platform that tells how far it is.
  template <class Call>
  platform::Result<void> runTelling(controls::Button& button, const Call& call) {
    platform::Result<void> result;
    run(button, [&] { result = call([this](std::uint64_t) { return goesOn(); }); });
    return result;
  }
  bool running() const { return running_; }
  void stop() { stopped_ = true; }
  /// Also on the thread of the call.
  bool goesOn() const { return !stopped_; }

 private:
  controls::MessageLoop& loop_;
  bool running_ = false;
  std::atomic<bool> stopped_ = false;
};

}  // namespace varnholt::core
