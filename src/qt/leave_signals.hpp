#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace varnholt::qt {

/// The system's ways of ending the program: SIGTERM, SIGHUP and SIGINT, and the end of the desktop session. Lives once,
/// beside the application object.
class LeaveSignals : public QObject {
 public:
  LeaveSignals();
  ~LeaveSignals() override;

  bool eventFilter(QObject* object, QEvent* event) override;

  std::function<void()> store;  ///< the session ends: what is open may be asked for later, so the program goes on
  std::function<void()> leave;  ///< called at a turn of the message loop, whichever handler gives it

 private:
  void read();

  int ends_[2] = {-1, -1};
  QSocketNotifier* notifier_ = nullptr;
};

}  // namespace varnholt::qt
