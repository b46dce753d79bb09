#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <cstdlib>

namespace varnholt::bench {

/// Ends the process as soon as a window of that object name (any window for an empty name) has been painted and handed
/// to the display.
class FirstPaint : public QObject {
 public:
  explicit FirstPaint(QString window) : window_(std::move(window)) {
    QCoreApplication::instance()->installEventFilter(this);
  }

  bool eventFilter(QObject* object, QEvent* event) override {
    auto* widget = event->type() == QEvent::Paint ? qobject_cast<QWidget*>(object) : nullptr;
    if (widget && (window_.isEmpty() || widget->window()->objectName() == window_))
      QTimer::singleShot(0, [] { std::_Exit(0); });
    return false;
  }

 private:
  QString window_;
};

}  // namespace varnholt::bench
