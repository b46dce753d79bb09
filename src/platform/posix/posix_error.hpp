#pragma once

#include "platform/result.hpp"

#include <string>

namespace varnholt::platform::posix {

/// The code that callers act on, from errno.
ErrorCode errorCodeOf(int errorNumber);

/// What the system says of errno, in English whatever the locale is, as all texts of the program are.
const char* errorWords(int errorNumber);

/// What volumes say that have no modes, times or syncing of their own.
bool cannotKeep(int errorNumber);

/// fsync() where the volume knows it. Gives 0 or errno.
int syncFile(int fd);

/// The one place where errno becomes an Error. The path is given in system form; the file system object turns it
/// into program form where a result leaves it.
Error systemError(int errorNumber, std::string systemPath);

/// A refusal of our own, in the shape of the system's.
Error refusal(ErrorCode code, std::string systemPath, const char* text);

}  // namespace varnholt::platform::posix
