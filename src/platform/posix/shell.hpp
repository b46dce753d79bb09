#pragma once

#include "platform/posix/path_map.hpp"
#include "platform/posix/shell_words.hpp"
#include "platform/shell.hpp"

#include <functional>
#include <memory>

namespace varnholt::platform::posix {

/// Programs as children in a session of their own, so that they outlive the program. They get no descriptor of ours
/// but output and errors, an empty input, default signals, and the drive map in the variable VARNHOLT_DRIVE_MAP (a
/// line a drive, "C=/home/me"), by which the scripts of the Windows folder read paths out of files.
///
/// As on the original platform, a path without quotes may hold blanks: the program is then the shortest run of words
/// that names a file, and an argument the longest that names anything. A name without a folder is looked for in PATH,
/// then in the Windows folder and its system32. A program's path in another case is found too.
class PosixShell : public Shell {
 public:
  /// What the shell asks others, all in program form.
  struct Help {
    std::function<Result<std::string>(const std::string&)> resolve;  ///< a path in the case that the disk has
    std::function<std::string()> windowsFolder;                      ///< where system programs lie
  };
  PosixShell(const PathMap& map, Help help);

  Result<std::int64_t> start(const std::string& command, const std::string& folder = {}) override;
  Result<int> wait(std::int64_t process) override;
  Result<void> logOff() override;

  /// Program and arguments of a command, translated; empty for a command without words.
  std::vector<std::string> arguments(const std::string& command) const;

 private:
  class Children;

  std::string programOf(const std::string& command, const std::vector<CommandWord>& words, size_t& used) const;
  std::string argumentAt(const std::string& command, const std::vector<CommandWord>& words, size_t& at) const;
  std::string translated(const CommandWord& word) const;
  std::string programFile(const std::string& programPath) const;
  Result<std::int64_t> startFromWindowsFolder(std::vector<std::string> words, const std::string& systemFolder) const;
  Result<std::int64_t> launchEntry(const std::vector<std::string>& words) const;
  std::string driveVariable() const;
  Result<std::int64_t> launch(const std::vector<std::string>& words, const std::string& systemFolder) const;

  const PathMap& map_;
  Help help_;
  /// Shared with the threads that wait for the children, which may outlive this object.
  std::shared_ptr<Children> children_;
};

}  // namespace varnholt::platform::posix
