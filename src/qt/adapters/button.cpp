#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/icons.hpp"
#include "qt/text.hpp"

#include <QAbstractButton>
#include <QCheckBox>
#include <QPushButton>
#include <QShortcutEvent>
#include <QToolButton>

namespace varnholt::qt {
namespace {

/// The key of the caption's mnemonic. The toolkit would show the button pressed for a tenth of a second before it acts,
/// in which a copy that is to be stopped goes on by files. True: done.
bool clickedByMnemonic(QAbstractButton& button, const QObject* watched, const QEvent& event) {
  if (watched != &button || event.type() != QEvent::Shortcut) return false;
  if (static_cast<const QShortcutEvent&>(event).isAmbiguous()) return false;
  button.click();
  return true;
}

/// Enter that stays down must not answer what comes next.
bool isHeldEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return key.isAutoRepeat() && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

// What can be checked is listened to by its state: assistive technology switches it without a click.

class ButtonAdapter : public Joined<controls::Button, QAbstractButton> {
 public:
  ButtonAdapter(Host& host, controls::Button& control, QAbstractButton& widget) : Joined(host, control, widget) {
    // The form says which button Enter and Esc stand for.
    if (auto* push = qobject_cast<QPushButton*>(&drawn)) push->setAutoDefault(false);
    if (drawn.isCheckable())
      connect(&drawn, &QAbstractButton::toggled, this, [this](bool on) {
        if (updating() || on == self.Accented) return;
        showOn();  // a click does not switch the button, what comes of it may
        press();
      });
    else
      connect(&drawn, &QAbstractButton::clicked, this, [this] { press(); });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &drawn && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) redrawDefault();
    return isHeldEnter(*event) || clickedByMnemonic(drawn, watched, *event) || Joined::eventFilter(watched, event);
  }

 protected:
  bool clicksByMouse() const override { return false; }
  QString ownName() const override { return withoutMnemonic(toQt(self.Caption.get())); }

  void updateOwn() override {
    const QString caption = toQt(self.Caption.get());
    if (caption != drawn.text()) drawn.setText(caption);
    if (self.Icon.get() != icon_) drawn.setIcon(iconNamed(icon_ = self.Icon.get()));
    showOn();
    if (drawn.font().underline() == self.FontUnderline) return;
    // A tool button that shows its icon alone has no caption to underline: it is framed as well.
    if (auto* tool = qobject_cast<QToolButton*>(&drawn)) tool->setAutoRaise(!self.FontUnderline);
    QFont font = drawn.font();
    font.setUnderline(self.FontUnderline);
    drawn.setFont(font);
  }

 private:
  void press() {
    host().fromUser([this] { self.press(); });
  }

  /// It looks otherwise while another button has the keyboard.
  void redrawDefault() {
    for (auto* button : drawn.window()->findChildren<QPushButton*>())
      if (button->isDefault()) button->update();
  }

  /// A button that is designed to be checked shows so that it is accented.
  void showOn() {
    if (drawn.isCheckable()) drawn.setChecked(self.Accented);
  }

  std::string icon_;
};

class CheckBoxAdapter : public Joined<controls::CheckBox, QCheckBox> {
 public:
  CheckBoxAdapter(Host& host, controls::CheckBox& control, QCheckBox& widget) : Joined(host, control, widget) {
    connect(&drawn, &QCheckBox::toggled, this, [this] {
      if (!updating()) this->host().fromUser([this] { self.toggleFromUser(); });
    });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    return clickedByMnemonic(drawn, watched, *event) || Joined::eventFilter(watched, event);
  }

 protected:
  bool clicksByMouse() const override { return false; }
  QString ownName() const override { return withoutMnemonic(toQt(self.Caption.get())); }

  void updateOwn() override {
    drawn.setText(toQt(self.Caption.get()));
    drawn.setChecked(self.Value != 0);
  }
};

}  // namespace

std::unique_ptr<Adapter> joinButton(Host& host, controls::Control& control, QWidget& widget) {
  if (qobject_cast<QCheckBox*>(&widget)) return nullptr;
  return joinAs<ButtonAdapter>(host, control, widget);
}

std::unique_ptr<Adapter> joinCheckBox(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<CheckBoxAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
