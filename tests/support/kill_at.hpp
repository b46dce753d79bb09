#pragma once

#include "support/testing.hpp"

#include <sys/types.h>

namespace varnholt::test {

/// Runs a part of the program in child processes that are killed at chosen system calls, so that a test can look at
/// what a kill at any moment leaves. Calls that change nothing on the disk are not counted.
class KillAt {
 public:
  /// Both run in the child: what comes in front, and the part that is killed.
  KillAt(std::function<void()> prepare, std::function<void()> work)
      : prepare_(std::move(prepare)), work_(std::move(work)) {}

  static constexpr int Untraceable = -1;  ///< processes may not be traced here
  static constexpr int Failed = -2;       ///< the child has told why

  /// Runs it to its end. Gives the moments there are: one in front of each call that changes something and one behind
  /// it; else one of the two numbers above.
  int moments() const;
  /// Kills it at that moment, counted from 0. False when it ended before.
  bool at(int moment) const;

 private:
  int run(int moment) const;
  [[noreturn]] void child() const;

  std::function<void()> prepare_, work_;
};

/// Runs checks in a child process, as a next start of the program is one. True when all held.
bool heldInChild(const std::function<void()>& checks);
/// heldInChild in one that has no rights beyond those of an ordinary user, for as root the kernel refuses nothing. The
/// folder must be open to others.
bool heldAsOrdinaryUser(const std::function<void()>& checks);

}  // namespace varnholt::test
