#pragma once

#include <QObject>

namespace varnholt::qt {

/// Knows what assistive technology does from what mouse and keys do. Its calls come over the bus, and whoever made one
/// waits for its end: a dialog that is opened inside of it would hold up the reader of the screen. Needs a
/// QApplication.
class AssistiveCalls : public QObject {
 public:
  AssistiveCalls();
  /// True when the last thing that came from outside was such a call.
  bool isWaitedFor() const { return waitedFor_; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool waitedFor_ = false;
};

}  // namespace varnholt::qt
