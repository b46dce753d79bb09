#include "qt/widgets/shared_splitter.hpp"

#include "qt/widgets/list_view_widget.hpp"

#include <QChildEvent>
#include <QVariant>

#include <algorithm>
#include <numeric>

namespace varnholt::qt {
namespace {

// Of the room, the most that the columns of a list may take beside another part.
constexpr double MostOfRoom = 0.7;

}  // namespace

SharedSplitter::SharedSplitter(QWidget* parent) : QSplitter(parent) {
  connect(this, &QSplitter::splitterMoved, this, [this] { moved_ = true; });
}

void SharedSplitter::childEvent(QChildEvent* event) {
  QSplitter::childEvent(event);
  if (event->added()) event->child()->installEventFilter(this);
}

void SharedSplitter::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  if (!moved_) share();
}

bool SharedSplitter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
    moved_ = false;
    share();
  }
  return QSplitter::eventFilter(watched, event);
}

// The sizes are proportions, which the splitter makes fit.
void SharedSplitter::share() {
  QList<int> shares;
  for (int part = 0; part < count(); ++part)
    shares += widget(part)->isHidden() ? 0 : widget(part)->property("share").toInt();
  const int all = std::accumulate(shares.begin(), shares.end(), 0);
  for (int part = 0; part < count() && width() > 0; ++part) {
    const auto* list = qobject_cast<const ListViewWidget*>(widget(part));
    if (!list || shares[part] == 0 || shares[part] == all) continue;
    const double needed = std::min(static_cast<double>(list->neededWidth()) / width(), MostOfRoom);
    if (needed * all > shares[part]) shares[part] = static_cast<int>((all - shares[part]) * needed / (1 - needed)) + 1;
  }
  setSizes(shares);
}

}  // namespace varnholt::qt
