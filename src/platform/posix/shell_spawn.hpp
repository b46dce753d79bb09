#pragma once

#include "platform/result.hpp"

#include <string>
#include <vector>

#include <sys/types.h>

namespace varnholt::platform::posix {

/// A program to run, all in system form.
struct Launch {
  std::vector<std::string> words;        ///< the program and its arguments; a program without slash comes from PATH
  std::string folder;                    ///< working folder; empty: our own
  std::vector<std::string> environment;  ///< "NAME=value", on top of our own environment
};

/// Starts it as a child in a session of its own. NotFound, AccessDenied; NotSupported when the file is no program of
/// this system. The child must be waited for.
Result<pid_t> spawn(const Launch& launch);

}  // namespace varnholt::platform::posix
