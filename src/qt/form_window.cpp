#include "qt/form_window.hpp"

#include "controls/standard.hpp"
#include "qt/form_table.hpp"
#include "qt/input.hpp"
#include "qt/pictures.hpp"
#include "qt/text.hpp"
#include "qt/widgets/scroller.hpp"
#include "qt/widgets/surface.hpp"

#include <QAbstractButton>
#include <QApplication>
#include <QLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMouseEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <utility>

namespace varnholt::qt {
namespace {

bool canBegin(const QWidget& widget) {
  const auto* line = qobject_cast<const QLineEdit*>(&widget);
  return (widget.focusPolicy() & Qt::TabFocus) && widget.isEnabled() && !widget.isHidden() &&
         !(line && line->isReadOnly());
}

// What a window manager puts around a window, about: kept free when a window is fitted to the screen.
constexpr int FrameAllowance = 32, FrameSides = 8;

// A stored number may be anything.
int pixels(controls::Twips twips) {
  constexpr double Most = 1e6;
  return static_cast<int>(std::lround(std::clamp(twips / controls::TwipsPerPixel, -Most, Most)));
}

bool isDrawn(const controls::Control& control) {
  return control.kind() != controls::Kind::Timer && control.kind() != controls::Kind::MenuItem;
}

QRect roomOn(const QRect& screen) { return screen.adjusted(0, 0, 0, -FrameAllowance); }

// `window` stands with its frame's corner where it says, and is as large as its inside.
QRect fittedToScreen(QRect window, const QRect& screen) {
  const QRect room = roomOn(screen);
  window.setSize(window.size().boundedTo(room.size()));
  window.moveLeft(std::clamp(window.left(), room.left(), std::max(room.left(), room.right() - window.width() + 1)));
  window.moveTop(std::clamp(window.top(), room.top(), std::max(room.top(), room.bottom() - window.height() + 1)));
  return window;
}

}  // namespace

// --- Life ----------------------------------------------------------------------------------------------------------

std::unique_ptr<FormWindow> FormWindow::make(WindowLoop& loop, controls::Form& form) {
  auto widget = buildForm(form.name());
  if (!widget) return nullptr;
  return std::unique_ptr<FormWindow>(new FormWindow(loop, form, std::move(widget)));
}

FormWindow::FormWindow(WindowLoop& loop, controls::Form& form, std::unique_ptr<QWidget> widget)
    : loop_(loop), form_(form), widget_(widget.release()) {
  updateSkin();  // first: its picture is decoded while the controls are joined
  joinControls();
  widget_->installEventFilter(this);
  for (controls::Control* control : form_.controls())
    control->takeChanged();
  update(form_.controls());
}

FormWindow::~FormWindow() {
  abandon();
  menu_.reset();
  adapters_.clear();
  delete widget_;
}

void FormWindow::abandon() {
  if (!std::exchange(*alive_, false) || !widget_) return;
  widget_->removeEventFilter(this);
  if (menu_) menu_->blockSignals(true);
  for (const auto& [control, adapter] : adapters_)
    adapter->abandon();
  widget_->setEnabled(false);
  widget_->hide();
}

void FormWindow::joinControls() {
  for (controls::Control* control : form_.controls()) {
    if (!isDrawn(*control)) continue;
    auto* widget = widget_->findChild<QWidget*>(toQt(control->name()));
    auto adapter = widget ? join(*this, *control, *widget) : nullptr;
    if (adapter) {
      adapters_[control] = std::move(adapter);
    } else {
      unjoined_.push_back(control->name());
    }
  }
  Host& host = *this;
  if (auto* main = qobject_cast<QMainWindow*>(widget_.data()))
    menu_ = std::make_unique<MenuBar>(host, *main->menuBar(), form_.controls());
}

// --- From the form to the widget -----------------------------------------------------------------------------------

void FormWindow::update(const std::vector<controls::Control*>& changed) {
  const QScopedValueRollback reporting(updating_, true);
  const bool formChanged = form_.takeChanged();
  // Controls that come up may make the window larger, which would be noted as its place.
  const bool free = form_.WindowState == controls::WindowState::Normal;
  const bool moves = formChanged && free && placedByProgram() && widget_->isVisible();
  const QRect wanted = wantedPlace();
  if (formChanged) {
    updateForm();
    showDefaultButton();
  }
  for (const controls::Control* control : changed)
    updateControl(*control);
  updateMenu(changed);
  updateGroups();
  updateNames();
  updateFocus();
  if (moves) updatePlace(wanted);
}

// How a control looks may depend on its twin.
void FormWindow::updateControl(const controls::Control& control) {
  const auto adapter = adapters_.find(&control);
  if (adapter == adapters_.end()) return;
  adapter->second->update();
  const auto twin = adapters_.find(adapter->second->twin());
  if (twin != adapters_.end()) twin->second->update();
}

void FormWindow::updateForm() {
  widget_->setWindowTitle(toShown(form_.Caption.get()));
  widget_->setAccessibleName(widget_->windowTitle());
  updateSkin();
  const auto wanted = form_.WindowState.get();
  Qt::WindowStates states = widget_->windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
  if (wanted == controls::WindowState::Minimized) states |= Qt::WindowMinimized;
  if (wanted == controls::WindowState::Maximized) states |= Qt::WindowMaximized;
  if (states != widget_->windowState()) widget_->setWindowState(states);
}

// Behind the controls: what has come or gone among them decides how small the window can be.
void FormWindow::updatePlace(const QRect& wanted) {
  updateLayout();
  putAt(wanted, widget_->screen()->availableGeometry());
}

void FormWindow::updateSkin() {
  if (skin_ == form_.Picture.get()) return;
  skin_ = form_.Picture.get();
  Skin::Source skin;
  if (!skin_.empty()) skin = [this, path = skin_](const QSize& area) { return loop_.pictures().covering(path, area); };
  if (auto* dialog = qobject_cast<SkinDialog*>(widget_.data())) dialog->setSkin(skin);
  auto* backdrop = widget_->findChild<Backdrop*>();
  if (!backdrop) return;
  backdrop->setSkin(skin);
  if (!skin_.empty() && !widget_->isVisible()) loop_.pictures().decodeAhead(skin_, comingSize() * Skin::Sharpness);
}

// Before the window is placed: as large as it stood, or as it was drawn.
QSize FormWindow::comingSize() const {
  const QSize size = hasPlace() ? wantedPlace().size() : widget_->size();
  const QScreen* screen = QGuiApplication::primaryScreen();
  return screen ? size.boundedTo(screen->availableSize()) * screen->devicePixelRatio() : size;
}

void FormWindow::updateMenu(const std::vector<controls::Control*>& changed) {
  if (!menu_) return;
  if (!menu_->isComplete()) return menu_->rebuild();
  menu_->update(changed);
}

// A surface that holds only invisible controls gives its room away, and a dialog its height. The main window is as high
// as the user has made it.
void FormWindow::updateGroups() {
  const int before = widget_->height();
  int grown = 0;
  for (auto* surface : widget_->findChildren<Surface*>()) {
    if (!surface->property("hideWhenEmpty").toBool()) continue;
    const bool used = std::ranges::any_of(adapters_, [&](const auto& joined) {
      return joined.first->Visible && surface->isAncestorOf(&joined.second->widget());
    });
    if (surface->isHidden() != used) continue;
    surface->setVisible(used);
    const int height = surface->sizeHint().height() + std::max(widget_->layout()->spacing(), 0);
    grown += used ? height : -height;
  }
  if (grown != 0 && widget_->isVisible() && qobject_cast<QDialog*>(widget_.data())) setHeight(before + grown);
}

// One that grows at the lower edge of the screen moves up.
void FormWindow::setHeight(int height) {
  const QRect screen = widget_->screen()->availableGeometry();
  widget_->layout()->activate();
  widget_->resize(widget_->width(), std::min(height, screen.height()));
  const QRect frame = widget_->frameGeometry();
  const int below = frame.bottom() - screen.bottom();
  if (below > 0) widget_->move(frame.x(), std::max(frame.y() - below, screen.y()));
}

// A name may depend on other controls: a field is called what its label says.
void FormWindow::updateNames() {
  for (const auto& [control, adapter] : adapters_) {
    const QString name = adapter->accessibleName();
    if (adapter->widget().accessibleName() != name) adapter->widget().setAccessibleName(name);
  }
}

void FormWindow::updateFocus() {
  const auto adapter = adapters_.find(form_.focused());
  if (adapter == adapters_.end()) return;
  QWidget& wanted = adapter->second->widget();
  if (widget_->focusWidget() != &wanted) wanted.setFocus(Qt::OtherFocusReason);
}

// --- Showing -------------------------------------------------------------------------------------------------------

void FormWindow::show(bool modal, const QWidget* caller) {
  if (widget_->isVisible()) return;
  const QScopedValueRollback reporting(updating_, true);
  widget_->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  widget_->ensurePolished();
  place(caller);
  widget_->winId();
  QWindow *const own = widget_->windowHandle(), *const above = caller ? caller->window()->windowHandle() : nullptr;
  // Two windows that stood on each other in turn must not form a circle: the toolkit would walk it without end.
  if (above && !own->isAncestorOf(above, QWindow::IncludeTransients) && above != own) own->setTransientParent(above);
  if (QWidget* first = firstFocus()) first->setFocus(Qt::OtherFocusReason);
  showDefaultButton();
  widget_->show();
  // A window that is used beside others has the keyboard when its form says so.
  if (modal || form_.focused()) widget_->activateWindow();
  keepKeyboard();
}

// A dialog that went and comes again before the window system has told of the first is still its window with the
// keyboard: nothing more would be told, and the widgets, which took its going for the end of that, would stay deaf.
void FormWindow::keepKeyboard() {
  if (QGuiApplication::focusWindow() != widget_->windowHandle() || widget_->isActiveWindow()) return;
  QT_WARNING_PUSH
  QT_WARNING_DISABLE_DEPRECATED
  QApplication::setActiveWindow(widget_);
  QT_WARNING_POP
}

void FormWindow::hide() {
  const QScopedValueRollback reporting(updating_, true);
  widget_->hide();
  // The place that the program gave holds for the next time, too.
  if (placed_) noted_ = {};
}

bool FormWindow::hasPlace() const { return form_.Width > 0 && form_.Height > 0; }

bool FormWindow::placedByProgram() const { return hasPlace() && wantedPlace() != noted_; }

QRect FormWindow::wantedPlace() const {
  return {pixels(form_.Left), pixels(form_.Top), pixels(form_.Width), pixels(form_.Height)};
}

void FormWindow::place(const QWidget* caller) {
  // Dialogs stand on their caller each time anew, the other windows where they stood.
  const bool staysWhereItStood = widget_->windowType() == Qt::Window || widget_->windowType() == Qt::Tool;
  const QScreen* screen = staysWhereItStood && hasPlace() ? QGuiApplication::screenAt(wantedPlace().center()) : nullptr;
  // Where it stood may be gone.
  if (!screen) screen = caller ? caller->screen() : QGuiApplication::primaryScreen();
  const QRect room = screen ? screen->availableGeometry() : QRect(0, 0, 1280, 800);
  QRect wanted;
  placed_ = placedByProgram();
  letScroll(room);
  if (staysWhereItStood ? hasPlace() : placed_) {
    wanted = wantedPlace();
  } else {
    updateLayout();
    if (qobject_cast<QDialog*>(widget_.data())) widget_->resize(comfortableSize(room.size()));
    wanted = QRect(QPoint(), widget_->size());
    if (staysWhereItStood && form_.Width > 0) wanted.setWidth(wantedPlace().width());
    if (staysWhereItStood && form_.Height > 0) wanted.setHeight(wantedPlace().height());
    wanted.moveCenter(caller ? caller->frameGeometry().center() : room.center());
    if (!hasPlace() && !wantedPlace().topLeft().isNull()) wanted.moveTopLeft(wantedPlace().topLeft());
  }
  putAt(wanted, room);
}

// A window that is hidden keeps the sizes that its contents had, and would come as large as it was needed before.
void FormWindow::updateLayout() {
  QList<QWidget*> holders = widget_->findChildren<QWidget*>();
  std::reverse(holders.begin(), holders.end());  // a parent goes by its children
  holders += widget_.data();
  for (QWidget* each : holders) {
    if (!each->layout()) continue;
    each->layout()->invalidate();
    each->layout()->activate();
    each->updateGeometry();
  }
}

// True: it does from now on. A small screen, large letters, or more options that have come up.
bool FormWindow::letScroll(const QRect& screen) {
  auto* dialog = qobject_cast<QDialog*>(widget_.data());
  if (!dialog || dialog->findChild<QScrollArea*>(QString(), Qt::FindDirectChildrenOnly)) return false;
  const QSize least = dialog->layout()->totalMinimumSize(), room = roomOn(screen).size();
  if (least.boundedTo(room) == least) return false;
  new Scroller(*dialog);
  updateLayout();
  return true;
}

QSize FormWindow::comfortableSize(const QSize& room) const {
  QSize size = widget_->sizeHint().boundedTo(room - QSize(FrameSides, 0));
  const QLayout* layout = widget_->layout();
  if (layout && layout->hasHeightForWidth()) size.setHeight(layout->totalHeightForWidth(size.width()));
  return size;
}

// A window that has not been shown yet does not know its layout's least size by itself.
void FormWindow::putAt(QRect wanted, const QRect& room) {
  wanted.setSize(wanted.size().expandedTo(widget_->minimumSize()).expandedTo(widget_->minimumSizeHint()));
  const QRect fitted = fittedToScreen(wanted, room);
  widget_->resize(fitted.size());
  widget_->move(fitted.topLeft());
}

void FormWindow::noteGeometry() {
  if (!widget_->isVisible() || widget_->isMinimized() || widget_->isMaximized()) return;
  noted_ = QRect(widget_->pos(), widget_->size());
  form_.Left.takeFromUser(noted_.left() * controls::TwipsPerPixel);
  form_.Top.takeFromUser(noted_.top() * controls::TwipsPerPixel);
  form_.Width.takeFromUser(noted_.width() * controls::TwipsPerPixel);
  form_.Height.takeFromUser(noted_.height() * controls::TwipsPerPixel);
}

// Where the keyboard is when nobody has said: on the first field to fill in, or, in a window that begins with its
// buttons, on the one that Enter stands for, so that a blind Enter does the harmless thing.
QWidget* FormWindow::firstFocus() const {
  const auto focused = adapters_.find(form_.focused());
  if (focused != adapters_.end()) return &focused->second->widget();
  QWidget* first = nullptr;
  for (QWidget* each = widget_->nextInFocusChain(); each != widget_ && !first; each = each->nextInFocusChain())
    if (canBegin(*each)) first = each;
  const auto preset = adapters_.find(form_.control(form_.defaultButton));
  const bool isButton = qobject_cast<QAbstractButton*>(first) != nullptr;
  return isButton && preset != adapters_.end() ? &preset->second->widget() : first;
}

// --- From the user to the form -------------------------------------------------------------------------------------

void FormWindow::fromUser(std::function<void()> act) {
  if (!mayAct()) return;
  if (!loop_.isBlocked() && !loop_.isWaitedFor()) return act();
  loop_.later([alive = alive_, this, act = std::move(act)] {
    if (*alive && mayAct()) act();
  });
}

bool FormWindow::mayAct() const {
  const QWidget* modal = QApplication::activeModalWidget();
  return *alive_ && form_.Visible && (!modal || modal == widget_);
}

void FormWindow::popUp(const std::vector<controls::MenuItem*>& entries, const QPoint& at) {
  if (menu_) menu_->popUp(entries, at);
}

void FormWindow::afterDrop(std::function<void()> act) {
  loop_.later([alive = alive_, this, act = std::move(act)] {
    if (!*alive) return;
    if (loop_.dragAndDrop().dragging()) return afterDrop(act);
    fromUser(act);
  });
}

bool FormWindow::previewKey(controls::KeyEvent& key) {
  form_.KeyDown(key);
  return key.handled;
}

void FormWindow::focusTaken(controls::Control& control) {
  // A window that becomes the active one late may be told of its focus when the form has gone already.
  if (form_.focused() == &control || !form_.Visible) return;
  if (!updating_ && !loop_.isBlocked()) return form_.focusMoved(&control);
  // The toolkit moved the focus by itself, because its holder was disabled or hidden.
  loop_.later([alive = alive_, this, &control] {
    if (*alive && form_.Visible && adapters_[&control]->widget().hasFocus()) form_.focusMoved(&control);
  });
}

void FormWindow::report(const controls::Event<>& event) {
  if (!loop_.isBlocked() && !updating_) return event();
  loop_.later([alive = alive_, &event] {
    if (*alive) event();
  });
}

void FormWindow::showDefaultButton() {
  for (auto* button : widget_->findChildren<QPushButton*>())
    button->setDefault(button->objectName() == toQt(form_.defaultButton));
}

bool FormWindow::pressButton(const std::string& name) {
  auto* button = dynamic_cast<controls::Button*>(form_.control(name));
  if (!button) return false;
  button->press();
  return true;
}

// Keys that no control has taken. Enter on a button presses that button, elsewhere the default button.
bool FormWindow::keyPress(const QKeyEvent& event) {
  controls::KeyEvent key = keyOf(event);
  const QWidget* focused = widget_->focusWidget();
  const auto joined =
      std::ranges::find_if(adapters_, [&](const auto& each) { return &each.second->widget() == focused; });
  if (joined == adapters_.end() && previewKey(key)) return true;
  if (key.modifiers.ctrl || key.modifiers.alt) return false;
  if (key.code == controls::key::Esc) {
    pressButton(form_.cancelButton);
    return true;
  }
  if (key.code != controls::key::Enter) return false;
  if (event.isAutoRepeat()) return true;
  const bool onButton = joined != adapters_.end() && joined->first->kind() == controls::Kind::Button;
  pressButton(onButton ? joined->first->name() : form_.defaultButton);
  return true;
}

bool FormWindow::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
  case QEvent::Close:
    event->ignore();
    fromUser([this] { form_.closeFromUser(); });
    return true;
  case QEvent::WindowActivate:
    report(form_.Activate);
    return false;
  case QEvent::Move:
    noteGeometry();
    return false;
  case QEvent::Resize:
    noteGeometry();
    if (widget_->isVisible()) report(form_.Resize);
    return false;
  case QEvent::LayoutRequest: {
    const QRect screen = widget_->screen()->availableGeometry();
    if (widget_->isVisible() && letScroll(screen)) putAt(QRect(widget_->pos(), widget_->size()), screen);
    return false;
  }
  case QEvent::Show:
    noteGeometry();
    return false;
  case QEvent::WindowStateChange: {
    const auto state = widget_->isMinimized()   ? controls::WindowState::Minimized
                       : widget_->isMaximized() ? controls::WindowState::Maximized
                                                : controls::WindowState::Normal;
    form_.WindowState.takeFromUser(state);
    return false;
  }
  case QEvent::KeyPress:
    return keyPress(*static_cast<QKeyEvent*>(event));
  case QEvent::MouseButtonRelease:
    if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) fromUser([this] { form_.Click(); });
    return false;
  default:
    return false;
  }
}

}  // namespace varnholt::qt
