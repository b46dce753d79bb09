#pragma once

#include "platform/result.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace varnholt::platform {

/// One argument of a command from any text: in double quotes, a quote inside it doubled. A file name may hold blanks
/// and quotes, so a path goes into a command through this.
inline std::string quoteArgument(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text)
    quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

/// Starts external programs. The first word or quoted part of a command names the program; arguments that are
/// drive-letter paths (also inside quotes) are handed over as system paths, everything else as it is. Blanks separate
/// outside quotes, and a doubled quote inside quotes is one quote; a backslash escapes nothing, since folders end in
/// one. Nothing passes through a command interpreter. A program written `desktop:NAME` is the desktop entry of that
/// name, launched as its author has written it, with the arguments as its files.
class Shell {
 public:
  virtual ~Shell() = default;
  /// Starts and does not wait. Gives a process number for wait(). NotFound when there is no such program,
  /// AccessDenied when it may not be run. `folder` is the working folder; empty: the program's own.
  virtual Result<std::int64_t> start(const std::string& command, const std::string& folder = {}) = 0;
  /// Blocks until the process ends; gives its exit code. Call through MessageLoop::runBlocking.
  virtual Result<int> wait(std::int64_t process) = 0;
  /// ExitWindowsEx with its logoff flag: ends the desktop session in its orderly way. NotFound where no session
  /// answers. Call through MessageLoop::ask.
  virtual Result<void> logOff() = 0;
};

}  // namespace varnholt::platform
