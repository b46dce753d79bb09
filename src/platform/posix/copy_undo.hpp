#pragma once

#include <string>

namespace varnholt::platform::posix {

/// Takes away what a copy of the folder `source` (system path) has put into the folder `name` of the open folder
/// `place`: only what is still as the source has it, by name, kind, size and modified time, so that nothing of others
/// goes with it, and folders that are empty then. Failures are passed over.
void removeCopies(const std::string& source, int place, const std::string& name);

}  // namespace varnholt::platform::posix
