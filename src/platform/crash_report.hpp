#pragma once

#include <string>
#include <string_view>

namespace varnholt::platform {

/// From now on a crash of this process writes a report into the folder (system form): when, in which version, what the
/// program was doing, and where it stood. An empty folder: no more.
void reportCrashes(const std::string& folder, const std::string& version);

/// Notes in a few words what the program does now, for the report. Call on the window's thread.
void noteDoing(std::string_view words);

}  // namespace varnholt::platform
