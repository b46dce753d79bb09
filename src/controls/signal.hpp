#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace varnholt::controls {

/// Something that happens and that any number of others want to hear of, in the order in which they asked. Who listens
/// lives as long as the signal.
template <class... Args>
class Signal {
 public:
  void listen(std::function<void(Args...)> listener) { listeners_.push_back(std::move(listener)); }
  void operator()(Args... args) const {
    for (const auto& listener : listeners_)
      listener(args...);
  }

 private:
  std::vector<std::function<void(Args...)>> listeners_;
};

}  // namespace varnholt::controls
