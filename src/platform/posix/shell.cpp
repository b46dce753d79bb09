#include "platform/posix/shell.hpp"

#include "platform/paths.hpp"
#include "platform/posix/desktop_entry.hpp"
#include "platform/posix/shell_spawn.hpp"

#include <cerrno>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <unordered_map>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

bool exists(const Result<std::string>& systemPath) {
  struct stat facts;
  return systemPath && ::stat(systemPath->c_str(), &facts) == 0;
}

bool isFile(const Result<std::string>& systemPath) {
  struct stat facts;
  return systemPath && ::stat(systemPath->c_str(), &facts) == 0 && !S_ISDIR(facts.st_mode);
}

/// Blocks; the exit code, or 128 and the signal's number, as command interpreters tell it.
int exitCodeOf(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0)
    if (errno != EINTR) return 0;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

/// The children by our own numbers, since the system uses its numbers again. Each is waited for by a thread, so none
/// stays behind as a zombie whether or not anybody asks. A number and a code stay here for each until asked for.
class PosixShell::Children : public std::enable_shared_from_this<Children> {
 public:
  std::int64_t add(pid_t child) {
    std::int64_t number = 0;
    {
      const std::lock_guard lock(mutex_);
      number = ++last_;
      codes_[number] = std::nullopt;
    }
    watch(number, child);
    return number;
  }

  /// A program that others started for us, of which nothing more is known.
  std::int64_t addEnded() {
    const std::lock_guard lock(mutex_);
    codes_[++last_] = 0;
    return last_;
  }

  std::optional<int> take(std::int64_t number) {
    std::unique_lock lock(mutex_);
    const auto found = codes_.find(number);
    if (found == codes_.end()) return {};
    auto& code = found->second;  // stays in place: only this number's caller erases it
    ended_.wait(lock, [&] { return code.has_value(); });
    const std::optional<int> result = code;
    codes_.erase(number);
    return result;
  }

 private:
  void watch(std::int64_t number, pid_t child) {
    const auto wait = [self = shared_from_this(), number, child] { self->finish(number, exitCodeOf(child)); };
    try {
      std::thread(wait).detach();
    } catch (const std::system_error&) {
      // No thread to be had: the child runs on and is reaped when this process ends.
      finish(number, 0);
    }
  }

  void finish(std::int64_t number, int code) {
    const std::lock_guard lock(mutex_);
    codes_[number] = code;
    ended_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable ended_;
  std::int64_t last_ = 0;
  std::unordered_map<std::int64_t, std::optional<int>> codes_;
};

PosixShell::PosixShell(const PathMap& map, Help help)
    : map_(map), help_(std::move(help)), children_(std::make_shared<Children>()) {}

std::string PosixShell::translated(const CommandWord& word) const {
  const std::string whole = word.text();
  if (isDrivePath(whole)) return map_.toSystem(whole).valueOr(whole);
  std::string text;
  for (const CommandPart& part : word.parts)
    text += part.quoted && isDrivePath(part.text) ? map_.toSystem(part.text).valueOr(part.text) : part.text;
  return text;
}

/// The file of a program given by its path: as spelled, else in the case that the disk has.
std::string PosixShell::programFile(const std::string& programPath) const {
  const auto exact = map_.toSystem(programPath);
  if (exists(exact)) return *exact;
  if (const auto spelled = help_.resolve(programPath)) return map_.toSystem(*spelled).valueOr(programPath);
  return exact.valueOr(programPath);
}

std::string PosixShell::programOf(const std::string& command, const std::vector<CommandWord>& words,
                                  size_t& used) const {
  used = 1;
  const std::string first = words[0].text();
  if (!isDrivePath(first)) return first;
  for (size_t last = 0; last < words.size() && words[last].plain(); ++last) {
    const std::string path = command.substr(words[0].begin, words[last].end - words[0].begin);
    if (!isFile(map_.toSystem(path))) continue;
    used = last + 1;
    return programFile(path);
  }
  return programFile(first);
}

std::string PosixShell::argumentAt(const std::string& command, const std::vector<CommandWord>& words,
                                   size_t& at) const {
  const size_t first = at++;
  if (!words[first].plain() || !isDrivePath(words[first].text())) return translated(words[first]);
  std::string argument = translated(words[first]);
  for (size_t last = first + 1; last < words.size() && words[last].plain(); ++last) {
    const auto path = map_.toSystem(command.substr(words[first].begin, words[last].end - words[first].begin));
    if (!exists(path)) continue;
    argument = *path;
    at = last + 1;
  }
  return argument;
}

std::vector<std::string> PosixShell::arguments(const std::string& command) const {
  const std::vector<CommandWord> words = splitCommand(command);
  if (words.empty()) return {};
  size_t at = 0;
  std::vector<std::string> result{programOf(command, words, at)};
  while (at < words.size())
    result.push_back(argumentAt(command, words, at));
  return result;
}

Result<std::int64_t> PosixShell::start(const std::string& command, const std::string& folder) {
  const std::vector<std::string> words = arguments(command);
  if (words.empty() || words[0].empty()) return Error{ErrorCode::NotFound, {}, "no program named"};
  std::string systemFolder;
  if (!folder.empty()) {
    auto path = map_.toSystem(folder);
    if (!path) return path.error();
    systemFolder = std::move(*path);
  }
  if (words[0].starts_with(DesktopEntry)) return launchEntry(words);
  auto started = launch(words, systemFolder);
  const bool bareName = words[0].find_first_of("/\\") == std::string::npos;
  if (started || started.error().code != ErrorCode::NotFound || !bareName) return started;
  return startFromWindowsFolder(words, systemFolder);
}

Result<std::int64_t> PosixShell::startFromWindowsFolder(std::vector<std::string> words,
                                                        const std::string& systemFolder) const {
  const std::string name = words[0], windows = help_.windowsFolder();
  if (!windows.empty())
    for (const std::string& folder : {windows, paths::join(windows, "system32")})
      for (const std::string& spelled : {name, name + ".exe"}) {
        const auto found = help_.resolve(paths::join(folder, spelled));
        if (!found) continue;
        words[0] = map_.toSystem(*found).valueOr(name);
        return launch(words, systemFolder);
      }
  return Error{ErrorCode::NotFound, name, "no such program"};
}

Result<std::int64_t> PosixShell::launchEntry(const std::vector<std::string>& words) const {
  const auto child =
      launchDesktopEntry(words[0].substr(DesktopEntry.size()), {words.begin() + 1, words.end()}, {driveVariable()});
  if (!child) return child.error();
  return *child > 0 ? children_->add(*child) : children_->addEnded();
}

/// The drive map for scripts, and for copies of ourselves.
std::string PosixShell::driveVariable() const {
  std::string drives = "VARNHOLT_DRIVE_MAP=";
  for (const DriveMapping& drive : map_.drives())
    drives.append(1, drive.letter).append("=").append(drive.folder).append("\n");
  return drives;
}

Result<std::int64_t> PosixShell::launch(const std::vector<std::string>& words, const std::string& systemFolder) const {
  const auto child = spawn({words, systemFolder, {driveVariable()}});
  if (!child) return Error{child.error().code, words[0], child.error().text};
  return children_->add(*child);
}

Result<int> PosixShell::wait(std::int64_t process) {
  if (const auto code = children_->take(process)) return *code;
  return Error{ErrorCode::NotFound, {}, "no such process"};
}

}  // namespace varnholt::platform::posix
