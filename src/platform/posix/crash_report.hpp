#pragma once

#include <string>

namespace varnholt::platform::posix {

/// The file of the last crash, beside the settings, and what it is called until a start has told of it.
inline constexpr const char *CrashFile = "Crash.log", *FreshCrashFile = "Crash.new";

/// What the user must hear of a crash that no start has told of yet; empty when there was none. `folder` in system
/// form; the words name the report as `shown`.
std::string takeCrashNotice(const std::string& folder, const std::string& shown);

}  // namespace varnholt::platform::posix
