#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QFontMetrics>
#include <QLabel>

#include <algorithm>

namespace varnholt::qt {
namespace {

/// A label of a message (dynamic property "fitText") is as wide as its longest line, up to this many characters.
constexpr int WidestMessage = 64;

class LabelAdapter : public Joined<controls::Label, QLabel> {
 public:
  LabelAdapter(Host& host, controls::Label& control, QLabel& widget) : Joined(host, control, widget) {
    drawn.setTextFormat(Qt::PlainText);
  }

  // Who cannot see the text is to hear the text; what a label is for stands in only while it is empty.
  QString accessibleName() const override {
    const QString text = withoutMnemonic(drawn.text()).simplified();
    return text.isEmpty() ? Joined::accessibleName() : text;
  }

 protected:
  void updateOwn() override {
    const QString text = linesToQt(self.Caption.get());
    if (text != drawn.text()) drawn.setText(text);
    if (drawn.property("fitText").toBool()) fitText(text);
  }

 private:
  void fitText(const QString& text) {
    const QFontMetrics metrics(drawn.font());
    int widest = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
      widest = std::max(widest, metrics.horizontalAdvance(line));
    const int limit = metrics.averageCharWidth() * WidestMessage;
    drawn.setMinimumWidth(std::min(widest + metrics.averageCharWidth(), limit));
  }
};

}  // namespace

std::unique_ptr<Adapter> joinLabel(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<LabelAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
