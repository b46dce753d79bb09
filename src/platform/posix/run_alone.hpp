#pragma once

#include <functional>
#include <string>

namespace varnholt::platform::posix {

/// Runs the call while no other process runs one for the same folder (system form). After two seconds of waiting, or
/// where there are no locks, it runs all the same.
void runAlone(const std::string& folder, const std::function<void()>& call);

}  // namespace varnholt::platform::posix
