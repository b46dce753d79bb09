#include "qt/qt_message_loop.hpp"

#include "qt/input.hpp"
#include "qt/message_box.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QScreen>
#include <QSemaphore>

#include <algorithm>
#include <chrono>

namespace varnholt::qt {
namespace {

constexpr int FrameMilliseconds = 16;
// A call that ends within this time is simply waited for: nobody sees a window that stands still for two frames, and
// thousands of short calls cost no event loop each.
constexpr int ShortCallMilliseconds = 30;
constexpr std::chrono::milliseconds QueuedInput{500};
// How long a call may go on behind the close box.
constexpr std::chrono::milliseconds Patience{2000};
constexpr int MeanwhileMilliseconds = 100;

const QWidget* callerWindow() {
  if (const QWidget* modal = QApplication::activeModalWidget()) return modal;
  // A window that has just been hidden is the active one until the window system tells of another.
  if (const QWidget* active = QApplication::activeWindow(); active && active->isVisible()) return active;
  const auto tops = QApplication::topLevelWidgets();
  const auto shown = std::ranges::find_if(
      tops, [](const QWidget* each) { return each->isVisible() && each->windowType() == Qt::Window; });
  return shown == tops.end() ? nullptr : *shown;
}

}  // namespace

QtMessageLoop::QtMessageLoop() {
  readScreen();
  QApplication::setQuitOnLastWindowClosed(false);
  drawTimer_.setSingleShot(true);
  laterTimer_.setSingleShot(true);
  connect(&drawTimer_, &QTimer::timeout, this, &QtMessageLoop::flush);
  connect(&laterTimer_, &QTimer::timeout, this, &QtMessageLoop::runLaterCalls);
  connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
          &QtMessageLoop::updatePointer);
  QCoreApplication::instance()->installEventFilter(this);
}

