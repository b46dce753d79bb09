#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"
#include "qt/assistive_calls.hpp"
#include "qt/blocking_call.hpp"
#include "qt/drag_and_drop.hpp"
#include "qt/form_window.hpp"
#include "qt/pictures.hpp"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace varnholt::qt {

/// The message loop of the drawn program. Needs a QApplication, which outlives it; forms end before it does.
///
/// Changes of forms and controls are drawn together at the next turn, and at most once a frame (16 ms), so that a
/// handler that gives a turn for each of many thousand items spends its time on the items. The next key comes behind
/// them.
class QtMessageLoop : public QObject, public controls::MessageLoop, private WindowLoop {
  Q_OBJECT
 public:
  QtMessageLoop();
  ~QtMessageLoop() override;

  /// How pictures are read (skins, line images, previews). Without it there are none.
  void setPictureReader(Pictures::Reader reader) { pictures_.setReader(std::move(reader)); }
  /// Files on their way between the program's lists and other programs. Needs to be told the system's paths.
  DragAndDrop& dragAndDrop() override { return dragAndDrop_; }
  /// Runs until quit(); gives the exit code.
  int exec();

  void giveTurn() override;
  void runModal(controls::Form& form) override;
  void runBlocking(const std::function<void()>& call, const controls::Meanwhile& meanwhile = {}) override;
  void runBeside(std::function<void()> call, std::function<void()> done) override;
  /// What stores the program's state and ends the process when the user leaves and a call does not return.
  void setLeave(std::function<void()> leave) { leave_ = std::move(leave); }
  /// From now on calls run on the window's thread: nothing can be drawn any more.
  void runNoEvents() { ++blocked_; }
  /// True while handlers are at work or a dialog is open.
  bool isBusy() const { return blocked_ > 0 || turns_ > 0 || !modals_.empty(); }
  /// Calls beside the window have not returned yet; what they use must not go.
  bool hasCallsBeside() const { return aside_.busy(); }
  controls::MessageAnswer show(const controls::MessageBox& box) override;
  void quit() override;
  void later(std::function<void()> call) override;

  void attach(controls::Form& form) override;
  void changed(controls::Form& form) override;
  void detach(controls::Form& form) override;

  /// Draws now what has changed.
  void flush();
  bool eventFilter(QObject* watched, QEvent* event) override;
  /// The window of a form, null while it was never shown.
  FormWindow* windowOf(const controls::Form& form) const;

 private:
  // A form may go away in a handler that its own window or timer has called: both end at the next turn.
  struct EndLater {
    void operator()(FormWindow* window) const;
    void operator()(QTimer* timer) const;
  };
  struct Entry {
    std::unique_ptr<FormWindow, EndLater> window;
    std::map<const controls::Timer*, std::unique_ptr<QTimer, EndLater>> timers;
    bool dirty = false;
  };
  struct Modal {
    controls::Form* form;  ///< null once the form is gone
    QEventLoop* loop;
  };

  // WindowLoop
  bool isBlocked() const override { return blocked_ > 0; }
  bool isWaitedFor() const override { return assistiveCalls_.isWaitedFor(); }
  Pictures& pictures() override { return pictures_; }

  void dress();
  void drawForm(controls::Form& form);
  void showOrHide(controls::Form& form, Entry& entry, bool modal);
  void endHiddenModals();
  void updateTimer(Entry& entry, const controls::Timer& timer);
  void tick(controls::Form& form, const controls::Timer& timer);
  void runLaterCalls();
  void updatePointer();
  bool mayLeave(InputHold& hold, unsigned call);
  void leaveUnlessItReturns(InputHold& hold, unsigned call);
  bool isRunning(unsigned call) const { return running_ == call; }
  void readScreen();
  /// Gives the event loop its turns until the call has returned or the program ends.
  void waitFor(unsigned call, QEventLoop& events, const controls::Meanwhile& meanwhile);
  bool isModal(const controls::Form& form) const;

  std::map<controls::Form*, Entry> forms_;
  std::vector<Modal> modals_;
  std::deque<std::function<void()>> laterCalls_;
  AssistiveCalls assistiveCalls_;
  Pictures pictures_;
  DragAndDrop dragAndDrop_;
  PastClicks pastClicks_;
  Helper helper_;
  Aside aside_;
  std::function<void()> leave_;
  QTimer drawTimer_, laterTimer_;
  QElapsedTimer sinceDrawn_;
  int blocked_ = 0, turns_ = 0;
  unsigned calls_ = 0;                 ///< of runBlocking so far
  std::atomic<unsigned> running_ = 0;  ///< the number of the one that has not returned, else 0
  bool quitting_ = false, leaving_ = false;
  std::optional<int> shownPointer_;
};

}  // namespace varnholt::qt
