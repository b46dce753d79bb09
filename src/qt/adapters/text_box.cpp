#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace varnholt::qt {
namespace {

constexpr int LongestLine = 32767;  // QLineEdit's own limit

class LineAdapter : public Joined<controls::TextBox, QLineEdit> {
 public:
  LineAdapter(Host& host, controls::TextBox& control, QLineEdit& widget) : Joined(host, control, widget) {
    // Any change, not edits alone: assistive technology sets the text, which is no edit, and asks nobody whether it
    // may.
    connect(&drawn, &QLineEdit::textChanged, this, [this](const QString& text) {
      if (updating()) return;
      if (self.Locked || !self.Enabled) return update();
      this->host().fromUser([this, text] { self.typeFromUser(typedText(self.Text.get(), text)); });
    });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &drawn && event->type() == QEvent::FocusIn)
      QMetaObject::invokeMethod(
          this, [this] { placeCaret(); }, Qt::QueuedConnection);
    return Joined::eventFilter(watched, event);
  }

 protected:
  void updateOwn() override {
    drawn.setReadOnly(self.Locked);
    // Setting the length, even to what it is, would move the cursor of a user who types.
    const int longest = self.MaxLength > 0 ? self.MaxLength.get() : LongestLine;
    if (drawn.maxLength() != longest) drawn.setMaxLength(longest);
    const QString text = toShown(self.Text.get());
    const bool another = text != drawn.text();
    if (another) drawn.setText(text);
    // A path that is longer than its line shows where it ends while the user is elsewhere.
    if (another && !drawn.hasFocus()) drawn.end(false);
    if (self.takeSelectRequest()) drawn.selectAll();
  }

  void applyColors() override {
    Adapter::applyColors();
    QPalette colors = drawn.palette();
    const bool dimmed = emphasis() == Emphasis::Dimmed;
    if (dimmed == dimmed_) return;
    dimmed_ = dimmed;
    colors.setColor(QPalette::Active, QPalette::Text, QColor::fromRgb(dimmed ? theme::DimText : theme::Text));
    colors.setColor(QPalette::Inactive, QPalette::Text, QColor::fromRgb(dimmed ? theme::DimText : theme::Text));
    drawn.setPalette(colors);
  }

 private:
  // When the field gets the keyboard, behind what the toolkit does: words that ask for others are selected. A field
  // that is designed so has the caret behind its text, and nothing of it selected.
  void placeCaret() {
    if (abandoned()) return;
    if (self.isPrompting()) return drawn.selectAll();
    if (drawn.property("caretAtEnd").toBool()) drawn.end(false);
  }

  bool dimmed_ = false;
};

class LinesAdapter : public Joined<controls::TextBox, QPlainTextEdit> {
 public:
  LinesAdapter(Host& host, controls::TextBox& control, QPlainTextEdit& widget) : Joined(host, control, widget) {
    drawn.setTabChangesFocus(true);
    connect(&drawn, &QPlainTextEdit::textChanged, this, [this] {
      if (updating()) return;
      this->host().fromUser([this] { self.typeFromUser(fromQt(drawn.toPlainText())); });
    });
  }

 protected:
  void updateOwn() override {
    drawn.setReadOnly(self.Locked);
    const QString text = linesToQt(self.Text.get());
    if (text != drawn.toPlainText()) drawn.setPlainText(text);
  }
};

}  // namespace

std::unique_ptr<Adapter> joinTextBox(Host& host, controls::Control& control, QWidget& widget) {
  if (auto line = joinAs<LineAdapter>(host, control, widget)) return line;
  return joinAs<LinesAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
