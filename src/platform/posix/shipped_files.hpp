#pragma once

#include <string>
#include <vector>

namespace varnholt::platform::posix {

/// Copies of files that come with the program, in system form. Existing ones are never touched.

/// Copies what is missing below `target` from below `source`, folders and regular files with their permissions. Each
/// file appears whole or not at all. False when something could not be copied; a missing source is nothing to copy.
bool copyMissingFiles(const std::string& source, const std::string& target);

/// Copies a file over the one of an earlier version, which is known by its date, and keeps the date. False when that
/// could not be done; a missing source is nothing to copy.
bool copyNewerFile(const std::string& source, const std::string& target);

/// Clears what starts that were cut have left in a folder: unfinished copies of the files and folders named.
void clearUnfinished(const std::string& folder, const std::vector<std::string>& shipped);

/// Makes the folder `target` as a copy of `source` in one step: built under a temporary name beside it and renamed.
/// True when it is there afterwards, also when it was before or another process made it meanwhile.
bool makeFolderFrom(const std::string& source, const std::string& target);

}  // namespace varnholt::platform::posix
