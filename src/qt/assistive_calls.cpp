#include "qt/assistive_calls.hpp"

#include <QCoreApplication>
#include <QEvent>

namespace varnholt::qt {

AssistiveCalls::AssistiveCalls() { QCoreApplication::instance()->installEventFilter(this); }

bool AssistiveCalls::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
  case QEvent::MetaCall:
    if (watched->inherits("QDBusVirtualObject")) waitedFor_ = true;
    break;
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::Shortcut:
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::Wheel:
  case QEvent::TouchBegin:
  case QEvent::TouchEnd:
  case QEvent::InputMethod:
  case QEvent::Drop:
  case QEvent::Close:
    waitedFor_ = false;
    break;
  default:
    break;
  }
  return false;
}

}  // namespace varnholt::qt
