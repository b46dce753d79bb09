#pragma once

#include <QObject>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

class QAbstractButton;
class QEvent;
class QMouseEvent;
class QWidget;

namespace varnholt::qt {

/// Holds back what the user does while it lives: mouse, keys, touch and the close box wait and reach their receivers
/// afterwards in their order; mere mouse movement is forgotten. Drags are refused: their data are gone by then, and the
/// other program must not hear that its files were taken. Leaving input to the event loop's own
/// exclusion is not enough: posted events and those of accessibility tools pass it.
///
/// One button may work all the same: what goes to it passes, and `pressed` is called when it is clicked or the close
/// box of its window is, or Esc where that stands for the button.
class InputHold : public QObject {
 public:
  explicit InputHold(QAbstractButton* button = nullptr, std::function<void()> pressed = {});
  ~InputHold() override;
  /// Called for each close box; with a button for that of its window alone, since the others have to wait for it.
  std::function<void()> closing;
  bool escapePresses = false;
  /// The window of the button; null without one.
  QWidget* window() const;
  /// One window takes input all the same.
  void except(const QWidget* window) { excepted_ = window; }
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool isExcepted(const QObject* receiver) const;
  bool goesToButton(const QObject* watched, const QEvent& event) const;
  bool isItsEscape(const QObject* watched, const QEvent& event) const;
  bool isOnButton(const QMouseEvent& event) const;

  struct Held;

  const QWidget* excepted_ = nullptr;
  QAbstractButton* button_;
  std::function<void()> pressed_;
  std::vector<Held> held_;
};

/// A press of the mouse that was held back meant the row that it was made on. When another row stands there by the time
/// that it is delivered, it means nothing, and neither does what belongs to it.
class PastClicks {
 public:
  /// Of each event, before its receiver gets it: true for what is to be dropped.
  bool drops(const QObject& receiver, const QEvent& event);
  /// Such a press: what is drawn has to be what is there before it is looked at.
  static bool isHeldPress(const QEvent& event);

 private:
  bool dropped_ = false;
};

/// Calls that nobody waits for, each on a thread of its own.
class Aside {
 public:
  Aside();
  ~Aside();
  /// `done` is called on the thread of this object at a later turn, unless it has gone by then.
  void run(std::function<void()> call, std::function<void()> done);
  /// Some have not returned yet.
  bool busy() const;

 private:
  struct Shared;
  std::shared_ptr<Shared> shared_;
};

/// One helper thread that runs calls in their order. It is started with the first call.
class Helper {
 public:
  ~Helper();
  /// `done` is called on the helper thread.
  void run(std::function<void()> call, std::function<void()> done);

 private:
  struct Job {
    std::function<void()> call, done;
  };
  void work();

  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<Job> jobs_;
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace varnholt::qt
