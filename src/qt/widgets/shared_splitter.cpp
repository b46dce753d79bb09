#include "qt/widgets/shared_splitter.hpp"

#include <QChildEvent>
#include <QVariant>

namespace varnholt::qt {

SharedSplitter::SharedSplitter(QWidget* parent) : QSplitter(parent) {}

void SharedSplitter::childEvent(QChildEvent* event) {
  QSplitter::childEvent(event);
  if (event->added()) event->child()->installEventFilter(this);
}

bool SharedSplitter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) share();
  return QSplitter::eventFilter(watched, event);
}

// The sizes are proportions, which the splitter makes fit.
void SharedSplitter::share() {
  QList<int> shares;
  for (int part = 0; part < count(); ++part)
    shares += widget(part)->isHidden() ? 0 : widget(part)->property("share").toInt();
  setSizes(shares);
}

}  // namespace varnholt::qt
