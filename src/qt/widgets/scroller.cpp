#include "qt/widgets/scroller.hpp"

#include <QApplication>
#include <QVBoxLayout>

namespace varnholt::qt {

Scroller::Scroller(QWidget& dialog) {
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  setWidgetResizable(true);
  auto* inside = new QWidget(this);
  inside->setLayout(dialog.layout());
  setWidget(inside);
  // The skin of the dialog shows.
  inside->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
  auto* outer = new QVBoxLayout(&dialog);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->addWidget(this);
  connect(qApp, &QApplication::focusChanged, this, [this, inside](QWidget*, QWidget* now) {
    if (now && inside->isAncestorOf(now)) ensureWidgetVisible(now);
  });
}

QSize Scroller::sizeHint() const { return widget()->sizeHint(); }

}  // namespace varnholt::qt
