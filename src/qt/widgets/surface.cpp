#include "qt/widgets/surface.hpp"

#include "qt/theme.hpp"

#include <QPainter>

namespace varnholt::qt {
namespace {
constexpr qreal CornerRadius = 4;
}

void paintSkin(QWidget& widget, const QPixmap& skin) {
  if (skin.isNull()) return;
  QPainter painter(&widget);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  const QSize part = widget.size().scaled(skin.size(), Qt::KeepAspectRatio);
  painter.drawPixmap(widget.rect(), skin, QRect(QPoint(), part));
}

void Backdrop::setSkin(const QPixmap& skin) {
  skin_ = skin;
  update();
}

void Backdrop::paintEvent(QPaintEvent*) { paintSkin(*this, skin_); }

// A dialog has a close box alone: it is neither put away nor blown up.
SkinDialog::SkinDialog(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {}

void SkinDialog::setSkin(const QPixmap& skin) {
  skin_ = skin;
  update();
}

void SkinDialog::paintEvent(QPaintEvent*) { paintSkin(*this, skin_); }

Surface::Surface(QWidget* parent) : QFrame(parent) {}

void Surface::setActive(bool active) {
  if (active_ == active) return;
  active_ = active;
  update();
}

void Surface::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(active_ ? theme::Accent : theme::Outline));
  painter.setBrush(palette().window());
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), CornerRadius, CornerRadius);
}

}  // namespace varnholt::qt
