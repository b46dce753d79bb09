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
    int ends[2];
    if (::pipe(ends) != 0) return;
    std::cout.flush();
    child_ = ::fork();
    if (child_ == 0) {
      ::close(ends[1]);
      char go = 0;
      if (::read(ends[0], &go, 1) != 1) ::_exit(0);
      work();
      std::cout.flush();
      ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    ::close(ends[0]);
    start_ = ends[1];
  }
  ~WaitingChild() {
    if (start_ >= 0) ::close(start_);
    if (child_ > 0) ::waitpid(child_, nullptr, 0);
  }
  WaitingChild(const WaitingChild&) = delete;
  WaitingChild& operator=(const WaitingChild&) = delete;

  /// Does the work, once, and waits for its end. True when all checks in it held.
  bool held() {
    int status = 0;
    return child_ > 0 && ::write(start_, "", 1) == 1 && ::waitpid(std::exchange(child_, -1), &status, 0) > 0 &&
           WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

 private:
  pid_t child_ = -1;
  int start_ = -1;
};

}  // namespace varnholt::test
