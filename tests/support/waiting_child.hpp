#pragma once

#include "support/testing.hpp"

#include <iostream>

#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::test {

/// A second running program: a child process that was started before, so that it knows nothing of what this process has
/// done since, and does its work when told.
class WaitingChild {
 public:
  explicit WaitingChild(const std::function<void()>& work) {
    std::cout.flush();
    child_ = ::fork();
    if (child_ != 0) return;
    ::raise(SIGSTOP);
    work();
    std::cout.flush();
    ::_exit(testing::Test::HasFailure() ? 1 : 0);
  }
  ~WaitingChild() {
    if (child_ <= 0) return;
    ::kill(child_, SIGKILL);
    ::waitpid(child_, nullptr, 0);
  }
  WaitingChild(const WaitingChild&) = delete;
  WaitingChild& operator=(const WaitingChild&) = delete;

  /// Does the work, once, and waits for its end. True when all checks in it held.
  bool held() {
    const pid_t child = std::exchange(child_, -1);
    int status = 0;
    return child > 0 && ::waitpid(child, &status, WUNTRACED) == child && WIFSTOPPED(status) &&
           ::kill(child, SIGCONT) == 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
  }

 private:
  pid_t child_ = -1;
};

}  // namespace varnholt::test
