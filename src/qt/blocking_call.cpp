#include "qt/blocking_call.hpp"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWindow>

namespace varnholt::qt {
namespace {

bool isInput(QEvent::Type type) {
  switch (type) {
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
  case QEvent::MouseMove:
  case QEvent::Wheel:
  case QEvent::KeyPress:
  case QEvent::KeyRelease:
  case QEvent::ShortcutOverride:
  case QEvent::Shortcut:
  case QEvent::ContextMenu:
  case QEvent::TouchBegin:
  case QEvent::TouchUpdate:
  case QEvent::TouchEnd:
  case QEvent::DragEnter:
  case QEvent::DragMove:
  case QEvent::Drop:
  case QEvent::Close:
    return true;
  default:
    return false;
  }
}

// What comes again by itself, or makes no sense later.
bool isForgotten(QEvent::Type type) {
  return type == QEvent::MouseMove || type == QEvent::ShortcutOverride || type == QEvent::DragMove;
}

}  // namespace

struct InputHold::Held {
  QPointer<QObject> receiver;
  std::unique_ptr<QEvent> event;
};

InputHold::InputHold(QAbstractButton* button, std::function<void()> pressed)
    : button_(button), pressed_(std::move(pressed)) {
  QCoreApplication::instance()->installEventFilter(this);
  if (button_) connect(button_, &QAbstractButton::clicked, this, [this] { pressed_(); });
}

InputHold::~InputHold() {
  QCoreApplication::instance()->removeEventFilter(this);
  for (Held& held : held_)
    if (held.receiver) QCoreApplication::postEvent(held.receiver, held.event.release());
}

bool InputHold::eventFilter(QObject* watched, QEvent* event) {
  if (!isInput(event->type())) return false;
  if (button_ && goesToButton(watched, *event)) return false;
  if (button_ && event->type() == QEvent::Close && watched == button_->window()) {
    pressed_();
    event->ignore();
    return true;
  }
  if (!isForgotten(event->type())) held_.push_back({watched, std::unique_ptr<QEvent>(event->clone())});
  event->setAccepted(true);
  return true;
}

// Events come to the window of the system first and then to the widget.
bool InputHold::goesToButton(const QObject* watched, const QEvent& event) const {
  if (watched == button_) return true;
  const bool isItsWindow = watched == button_->window()->windowHandle();
  switch (event.type()) {
  case QEvent::ShortcutOverride:
    return true;  // eaten, no shortcut would be looked for
  case QEvent::Close:
    return isItsWindow;
  case QEvent::MouseButtonPress:
  case QEvent::MouseButtonRelease:
  case QEvent::MouseButtonDblClick:
    return isItsWindow && (button_->isDown() || isOnButton(static_cast<const QMouseEvent&>(event)));
  case QEvent::KeyPress:
  case QEvent::KeyRelease: {
    const int key = static_cast<const QKeyEvent&>(event).key();
    const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
    return presses && button_->hasFocus();
  }
  default:
    return false;
  }
}

bool InputHold::isOnButton(const QMouseEvent& event) const {
  return button_->rect().contains(button_->mapFrom(button_->window(), event.position().toPoint()));
}

// --- Helper --------------------------------------------------------------------------------------------------------

Helper::~Helper() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  wake_.notify_one();
  if (thread_.joinable()) thread_.join();
}

void Helper::run(std::function<void()> call, std::function<void()> done) {
  {
    const std::lock_guard lock(mutex_);
    jobs_.push_back({std::move(call), std::move(done)});
  }
  if (!thread_.joinable()) thread_ = std::thread([this] { work(); });
  wake_.notify_one();
}

void Helper::work() {
  std::unique_lock lock(mutex_);
  while (true) {
    wake_.wait(lock, [this] { return ending_ || !jobs_.empty(); });
    if (jobs_.empty()) return;
    Job job = std::move(jobs_.front());
    jobs_.pop_front();
    lock.unlock();
    job.call();
    job.done();
    lock.lock();
  }
}

}  // namespace varnholt::qt
