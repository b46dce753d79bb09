#pragma once

#include "controls/form.hpp"
#include "controls/menu.hpp"
#include "qt/adapters/drop_target.hpp"
#include "qt/emphasis.hpp"

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QWidget>

#include <functional>
#include <memory>
#include <set>

namespace varnholt::qt {

class Pictures;

/// What an adapter asks of the window that it stands in.
class Host {
 public:
  virtual ~Host() = default;
  /// Runs what the user did. It waits while a long call of the platform runs, and is dropped while a dialog that the
  /// window does not belong to is open: assistive technology can press what the mouse cannot reach.
  virtual void fromUser(std::function<void()> act) = 0;
  /// A key goes to the form before its control; true: the form has taken it.
  virtual bool previewKey(controls::KeyEvent& key) = 0;
  /// The user moved the keyboard to the control.
  virtual void focusTaken(controls::Control& control) = 0;
  virtual Pictures& pictures() = 0;
  virtual DragAndDrop& dragAndDrop() = 0;
  /// Shows a menu of these entries of the main menu, null for a separator, at a place on the screen. A window without a
  /// menu shows none.
  virtual void popUp(const std::vector<controls::MenuItem*>& /*entries*/, const QPoint& /*at*/) {}
  /// Runs what a drop asks for, once the drag is over: a dialog opened inside of it would hold up the other program.
  virtual void afterDrop(std::function<void()> act) = 0;
};

/// Joins one control to the widget of its name: shows what the control says, and tells it what the user does.
class Adapter : public QObject {
 public:
  Adapter(Host& host, controls::Control& control, QWidget& widget);

  controls::Control& control() const { return control_; }
  QWidget& widget() const { return widget_; }

  /// Brings the widget up to the control. Fires no event of the control.
  void update();
  /// The control that the form pairs with this one; null: none.
  const controls::Control* twin() const;
  /// What assistive technology calls the control. Never empty.
  virtual QString accessibleName() const;

  /// The control goes away: asks and tells it nothing more.
  virtual void abandon();

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  /// The properties of this kind of control.
  virtual void updateOwn() = 0;
  /// The control's own words for itself; empty: none.
  virtual QString ownName() const { return {}; }
  /// Fires the control's key event; true: taken, the widget does not see the key.
  virtual bool keyDown(controls::KeyEvent& key, const QKeyEvent& event);
  virtual void keyUp(controls::KeyEvent& key) { control_.KeyUp(key); }
  /// True: taken, the widget does not see the event.
  virtual bool mousePress(const QMouseEvent& event);
  virtual bool mouseRelease(const QMouseEvent& event);
  virtual bool mouseDoubleClick(const QMouseEvent& event);
  virtual bool mouseMove(const QMouseEvent& event);
  /// A mouse button that goes up over it is a click. Buttons say clicked themselves.
  virtual bool clicksByMouse() const { return true; }
  virtual void applyColors();
  /// Active while it is accented, dimmed while its twin is.
  Emphasis emphasis() const;

  /// Lets drops mean places in the widget.
  void setDropPlaces(DropTarget::Places places) { drops_.setPlaces(std::move(places)); }
  /// Watches mouse and keys of a part that gets them instead of the widget itself.
  void watch(QWidget& part);
  bool updating() const { return updating_; }
  bool abandoned() const { return abandoned_; }
  Host& host() const { return host_; }

 private:
  bool movesFocus(Qt::FocusReason reason) const;
  bool keyPress(const QKeyEvent& event);
  void keyRelease(const QKeyEvent& event);
  /// The keyboard goes elsewhere: modifier keys that are down here will go up there.
  void releaseModifiers();
  void applyCommon();

  Host& host_;
  controls::Control& control_;
  QWidget& widget_;
  QString designedName_, designedToolTip_;
  QCursor designedCursor_;
  std::set<int> modifiersDown_;  ///< by key code
  DropTarget drops_;
  bool updating_ = false;
  bool abandoned_ = false;
  bool colored_ = false;
};

/// An adapter that knows the types of its control and its widget.
template <class C, class W>
class Joined : public Adapter {
 public:
  using ControlType = C;
  using WidgetType = W;
  Joined(Host& host, C& control, W& widget) : Adapter(host, control, widget), self(control), drawn(widget) {}

 protected:
  C& self;
  W& drawn;
};

/// Makes the adapter when the widget is of its kind; null when not.
template <class A>
std::unique_ptr<Adapter> joinAs(Host& host, controls::Control& control, QWidget& widget) {
  auto* fitting = dynamic_cast<typename A::WidgetType*>(&widget);
  if (!fitting) return nullptr;
  return std::make_unique<A>(host, static_cast<typename A::ControlType&>(control), *fitting);
}

// One function an adapter file; null: the widget's kind does not fit.
std::unique_ptr<Adapter> joinLabel(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinTextBox(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinButton(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinCheckBox(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinComboBox(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinListView(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinTreeView(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinStatusBar(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinProgressBar(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinSlider(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinMonthView(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinRichTextBox(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinChart(Host& host, controls::Control& control, QWidget& widget);
std::unique_ptr<Adapter> joinPictureBox(Host& host, controls::Control& control, QWidget& widget);

/// By the control's kind. Null when no widget of that kind can draw it; timers and menu entries have none.
std::unique_ptr<Adapter> join(Host& host, controls::Control& control, QWidget& widget);

}  // namespace varnholt::qt
