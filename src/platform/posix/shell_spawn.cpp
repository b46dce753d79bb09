#include "platform/posix/shell_spawn.hpp"

#include "platform/posix/posix_error.hpp"

#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

ErrorCode codeOf(int error) {
  switch (error) {
  case ENOENT:
  case ENOTDIR:
  case ELOOP:
  case ENAMETOOLONG:
    return ErrorCode::NotFound;
  case EACCES:
  case EPERM:
    return ErrorCode::AccessDenied;
  case ENOEXEC:
    return ErrorCode::NotSupported;
  case E2BIG:
    return ErrorCode::TooLarge;
  default:
    return ErrorCode::Failed;
  }
}

/// Empty input, our output and errors, nothing else; the working folder.
class Actions {
 public:
  explicit Actions(const std::string& folder) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    if (!folder.empty()) ::posix_spawn_file_actions_addchdir_np(&actions_, folder.c_str());
  }
  ~Actions() { ::posix_spawn_file_actions_destroy(&actions_); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

/// A session of its own and the signals of a fresh process.
class Attributes {
 public:
  Attributes() {
    sigset_t all, none;
    ::sigfillset(&all);
    ::sigemptyset(&none);
    ::posix_spawnattr_init(&attributes_);
    ::posix_spawnattr_setsigdefault(&attributes_, &all);
    ::posix_spawnattr_setsigmask(&attributes_, &none);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID);
  }
  ~Attributes() { ::posix_spawnattr_destroy(&attributes_); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_;
};

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> list;
  for (const std::string& text : texts)
    list.push_back(const_cast<char*>(text.c_str()));  // the call takes char* for history's sake and changes nothing
  list.push_back(nullptr);
  return list;
}

/// Our environment with the given variables in place of those of the same name.
std::vector<char*> environmentWith(const std::vector<std::string>& additions) {
  std::vector<char*> list;
  const auto isReplaced = [&](const char* variable) {
    for (const std::string& addition : additions)
      if (std::strncmp(variable, addition.c_str(), addition.find('=') + 1) == 0) return true;
    return false;
  };
  for (char** variable = environ; variable && *variable; ++variable)
    if (!isReplaced(*variable)) list.push_back(*variable);
  for (char* addition : pointers(additions))
    list.push_back(addition);
  return list;
}

}  // namespace

Result<pid_t> spawn(const Launch& launch) {
  const Actions actions(launch.folder);
  const Attributes attributes;
  const std::vector<char*> words = pointers(launch.words), environment = environmentWith(launch.environment);
  pid_t child = 0;
  // The library's call tells a failing exec by its answer, through a shared page instead of a pipe.
  const int error = ::posix_spawnp(&child, words[0], actions.get(), attributes.get(), words.data(), environment.data());
  if (error != 0) return Error{codeOf(error), {}, errorWords(error)};
  return child;
}

}  // namespace varnholt::platform::posix
