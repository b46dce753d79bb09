#include "qt/leave_signals.hpp"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace varnholt::qt {
namespace {

constexpr int Signals[] = {SIGTERM, SIGHUP, SIGINT};
std::atomic<int> told = -1;

// A handler of signals may do next to nothing: it writes a byte, and the message loop reads it.
void tell(int) {
  const int error = errno;
  (void)!::write(told, "", 1);
  errno = error;
}

}  // namespace

LeaveSignals::LeaveSignals() {
  connect(
      qGuiApp, &QGuiApplication::commitDataRequest, this,
      [this](QSessionManager&) {
        if (store) store();
      },
      Qt::DirectConnection);
  qGuiApp->installEventFilter(this);
  if (::pipe2(ends_, O_CLOEXEC | O_NONBLOCK) != 0) return;
  told = ends_[1];
  notifier_ = new QSocketNotifier(ends_[0], QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, [this] { read(); });
  struct sigaction action {};
  action.sa_handler = tell;
  action.sa_flags = SA_RESTART;
  for (const int signal : Signals) {
    struct sigaction before {};
    // Whoever started the program with a signal ignored wants it to outlive that.
    if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
      ::sigaction(signal, &action, nullptr);
  }
}

LeaveSignals::~LeaveSignals() {
  for (const int signal : Signals)
    ::signal(signal, SIG_DFL);
  told = -1;
  for (const int end : ends_)
    if (end >= 0) ::close(end);
}

bool LeaveSignals::eventFilter(QObject* object, QEvent* event) {
  // Behind it the session's manager ends its programs. The toolkit would ask each window to close, and the main one
  // does not while a dialog stands.
  if (object != qGuiApp || event->type() != QEvent::Quit || !leave) return false;
  leave();
  return true;
}

void LeaveSignals::read() {
  char bytes[16];
  while (::read(ends_[0], bytes, sizeof bytes) > 0) {
  }
  if (leave) leave();
}

}  // namespace varnholt::qt
