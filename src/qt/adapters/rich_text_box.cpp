#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/text.hpp"

#include <QTextEdit>

namespace varnholt::qt {
namespace {

/// Shows the text without its formats: the control's text is taken as it is.
class RichTextBoxAdapter : public Joined<controls::RichTextBox, QTextEdit> {
 public:
  RichTextBoxAdapter(Host& host, controls::RichTextBox& control, QTextEdit& widget) : Joined(host, control, widget) {
    drawn.setAcceptRichText(false);
    connect(&drawn, &QTextEdit::textChanged, this, [this] {
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

std::unique_ptr<Adapter> joinRichTextBox(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<RichTextBoxAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
