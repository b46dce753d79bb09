#include "qt/blocking_call.hpp"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCoreApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

#include <chrono>
#include <system_error>

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
  case QEvent::Close:
    return true;
  default:
    return false;
  }
}

bool isDrag(QEvent::Type type) { return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop; }

void refuse(QObject& receiver, QDropEvent& drag) {
  drag.setDropAction(Qt::IgnoreAction);
  drag.ignore();
  if (drag.type() != QEvent::Drop) return;
  // What took the drag in before must not wait for its drop any more.
  QDragLeaveEvent leave;
  QCoreApplication::sendEvent(&receiver, &leave);
}

// What comes again by itself, or makes no sense later.
bool isForgotten(QEvent::Type type) { return type == QEvent::MouseMove || type == QEvent::ShortcutOverride; }

/// The texts that name the row of a list or tree at a place; empty where none is.
QString rowUnder(const QObject& receiver, const QPoint& at) {
  const auto* widget = qobject_cast<const QWidget*>(&receiver);
  for (const QWidget* window : QApplication::topLevelWidgets())
    if (window->windowHandle() == &receiver) widget = window;
  if (!widget) return {};
  const QWidget* child = widget->childAt(at);
  if (!child) child = widget;
  const auto* view = qobject_cast<const QAbstractItemView*>(child->parentWidget());
  if (!view || view->viewport() != child) return {};
  const QModelIndex index = view->indexAt(child->mapFrom(widget, at));
  return index.isValid()
             ? index.siblingAtColumn(0).data().toString() + QChar::LineFeed + index.siblingAtColumn(1).data().toString()
             : QString();
}

class HeldPress : public QMouseEvent {
 public:
  HeldPress(const QObject& receiver, const QMouseEvent& press)
      : QMouseEvent(press), row_(rowUnder(receiver, press.position().toPoint())) {}
  HeldPress* clone() const override { return new HeldPress(*this); }
  bool isPast(const QObject& receiver) const { return rowUnder(receiver, position().toPoint()) != row_; }

 private:
  QString row_;
};

bool isPress(const QEvent& event) {
  return event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick;
}

/// A copy that outlives the event. One that is held once more keeps what it has noted first.
std::unique_ptr<QEvent> kept(const QObject& receiver, const QEvent& event) {
  if (!isPress(event) || PastClicks::isHeldPress(event)) return std::unique_ptr<QEvent>(event.clone());
  return std::make_unique<HeldPress>(receiver, static_cast<const QMouseEvent&>(event));
}

}  // namespace

bool PastClicks::isHeldPress(const QEvent& event) {
  return isPress(event) && dynamic_cast<const HeldPress*>(&event) != nullptr;
}

bool PastClicks::drops(const QObject& receiver, const QEvent& event) {
  if (isPress(event)) {
    const auto* held = dynamic_cast<const HeldPress*>(&event);
    return dropped_ = held && held->isPast(receiver);
  }
  return event.type() == QEvent::MouseButtonRelease && std::exchange(dropped_, false);
}

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

bool InputHold::isExcepted(const QObject* receiver) const {
  if (!excepted_) return false;
  if (receiver == excepted_->windowHandle()) return true;
  const auto* widget = qobject_cast<const QWidget*>(receiver);
  return widget && widget->window() == excepted_;
}

bool InputHold::eventFilter(QObject* watched, QEvent* event) {
  if (isDrag(event->type())) {
    refuse(*watched, static_cast<QDropEvent&>(*event));
    return true;
  }
  if (!isInput(event->type()) || isExcepted(watched)) return false;
  if (isItsEscape(watched, *event)) {
    if (event->type() == QEvent::KeyPress) pressed_();
    return true;
  }
  if (button_ && goesToButton(watched, *event)) return false;
  if (event->type() == QEvent::Close && closing && (!button_ || watched == button_->window())) closing();
  if (button_ && event->type() == QEvent::Close && watched == button_->window()) {
    pressed_();
    event->ignore();
    return true;
  }
  if (!isForgotten(event->type())) held_.push_back({watched, kept(*watched, *event)});
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

QWidget* InputHold::window() const { return button_ ? button_->window() : nullptr; }

bool InputHold::isItsEscape(const QObject* watched, const QEvent& event) const {
  if (!button_ || !escapePresses || (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease))
    return false;
  const auto* widget = qobject_cast<const QWidget*>(watched);
  const bool isInItsWindow = widget ? widget->window() == window() : watched == window()->windowHandle();
  return isInItsWindow && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

bool InputHold::isOnButton(const QMouseEvent& event) const {
  return button_->rect().contains(button_->mapFrom(button_->window(), event.position().toPoint()));
}

// --- Aside ---------------------------------------------------------------------------------------------------------

/// Outlives the object for calls that have not returned when it goes.
struct Aside::Shared {
  std::mutex mutex;
  QObject* receiver = nullptr;
  int running = 0;
};

Aside::Aside() : shared_(std::make_shared<Shared>()) { shared_->receiver = new QObject; }

Aside::~Aside() {
  // A call that is about to return uses what goes next.
  for (int waits = 0; waits < 100 && busy(); ++waits)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  const std::lock_guard lock(shared_->mutex);
  delete std::exchange(shared_->receiver, nullptr);
}

bool Aside::busy() const {
  const std::lock_guard lock(shared_->mutex);
  return shared_->running > 0;
}

void Aside::run(std::function<void()> call, std::function<void()> done) {
  {
    const std::lock_guard lock(shared_->mutex);
    ++shared_->running;
  }
  const auto work = [shared = shared_, call = std::move(call), done = std::move(done)] {
    call();
    const std::lock_guard lock(shared->mutex);
    --shared->running;
    if (shared->receiver) QMetaObject::invokeMethod(shared->receiver, done, Qt::QueuedConnection);
  };
  try {
    std::thread(work).detach();
  } catch (const std::system_error&) {
    // No thread to be had: rather late than never.
    work();
  }
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
