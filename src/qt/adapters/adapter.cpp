#include "qt/adapters/adapter.hpp"

#include "qt/input.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QLabel>

#include <utility>

namespace varnholt::qt {
namespace {

QString buddyLabelOf(const QWidget& widget) {
  for (const auto* label : widget.window()->findChildren<QLabel*>())
    if (label->buddy() == &widget) return withoutMnemonic(label->text());
  return {};
}

bool isModifier(int code) {
  return code == controls::key::Shift || code == controls::key::Ctrl || code == controls::key::Alt;
}

}  // namespace

Adapter::Adapter(Host& host, controls::Control& control, QWidget& widget)
    : host_(host),
      control_(control),
      widget_(widget),
      designedName_(widget.accessibleName()),
      designedToolTip_(widget.toolTip()),
      designedCursor_(widget.cursor()),
      drops_(host, control, widget) {
  watch(widget);
  if (auto* area = qobject_cast<QAbstractScrollArea*>(&widget)) watch(*area->viewport());
}

void Adapter::watch(QWidget& part) {
  part.installEventFilter(this);
  part.setMouseTracking(true);
}

// Signals of the widget are cut by ending what the adapter is connected to.
void Adapter::abandon() {
  abandoned_ = true;
  updating_ = true;
  widget_.blockSignals(true);
}

void Adapter::update() {
  updating_ = true;
  applyCommon();
  updateOwn();
  updating_ = false;
}

void Adapter::applyCommon() {
  widget_.setEnabled(control_.Enabled);
  // Only a change against what was asked for: isVisible() is false for every widget of a hidden window.
  if (widget_.isHidden() == control_.Visible.get()) widget_.setVisible(control_.Visible);
  const QString tip = plainToolTip(control_.ToolTipText.get());
  widget_.setToolTip(tip.isEmpty() ? designedToolTip_ : tip);
  // The toolkit speaks the tool tip of every widget but of lists and trees.
  if (qobject_cast<QAbstractItemView*>(&widget_) && widget_.accessibleDescription() != widget_.toolTip())
    widget_.setAccessibleDescription(widget_.toolTip());
  drops_.update();
  const int pointer = control_.MousePointer;
  if (pointer == controls::pointer::Default) {
    if (widget_.cursor().shape() != designedCursor_.shape()) widget_.setCursor(designedCursor_);
  } else {
    widget_.setCursor(cursorOf(pointer));
  }
  applyColors();
}

void Adapter::applyColors() {
  const bool back = control_.BackColor != controls::NoColor, fore = control_.ForeColor != controls::NoColor;
  if (!back && !fore && !colored_) return;
  colored_ = back || fore;
  QPalette colors;
  if (back)
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
      colors.setColor(role, theme::colorOf(control_.BackColor));
  const QColor behind = colors.color(widget_.backgroundRole());
  const QColor text = fore ? theme::colorOf(control_.ForeColor) : QColor::fromRgb(theme::Text);
  if (back || fore)
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
      colors.setColor(role, theme::readable(text, behind));
  widget_.setPalette(colors);
  widget_.setAutoFillBackground(back);
}

const controls::Control* Adapter::twin() const {
  const QVariant name = widget_.property("twin");
  return name.isValid() ? control_.form().control(fromQt(name.toString())) : nullptr;
}

Emphasis Adapter::emphasis() const {
  if (control_.Accented) return Emphasis::Active;
  return twin() && twin()->Accented ? Emphasis::Dimmed : Emphasis::Plain;
}

QString Adapter::accessibleName() const {
  const QString given = toQt(control_.AccessibleName.get());
  for (const QString& name : {given, designedName_, ownName(), toQt(control_.ToolTipText.get()), buddyLabelOf(widget_)})
    if (!name.isEmpty()) return name;
  return toQt(control_.name());
}

bool Adapter::keyPress(const QKeyEvent& event) {
  controls::KeyEvent key = keyOf(event);
  if (isModifier(key.code)) modifiersDown_.insert(key.code);
  return host_.previewKey(key) || keyDown(key, event);
}

void Adapter::keyRelease(const QKeyEvent& event) {
  if (event.isAutoRepeat()) return;
  controls::KeyEvent key = keyOf(event);
  modifiersDown_.erase(key.code);
  keyUp(key);
}

void Adapter::releaseModifiers() {
  for (const int code : std::exchange(modifiersDown_, {})) {
    controls::KeyEvent key;
    key.code = code;
    keyUp(key);
    if (abandoned_) return;
  }
}

bool Adapter::keyDown(controls::KeyEvent& key, const QKeyEvent&) {
  control_.KeyDown(key);
  return key.handled;
}

bool Adapter::mousePress(const QMouseEvent& event) {
  control_.MouseDown(mouseOf(event));
  return false;
}

bool Adapter::mouseRelease(const QMouseEvent& event) {
  if (clicksByMouse() && event.button() == Qt::LeftButton && widget_.rect().contains(event.position().toPoint()))
    control_.Click();
  if (!abandoned_) control_.MouseUp(mouseOf(event));
  return false;
}

bool Adapter::mouseDoubleClick(const QMouseEvent&) {
  control_.DblClick();
  return false;
}

bool Adapter::mouseMove(const QMouseEvent&) {
  control_.MouseMove();
  return false;
}

// --- Events --------------------------------------------------------------------------------------------------------

// A window that becomes active again gives the keyboard back to what had it, also when a handler has moved it since.
bool Adapter::movesFocus(Qt::FocusReason reason) const {
  return reason != Qt::PopupFocusReason && (reason != Qt::ActiveWindowFocusReason || !control_.form().focused());
}

bool Adapter::eventFilter(QObject* watched, QEvent* event) {
  if (abandoned_) return false;
  switch (event->type()) {
  case QEvent::KeyPress:
    return watched == &widget_ && keyPress(*static_cast<QKeyEvent*>(event));
  case QEvent::KeyRelease:
    if (watched == &widget_) keyRelease(*static_cast<QKeyEvent*>(event));
    return false;
  case QEvent::MouseButtonPress:
    return mousePress(*static_cast<QMouseEvent*>(event));
  case QEvent::MouseButtonRelease:
    return mouseRelease(*static_cast<QMouseEvent*>(event));
  case QEvent::MouseButtonDblClick:
    return mouseDoubleClick(*static_cast<QMouseEvent*>(event));
  case QEvent::MouseMove:
    return mouseMove(*static_cast<QMouseEvent*>(event));
  case QEvent::DragEnter:
    return drops_.enter(*static_cast<QDropEvent*>(event));
  case QEvent::DragMove:
    return drops_.move(*static_cast<QDropEvent*>(event));
  case QEvent::DragLeave:
    return drops_.leave();
  case QEvent::Drop:
    return drops_.drop(*static_cast<QDropEvent*>(event));
  case QEvent::FocusIn:
    if (watched == &widget_ && movesFocus(static_cast<QFocusEvent*>(event)->reason())) host_.focusTaken(control_);
    return false;
  case QEvent::FocusOut:
    if (watched == &widget_) releaseModifiers();
    return false;
  default:
    return false;
  }
}

std::unique_ptr<Adapter> join(Host& host, controls::Control& control, QWidget& widget) {
  using controls::Kind;
  switch (control.kind()) {
  case Kind::Label:
    return joinLabel(host, control, widget);
  case Kind::TextBox:
    return joinTextBox(host, control, widget);
  case Kind::Button:
    return joinButton(host, control, widget);
  case Kind::CheckBox:
    return joinCheckBox(host, control, widget);
  case Kind::ComboBox:
    return joinComboBox(host, control, widget);
  case Kind::ListView:
    return joinListView(host, control, widget);
  case Kind::TreeView:
    return joinTreeView(host, control, widget);
  case Kind::StatusBar:
    return joinStatusBar(host, control, widget);
  case Kind::ProgressBar:
    return joinProgressBar(host, control, widget);
  case Kind::Slider:
    return joinSlider(host, control, widget);
  case Kind::MonthView:
    return joinMonthView(host, control, widget);
  case Kind::RichTextBox:
    return joinRichTextBox(host, control, widget);
  case Kind::PictureBox:
    return joinPictureBox(host, control, widget);
  case Kind::Chart:
    return joinChart(host, control, widget);
  case Kind::Timer:
  case Kind::MenuItem:
    return nullptr;
  }
  return nullptr;
}

}  // namespace varnholt::qt
