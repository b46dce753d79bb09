#include "qt/widgets/picture_view.hpp"

#include "qt/icons.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QAccessibleWidget>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QVariant>

#include <algorithm>

namespace varnholt::qt {
namespace {
constexpr int SmallestSide = 32, LargestIcon = 128;

class SpokenPicture : public QAccessibleWidget {
 public:
  explicit SpokenPicture(PictureView& view) : QAccessibleWidget(&view), view_(view) {}
  QAccessible::Role role() const override { return view_.isPressable() ? QAccessible::Button : QAccessible::Graphic; }
  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (view_.isPressable()) names.prepend(pressAction());
    return names;
  }
  void doAction(const QString& name) override {
    if (name != pressAction()) return QAccessibleWidget::doAction(name);
    if (view_.isPressable()) Q_EMIT view_.pressed();
  }

 private:
  PictureView& view_;
};

QAccessibleInterface* spoken(const QString&, QObject* object) {
  auto* view = qobject_cast<PictureView*>(object);
  return view ? new SpokenPicture(*view) : nullptr;
}
}  // namespace

PictureView::PictureView(QWidget* parent) : QAbstractScrollArea(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::NoFocus);
  viewport()->setAutoFillBackground(false);
  QAccessible::installFactory(spoken);  // a factory that is known already is not taken twice
}

void PictureView::setPicture(const QPixmap& picture, const QSize& natural) {
  picture_ = picture;
  natural_ = natural.isEmpty() ? picture.size() / picture.devicePixelRatio() : natural;
  place();
}

void PictureView::setIcon(const QIcon& icon) {
  icon_ = icon;
  viewport()->update();
}

void PictureView::setStretch(bool stretch) {
  stretch_ = stretch;
  place();
}

QSize PictureView::areaPixels() const { return viewport()->size() * devicePixelRatioF(); }

QSize PictureView::wantedPixels() const { return stretch_ ? areaPixels() : QSize(); }

QSize PictureView::sizeHint() const { return {theme::scaled(SmallestSide), theme::scaled(SmallestSide)}; }

void PictureView::resizeEvent(QResizeEvent*) { place(); }

void PictureView::place() {
  const QSize over = stretch_ || picture_.isNull() ? QSize() : natural_ - viewport()->size();
  for (auto* bar : {horizontalScrollBar(), verticalScrollBar()}) {
    const bool across = bar == horizontalScrollBar();
    bar->setRange(0, std::max(0, across ? over.width() : over.height()));
    bar->setPageStep(across ? viewport()->width() : viewport()->height());
    bar->setSingleStep(theme::scaled(SmallestSide));
  }
  viewport()->update();
}

void PictureView::paintIcon(QPainter& painter) const {
  const QString name = property("defaultIcon").toString();
  if (icon_.isNull() && name.isEmpty()) return;
  const QIcon icon = icon_.isNull() ? iconNamed(fromQt(name)) : icon_;
  const QRect area = viewport()->rect();
  const int side = std::min({area.width(), area.height(), theme::scaled(LargestIcon)});
  icon.paint(&painter, QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, QSize(side, side), area));
}

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  const QRect area = viewport()->rect();
  if (picture_.isNull()) {
    paintIcon(painter);
  } else {
    const QSize size = stretch_ ? natural_.scaled(area.size(), Qt::KeepAspectRatio) : natural_;
    QRect target(QPoint(-horizontalScrollBar()->value(), -verticalScrollBar()->value()), size);
    if (stretch_) target.moveCenter(area.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, picture_);
  }
  if (!hasFocus()) return;
  QStyleOptionFocusRect focus;
  focus.initFrom(viewport());
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

}  // namespace varnholt::qt
