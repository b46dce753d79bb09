#include "qt/widgets/picture_view.hpp"

#include "qt/icons.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QPainter>
#include <QStyle>
#include <QVariant>

#include <algorithm>

namespace varnholt::qt {
namespace {
constexpr int SmallestSide = 32, LargestIcon = 128;
}

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PictureView::setPicture(const QPixmap& picture) {
  picture_ = picture;
  update();
}

void PictureView::setIcon(const QIcon& icon) {
  icon_ = icon;
  update();
}

void PictureView::setStretch(bool stretch) {
  stretch_ = stretch;
  update();
}

QSize PictureView::sizeHint() const { return {theme::scaled(SmallestSide), theme::scaled(SmallestSide)}; }

void PictureView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (picture_.isNull()) {
    const QIcon icon = icon_.isNull() ? iconNamed(fromQt(property("defaultIcon").toString())) : icon_;
    const int side = std::min({width(), height(), theme::scaled(LargestIcon)});
    icon.paint(&painter, QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, QSize(side, side), rect()));
    return;
  }
  QSize size = this->size();
  if (!stretch_) {
    const QSize natural = picture_.size() / picture_.devicePixelRatio();
    size = natural.boundedTo(natural.scaled(size, Qt::KeepAspectRatio));
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawPixmap(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, rect()), picture_);
}

}  // namespace varnholt::qt
