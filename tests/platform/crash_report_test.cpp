#include "platform/posix/crash_report.hpp"

#include "platform/crash_report.hpp"
#include "support/scratch_folder.hpp"

#include <stdexcept>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

int deeper(int depth) {
  volatile char room[4096] = {};
  return depth < 0 ? 0 : deeper(depth + 1) + room[depth % 4096];
}

TEST(CrashReport, TellsWhatTheProgramWasDoingAtTheNextStart) {
  using Case = std::tuple<std::function<void()>, int, const char*>;
  for (const auto& [crash, signal, says] : std::initializer_list<Case>{
           {[] { ::raise(SIGSEGV); }, SIGSEGV, "SIGSEGV"},
           {[] { (void)deeper(0); }, SIGSEGV, "SIGSEGV"},
           {[] { std::thread([] { throw std::runtime_error("no more of it"); }).join(); }, SIGABRT, "no more of it"}}) {
    const test::ScratchFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
      const rlimit none{};
      ::setrlimit(RLIMIT_CORE, &none);
      ::close(STDERR_FILENO);
      reportCrashes(folder.path(), "1.2.3");
      noteDoing("Command1_Click");
      crash();
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << "it ends as the system would have ended it";
    const std::string notice = takeCrashNotice(folder.path(), "C:\\Crash.log");
    EXPECT_NE(notice.find("at:  Command1_Click"), std::string::npos) << notice;
    EXPECT_TRUE(notice.ends_with("C:\\Crash.log"));
    const std::string report = folder.read("Crash.log");
    for (const char* part : {"[Version] 1.2.3\r\n", "[Doing]   Command1_Click\r\n", says, "platform_test"})
      EXPECT_NE(report.find(part), std::string::npos) << part << " in " << report;
    EXPECT_EQ(takeCrashNotice(folder.path(), "C:\\Crash.log"), "") << "told once";
  }
}

}  // namespace
}  // namespace varnholt::platform::posix