QtMessageLoop::~QtMessageLoop() {
  forms_.clear();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtMessageLoop::EndLater::operator()(FormWindow* window) const {
  window->abandon();
  window->deleteLater();
}

void QtMessageLoop::EndLater::operator()(QTimer* timer) const {
  timer->stop();
  timer->deleteLater();
}

void QtMessageLoop::readScreen() {
  const QScreen* primary = QGuiApplication::primaryScreen();
  if (!primary) return;
  screen_.width = primary->geometry().width() * controls::TwipsPerPixel;
  screen_.height = primary->geometry().height() * controls::TwipsPerPixel;
}

int QtMessageLoop::exec() { return quitting_ ? 0 : QCoreApplication::exec(); }

// exit() rather than the application's quit(), which would first ask every window to close, and so the program twice.
void QtMessageLoop::quit() {
  quitting_ = true;
  QMetaObject::invokeMethod(
      this, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}

// --- Drawing -------------------------------------------------------------------------------------------------------

void QtMessageLoop::attach(controls::Form& form) { forms_[&form]; }

void QtMessageLoop::changed(controls::Form& form) {
  const auto entry = forms_.find(&form);
  if (entry == forms_.end()) return;
  entry->second.dirty = true;
  // Frames keep changes of contents apart. The user waits for a window that comes or goes, and so does what follows.
  const FormWindow* window = entry->second.window.get();
  if (form.Visible != (window && window->widget().isVisible())) return drawTimer_.start(0);
  if (drawTimer_.isActive()) return;
  const auto since = sinceDrawn_.isValid() ? sinceDrawn_.elapsed() : FrameMilliseconds;
  drawTimer_.start(static_cast<int>(std::max<qint64>(0, FrameMilliseconds - since)));
}

void QtMessageLoop::detach(controls::Form& form) {
  for (Modal& modal : modals_) {
    if (modal.form != &form) continue;
    modal.form = nullptr;
    modal.loop->quit();
  }
  forms_.erase(&form);
}

// A skin's colours reach everything that is drawn, also what has not changed.
void QtMessageLoop::dress() {
  const controls::Dress& dress = screen_.Dress;
  theme::Tint tint;
  for (const auto& [color, part] :
       {std::pair{dress.accent, &tint.accent}, {dress.surface, &tint.surface}, {dress.ground, &tint.ground}})
    if (color != controls::NoColor) *part = theme::colorOf(color);
  if (!theme::wear(tint)) return;
  theme::applyPalette();
  for (auto& [form, entry] : forms_)
    if (entry.window) entry.window->update(form->controls());
}

void QtMessageLoop::flush() {
  drawTimer_.stop();
  dress();
  std::vector<controls::Form*> dirty;
  for (auto& [form, entry] : forms_)
    if (std::exchange(entry.dirty, false)) dirty.push_back(form);
  // What comes stands on a window that stays.
  std::stable_partition(dirty.begin(), dirty.end(), [](const controls::Form* form) { return !form->Visible; });
  for (controls::Form* form : dirty)
    if (forms_.contains(form)) drawForm(*form);
  endHiddenModals();
  updatePointer();
  sinceDrawn_.start();
}

// Keys that were typed ahead come in one go: what one of them has moved, the keyboard above all, is where the next one
// looks for it.
bool QtMessageLoop::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  const bool isKey = type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride;
  if ((isKey || PastClicks::isHeldPress(*event)) && drawTimer_.isActive()) flush();
  return pastClicks_.drops(*watched, *event);
}

void QtMessageLoop::drawForm(controls::Form& form) {
  Entry& entry = forms_[&form];
  const auto changed = form.takeChangedControls();
  for (controls::Control* control : changed) {
    control->takeChanged();
    if (control->kind() == controls::Kind::Timer) updateTimer(entry, static_cast<controls::Timer&>(*control));
  }
  if (entry.window) entry.window->update(changed);
  showOrHide(form, entry, isModal(form));
}

void QtMessageLoop::showOrHide(controls::Form& form, Entry& entry, bool modal) {
  if (!form.Visible) {
    if (entry.window) entry.window->hide();
    return;
  }
  if (!entry.window) entry.window.reset(FormWindow::make(*this, form).release());
  if (!entry.window) {
    qWarning("no form is drawn for %s", form.name().c_str());
    form.Visible = false;
    return;
  }
  const QWidget* caller = callerWindow();
  entry.window->show(modal, caller == &entry.window->widget() ? nullptr : caller);
}

FormWindow* QtMessageLoop::windowOf(const controls::Form& form) const {
  const auto entry = forms_.find(const_cast<controls::Form*>(&form));
  return entry == forms_.end() ? nullptr : entry->second.window.get();
}

void QtMessageLoop::updatePointer() {
  const int wanted = screen_.MousePointer;
  if (shownPointer_.value_or(controls::pointer::Default) == wanted) return;
  if (shownPointer_) QApplication::restoreOverrideCursor();
  shownPointer_.reset();
  if (wanted == controls::pointer::Default) return;
  QApplication::setOverrideCursor(cursorOf(wanted));
  shownPointer_ = wanted;
}

// --- Turns and modal forms -----------------------------------------------------------------------------------------

void QtMessageLoop::giveTurn() {
  if (!sinceDrawn_.isValid() || sinceDrawn_.elapsed() >= FrameMilliseconds) flush();
  ++turns_;
  QCoreApplication::processEvents();
  --turns_;
}

bool QtMessageLoop::isModal(const controls::Form& form) const {
  return std::ranges::any_of(modals_, [&](const Modal& modal) { return modal.form == &form; });
}

void QtMessageLoop::endHiddenModals() {
  for (const Modal& modal : modals_)
    if (!modal.form || !modal.form->Visible) modal.loop->quit();
}

// An outer loop that has been told to end can only do so after the inner ones, so the form may have been shown again by
// then: it is asked once more.
void QtMessageLoop::runModal(controls::Form& form) {
  QEventLoop loop;
  const std::size_t depth = modals_.size();
  modals_.push_back({&form, &loop});
  form.Visible = true;
  const auto isOpen = [&] {
    const controls::Form* shown = modals_[depth].form;
    return shown && shown->Visible && !quitting_;
  };
  const QPointer<QWidget> caller = const_cast<QWidget*>(callerWindow());
  flush();
  while (isOpen())
    loop.exec();
  modals_.erase(modals_.begin() + static_cast<std::ptrdiff_t>(depth), modals_.end());
  flush();
  if (caller && caller->isVisible() && !quitting_) caller->activateWindow();
}

void QtMessageLoop::runBeside(std::function<void()> call, std::function<void()> done) {
  aside_.run(std::move(call), [this, done = std::move(done)] { later(done); });
}

// The close box waits like all input. When the call goes on as if nobody had asked, its drive does not answer, and the
// user leaves without it. Behind the close box of a dialog he may have meant less than that.
void QtMessageLoop::leaveUnlessItReturns(InputHold& hold, unsigned call) {
  if (!leave_ || leaving_) return;
  leaving_ = true;
  QTimer::singleShot(Patience, this, [this, &hold, call] {
    // The hold goes with its call.
    const auto isDialogs = [&hold] { return QApplication::activeModalWidget() || hold.window(); };
    if (isRunning(call) && (!isDialogs() || mayLeave(hold, call))) leave_();
    leaving_ = false;
  });
}

bool QtMessageLoop::mayLeave(InputHold& hold, unsigned call) {
  QTimer returned;
  const auto opening = [&](QDialog& question) {
    connect(&returned, &QTimer::timeout, &question, [this, &question, call] {
      if (!isRunning(call)) question.reject();
    });
    returned.start(FrameMilliseconds);
    hold.except(&question);
  };
  const auto answer =
      showMessageBox({"Alert !", "A drive does not answer.\r\rEnd Varnholt without waiting for it ?",
                      controls::MessageIcon::Exclamation, controls::MessageButtons::YesNo},
                     QApplication::activeModalWidget() ? QApplication::activeModalWidget() : hold.window(), opening);
  hold.except(nullptr);
  return answer == controls::MessageAnswer::Yes && isRunning(call);
}

void QtMessageLoop::runBlocking(const std::function<void()>& call, const controls::Meanwhile& meanwhile) {
  // Somebody works on although a call does not return: the state is stored in front of the end.
  if (blocked_ > 0) return call();
  QSemaphore done;
  QEventLoop loop;
  const unsigned number = ++calls_;
  running_ = number;
  ++blocked_;
  helper_.run(call, [&] {
    running_ = 0;
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
    done.release();
  });
  if (!done.tryAcquire(1, ShortCallMilliseconds)) {
    flush();
    waitFor(number, loop, meanwhile);
    done.acquire();
  }
  if (--blocked_ == 0 && !laterCalls_.empty()) laterTimer_.start(0);
}

void QtMessageLoop::waitFor(unsigned call, QEventLoop& events, const controls::Meanwhile& meanwhile) {
  FormWindow* window = meanwhile.stop ? windowOf(meanwhile.stop->form()) : nullptr;
  auto* stop = window ? window->widget().findChild<QAbstractButton*>(toQt(meanwhile.stop->name())) : nullptr;
  InputHold hold(stop, [&] { meanwhile.stop->press(); });
  hold.escapePresses = meanwhile.stop && meanwhile.stop->form().cancelButton == meanwhile.stop->name();
  hold.closing = [&] { leaveUnlessItReturns(hold, call); };
  QTimer ticks;
  if (meanwhile.tick) {
    connect(&ticks, &QTimer::timeout, &events, meanwhile.tick);
    ticks.start(MeanwhileMilliseconds);
  }
  // The window system's input waits best in its own queue; but there the close box of a call that takes long is never
  // seen.
  auto flags = stop ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents;
  if (!stop)
    QTimer::singleShot(QueuedInput, &events, [&] {
      flags = QEventLoop::AllEvents;
      events.quit();
    });
  do
    events.exec(flags);
  while (isRunning(call) && !quitting_);
}

controls::MessageAnswer QtMessageLoop::show(const controls::MessageBox& box) {
  flush();
  return showMessageBox(box, QApplication::activeModalWidget() ? QApplication::activeModalWidget()
                                                               : QApplication::activeWindow());
}

// --- Timers and later calls ----------------------------------------------------------------------------------------

// A timer that was changed starts anew, even when it ends as it was: it was switched off and on in between.
void QtMessageLoop::updateTimer(Entry& entry, const controls::Timer& timer) {
  auto& drawn = entry.timers[&timer];
  if (!timer.Enabled || timer.Interval <= 0) {
    if (drawn) drawn->stop();
    return;
  }
  if (!drawn) {
    drawn.reset(new QTimer);
    connect(drawn.get(), &QTimer::timeout, this, [this, &timer] { tick(timer.form(), timer); });
  }
  drawn->start(timer.Interval);
}

void QtMessageLoop::tick(controls::Form& form, const controls::Timer& timer) {
  if (!timer.Enabled) return;
  if (!blocked_) return timer.Tick();
  later([this, &form, &timer] {
    if (forms_.contains(&form) && timer.Enabled) timer.Tick();
  });
}

void QtMessageLoop::later(std::function<void()> call) {
  laterCalls_.push_back(std::move(call));
  if (!laterTimer_.isActive()) laterTimer_.start(0);
}

void QtMessageLoop::runLaterCalls() {
  if (blocked_) return;
  // Calls that the calls ask for wait for the next turn. A call may open a dialog: what is left must not wait for it.
  for (auto left = laterCalls_.size(); left > 0 && !laterCalls_.empty(); --left) {
    const auto call = std::move(laterCalls_.front());
    laterCalls_.pop_front();
    if (!laterCalls_.empty()) laterTimer_.start(0);
    call();
    if (blocked_) return;
  }
}

}  // namespace varnholt::qt
