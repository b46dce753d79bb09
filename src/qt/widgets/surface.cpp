#include "qt/widgets/surface.hpp"

#include "qt/theme.hpp"

#include <QPaintEvent>
#include <QPainter>

#include <utility>

namespace varnholt::qt {
namespace {

constexpr qreal CornerRadius = 4;
// Skins are read for windows of sizes in such steps, in pixels.
constexpr int SizeStep = 64;

QSize roundedUp(const QSize& size) {
  const auto up = [](int length) { return (length + SizeStep - 1) / SizeStep * SizeStep; };
  return {up(size.width()), up(size.height())};
}

bool covers(const QImage& picture, const QSize& area) {
  return picture.width() >= area.width() && picture.height() >= area.height();
}

QPixmap fitted(const QImage& picture, const QSize& area) {
  const QSize part = area.scaled(picture.size(), Qt::KeepAspectRatio);
  const QImage corner(picture.constBits(), part.width(), part.height(), picture.bytesPerLine(), picture.format());
  return QPixmap::fromImage(corner.scaled(area, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

}  // namespace

void Skin::set(Source source) {
  source_ = std::move(source);
  read_ = {};
  fitted_ = {};
}

void Skin::paint(QWidget& widget, const QRegion& region) {
  const QSize area = widget.size() * widget.devicePixelRatioF();
  if (!source_ || area.isEmpty()) return;
  if (fitted_.size() != area) {
    const QSize sharpEnough = area * Sharpness;
    if (read_.isNull() || !covers(read_, sharpEnough)) read_ = source_(roundedUp(sharpEnough));
    if (read_.isNull()) return;
    fitted_ = fitted(read_, area);
    fitted_.setDevicePixelRatio(widget.devicePixelRatioF());
  }
  // Piece by piece: within a rectangle the toolkit copies lines, across a region it hands out spans to other threads.
  QPainter painter(&widget);
  for (const QRect& piece : region) {
    painter.setClipRect(piece);
    painter.drawPixmap(0, 0, fitted_);
  }
}

void Backdrop::setSkin(Skin::Source source) {
  skin_.set(std::move(source));
  update();
}

void Backdrop::paintEvent(QPaintEvent* event) { skin_.paint(*this, event->region()); }

// A dialog has a close box alone: it is neither put away nor blown up.
SkinDialog::SkinDialog(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint) {}

void SkinDialog::setSkin(Skin::Source source) {
  skin_.set(std::move(source));
  update();
}

void SkinDialog::paintEvent(QPaintEvent* event) { skin_.paint(*this, event->region()); }

Surface::Surface(QWidget* parent) : QFrame(parent) {}

void Surface::setActive(bool active) {
  if (active_ == active) return;
  active_ = active;
  update();
}

void Surface::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(active_ ? theme::accent() : theme::outline());
  painter.setBrush(palette().window());
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), CornerRadius, CornerRadius);
}

}  // namespace varnholt::qt
