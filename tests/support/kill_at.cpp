#include "support/kill_at.hpp"

#include <iostream>

#include <fcntl.h>
#include <grp.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::test {
namespace {

constexpr int Untraceable = KillAt::Untraceable, Failed = KillAt::Failed;
constexpr int syscallStop = SIGTRAP | 0x80;

[[noreturn]] void endChild() {
  std::cout.flush();
  ::_exit(testing::Test::HasFailure() ? 1 : 0);
}

/// Calls that put something on the disk or take it away.
constexpr std::uint64_t changingCalls[] = {
#ifdef SYS_open
    SYS_rename,      SYS_link,     SYS_unlink,          SYS_symlink,   SYS_mkdir,     SYS_rmdir,    SYS_chmod,
#endif
#ifdef SYS_renameat
    SYS_renameat,
#endif
    SYS_write,       SYS_pwrite64, SYS_copy_file_range, SYS_ftruncate, SYS_renameat2, SYS_linkat,   SYS_unlinkat,
    SYS_symlinkat,   SYS_mkdirat,  SYS_fchmod,          SYS_fchmodat,  SYS_utimensat, SYS_setxattr, SYS_fsetxattr,
    SYS_removexattr, SYS_fsync};

/// Opening counts where it may make a file.
bool changes(const __ptrace_syscall_info& call) {
  if (call.entry.nr == SYS_openat) return (call.entry.args[2] & O_CREAT) != 0;
#ifdef SYS_open
  if (call.entry.nr == SYS_open) return (call.entry.args[1] & O_CREAT) != 0;
#endif
  return std::ranges::find(changingCalls, call.entry.nr) != std::end(changingCalls);
}

/// Follows a stopped child and its threads from call to call.
class Tracer {
 public:
  Tracer(pid_t child, int moment) : child_(child), moment_(moment) {}

  /// Gives the moments met until the child stopped itself again or was killed.
  int follow() {
    resume(child_, 0);
    for (;;) {
      int status = 0;
      const pid_t who = ::waitpid(-1, &status, __WALL);
      if (who < 0) return Failed;
      if (!WIFSTOPPED(status)) {
        if (who == child_) return Failed;
        continue;
      }
      if (isAtMoment(who, status) && count_++ == moment_) {
        (void)ends(true);
        return count_;
      }
      if (who == child_ && WSTOPSIG(status) == SIGSTOP && status >> 16 == 0) return count_;
      resume(who, signalOf(status));
    }
  }

  /// Lets it go on to its end, or kills it. True when all checks in it held. Its threads are waited for, too: the child
  /// ends behind the last of them.
  bool ends(bool killed) {
    ::kill(child_, killed ? SIGKILL : 0);
    ::ptrace(PTRACE_CONT, child_, nullptr, 0);
    int status = 0;
    for (pid_t who = 0; (who = ::waitpid(-1, &status, __WALL)) > 0;) {
      if (WIFSTOPPED(status)) ::ptrace(PTRACE_CONT, who, nullptr, signalOf(status));
      if (who == child_ && !WIFSTOPPED(status)) return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }
    return false;
  }

 private:
  static void resume(pid_t who, int signal) { ::ptrace(PTRACE_SYSCALL, who, nullptr, signal); }
  /// What is to be delivered: not the stops of the tracing itself.
  static int signalOf(int status) {
    const int signal = WSTOPSIG(status);
    return signal == syscallStop || signal == SIGTRAP || signal == SIGSTOP ? 0 : signal;
  }

  bool isAtMoment(pid_t who, int status) {
    if (WSTOPSIG(status) != syscallStop) return false;
    __ptrace_syscall_info call{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, who, sizeof call, &call);
    if (call.op == PTRACE_SYSCALL_INFO_EXIT) return inside_.erase(who) > 0;
    if (call.op != PTRACE_SYSCALL_INFO_ENTRY || !changes(call)) return false;
    inside_.insert(who);
    return true;
  }

  const pid_t child_;
  const int moment_;
  int count_ = 0;
  std::set<pid_t> inside_;  ///< threads in a call that is counted
};

}  // namespace

void KillAt::child() const {
  prepare_();
  std::cout.flush();
  if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(2);
  ::raise(SIGSTOP);
  work_();
  ::raise(SIGSTOP);
  endChild();
}

int KillAt::run(int moment) const {
  std::cout.flush();
  const pid_t child = ::fork();
  if (child == 0) this->child();
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return Untraceable;
  constexpr long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_EXITKILL;
  Tracer tracer(child, moment);
  if (::ptrace(PTRACE_SETOPTIONS, child, nullptr, options) != 0) {
    (void)tracer.ends(true);
    return Untraceable;
  }
  const int count = tracer.follow();
  if (count < 0 || count == moment + 1) return count;
  return tracer.ends(false) ? count : Failed;
}

int KillAt::moments() const { return run(-1); }

bool KillAt::at(int moment) const { return run(moment) == moment + 1; }

bool heldInChild(const std::function<void()>& checks) {
  std::cout.flush();
  const pid_t child = ::fork();
  if (child == 0) {
    checks();
    endChild();
  }
  int status = 0;
  return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

bool heldAsOrdinaryUser(const std::function<void()>& checks) {
  return heldInChild([&] {
    constexpr uid_t nobody = 65534;
    ASSERT_TRUE(::getuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 && ::setuid(nobody) == 0));
    checks();
  });
}

}  // namespace varnholt::test
