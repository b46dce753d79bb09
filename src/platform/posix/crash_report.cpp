#include "platform/posix/crash_report.hpp"

#include "platform/crash_report.hpp"
#include "platform/posix/mount_table.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <exception>

#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>

namespace varnholt::platform {
namespace {

constexpr int Signals[] = {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL};
constexpr std::string_view DoingTag = "[Doing]   ";

// The handler may use nothing that allocates or locks, so all that it needs lies ready.
std::array<char, PATH_MAX> file{};
std::array<char, 32> version{};
std::array<char, 256> doing{};
std::array<char, 256> thrown{};
std::array<char, 64 * 1024> stack{};  // its own, since the ordinary one may be what is full

template <std::size_t N>
void keep(std::array<char, N>& place, std::string_view text) {
  const std::size_t length = std::min(text.size(), N - 1);
  std::memcpy(place.data(), text.data(), length);
  place[length] = 0;
}

void put(int out, const char* text) { (void)!::write(out, text, std::strlen(text)); }

void putNumber(int out, long number) {
  char digits[24];
  char* at = digits + sizeof digits;
  *--at = 0;
  do
    *--at = static_cast<char>('0' + number % 10);
  while ((number /= 10) > 0);
  put(out, at);
}

const char* nameOf(int signal) {
  switch (signal) {
  case SIGSEGV:
    return "memory that is not there (SIGSEGV)";
  case SIGABRT:
    return "given up by the program itself (SIGABRT)";
  case SIGBUS:
    return "a file or device that went away under it (SIGBUS)";
  case SIGFPE:
    return "a calculation that cannot be (SIGFPE)";
  default:
    return "an instruction that is none (SIGILL)";
  }
}

void putLine(int out, const char* tag, const char* text) {
  put(out, tag);
  put(out, text);
  put(out, "\r\n");
}

void report(int signal) {
  const int out = ::open(file.data(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (out < 0) return;
  putLine(out, "[Version] ", version.data());
  put(out, "[Time]    ");
  putNumber(out, static_cast<long>(::time(nullptr)));
  put(out, " seconds since 1970\r\n");
  putLine(out, DoingTag.data(), doing.data());
  putLine(out, "[Fault]   ", nameOf(signal));
  if (thrown[0]) putLine(out, "[Thrown]  ", thrown.data());
  put(out, "[Where]\r\n");
  void* frames[64];
  ::backtrace_symbols_fd(frames, ::backtrace(frames, 64), out);
  ::close(out);
}

void onCrash(int signal) {
  report(signal);
  // The action was reset: the system ends the process as it would have without us.
  ::raise(signal);
}

void onTerminate() {
  try {
    if (const auto left = std::current_exception()) std::rethrow_exception(left);
  } catch (const std::exception& exception) {
    keep(thrown, exception.what());
  } catch (...) {
    keep(thrown, "something that is no exception");
  }
  std::abort();
}

}  // namespace

void reportCrashes(const std::string& folder, const std::string& programVersion) {
  const bool on = !folder.empty();
  keep(file, folder + "/" + posix::FreshCrashFile);
  keep(version, programVersion);
  // The first call loads a library, which a handler may not.
  void* frame[1];
  (void)::backtrace(frame, 1);
  stack_t own{};
  own.ss_sp = stack.data();
  own.ss_size = stack.size();
  if (on) ::sigaltstack(&own, nullptr);
  struct sigaction action {};
  action.sa_handler = on ? onCrash : SIG_DFL;
  action.sa_flags = on ? static_cast<int>(SA_ONSTACK | SA_RESETHAND | SA_NODEFER) : 0;
  for (const int signal : Signals)
    ::sigaction(signal, &action, nullptr);
  if (on) std::set_terminate(onTerminate);
}

void noteDoing(std::string_view words) { keep(doing, words); }

namespace posix {

std::string takeCrashNotice(const std::string& folder, const std::string& shown) {
  const std::string fresh = folder + "/" + FreshCrashFile;
  const std::string text = readSystemFile(fresh.c_str());
  if (text.empty() || std::rename(fresh.c_str(), (folder + "/" + CrashFile).c_str()) != 0) return {};
  std::string words = "Varnholt ended by a fault the last time";
  if (const auto at = text.find(DoingTag); at != std::string::npos) {
    const std::string what = text.substr(at + DoingTag.size(), text.find('\r', at) - at - DoingTag.size());
    if (!what.empty()) words += ", at:  " + what;
  }
  return words + " !\rWhat is known of it stands in " + shown;
}

}  // namespace posix

}  // namespace varnholt::platform
