#include "controls/standard.hpp"
#include "qt/adapters/adapter.hpp"
#include "qt/text.hpp"
#include "qt/widgets/status_strip.hpp"

namespace varnholt::qt {
namespace {

class StatusBarAdapter : public Joined<controls::StatusBar, StatusStrip> {
 public:
  using Joined::Joined;

 protected:
  QString ownName() const override { return QStringLiteral("Status"); }

  void updateOwn() override {
    QStringList texts;
    for (int number = 1; number <= self.panelCount(); ++number)
      texts += toShown(self.panel(number));
    drawn.setTexts(texts);
  }
};

}  // namespace

std::unique_ptr<Adapter> joinStatusBar(Host& host, controls::Control& control, QWidget& widget) {
  return joinAs<StatusBarAdapter>(host, control, widget);
}

}  // namespace varnholt::qt
