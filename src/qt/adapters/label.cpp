#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QFontMetrics>
#include <QLabel>
#include <QScreen>

#include <algorithm>

namespace varnholt::qt {
namespace {

/// A text is as wide as its longest line, up to UsualLine; what is wider goes on in the next line. A text that would
/// become very tall in such lines gets wider ones, as far as the screen allows.
constexpr int LongestLine = 160, LineStep = 32;
constexpr double TallestShare = 0.5, WidestShare = 0.8;

class LabelAdapter : public Joined<controls::Label, QLabel> {
 public:
  LabelAdapter(Host& host, controls::Label& control, QLabel& widget)
      : Joined(host, control, widget), designedWrap_(drawn.wordWrap()), designedWidth_(drawn.minimumWidth()) {
    drawn.setTextFormat(Qt::PlainText);
  }

  // Who cannot see the text is to hear the text; what a label is for stands in only while it is empty.
  QString accessibleName() const override {
    QString text = drawn.buddy() ? withoutMnemonic(told_) : told_;
    while (text.endsWith(QLatin1Char('\n')))
      text.chop(1);
    return text.trimmed().isEmpty() ? Joined::accessibleName() : text;
  }

 protected:
  void updateOwn() override {
    const QString text = linesToQt(self.Caption.get());
    if (shown_ && text == told_) return;
    shown_ = true;
    told_ = text;
    fitText();
  }

 private:
  void fitText() {
    const QFontMetrics metrics(drawn.font());
    int widest = 0;
    for (const QString& line : told_.split(QLatin1Char('\n')))
      widest = std::max(widest, metrics.horizontalAdvance(line));
    const int line = lineWidth(metrics);
    const bool fits = drawn.property("fitText").toBool(), tooWide = widest > line;
    drawn.setText(breakable(told_, metrics, line));
    drawn.setWordWrap(designedWrap_ || tooWide);
    drawn.setMinimumWidth(fits || tooWide ? std::min(widest + metrics.averageCharWidth(), line) : designedWidth_);
    // A text that is broken needs its height, too, or the smallest window cuts its lines off.
    if (!fits) return;
    drawn.setMinimumHeight(0);  // that of the text before
    if (drawn.wordWrap()) drawn.setMinimumHeight(drawn.heightForWidth(drawn.minimumWidth()));
  }

  int lineWidth(const QFontMetrics& metrics) const {
    const QSize room = drawn.screen()->availableSize();
    const auto widest = static_cast<int>(room.width() * WidestShare);
    for (int characters = UsualLine;; characters += LineStep) {
      const int width = std::min(metrics.averageCharWidth() * characters, widest);
      const QRect text =
          metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, breakable(told_, metrics, width));
      if (text.height() <= room.height() * TallestShare || characters >= LongestLine || width == widest) return width;
    }
  }

  const bool designedWrap_;
  const int designedWidth_;
  QString told_;
  bool shown_ = false;  ///< until then the widget shows what the form's designer wrote
};

}  // namespace

std::unique_ptr<Adapter> joinLabel(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<LabelAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
