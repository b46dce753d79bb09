#include "qt/icons.hpp"

#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <map>

namespace varnholt::qt {
namespace {

constexpr char StrokeColor[] = "currentColor";
constexpr char AccentPlaceholder[] = "#5B9BD5";

QString fileOf(const QString& name) { return QStringLiteral(":/icons/%1.svg").arg(name); }

QByteArray recoloured(QByteArray svg, const QColor& stroke, const QColor& accent) {
  svg.replace(StrokeColor, stroke.name().toLatin1());
  svg.replace(AccentPlaceholder, accent.name().toLatin1());
  return svg;
}

class SvgIconEngine : public QIconEngine {
 public:
  explicit SvgIconEngine(QString name) : name_(std::move(name)) {}

  QIconEngine* clone() const override { return new SvgIconEngine(name_); }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }

  // `size` is in device pixels.
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal) override {
    const QString key = QStringLiteral("icon/%1/%2x%3/%4/%5")
                            .arg(name_)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(mode)
                            .arg(theme::accent().rgb());
    QPixmap drawn;
    if (QPixmapCache::find(key, &drawn)) return drawn;
    drawn = QPixmap(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    draw(painter, QRectF(QPointF(), QSizeF(size)), mode);
    painter.end();
    QPixmapCache::insert(key, drawn);
    return drawn;
  }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    const qreal density = painter->device()->devicePixelRatioF();
    QPixmap drawn = scaledPixmap(rect.size() * density, mode, state, density);
    drawn.setDevicePixelRatio(density);
    painter->drawPixmap(rect.topLeft(), drawn);
  }

 private:
  void draw(QPainter& painter, const QRectF& area, QIcon::Mode mode) const {
    const bool disabled = mode == QIcon::Disabled;
    const QColor stroke = QColor::fromRgb(disabled ? theme::DisabledText : theme::Text);
    QFile file(fileOf(name_));
    if (!file.open(QIODevice::ReadOnly)) {
      drawSquare(painter, area, stroke);
      return;
    }
    const QColor accent = disabled ? QColor::fromRgb(theme::DisabledText) : theme::accent();
    QSvgRenderer(recoloured(file.readAll(), stroke, accent)).render(&painter, area);
  }

  static void drawSquare(QPainter& painter, const QRectF& area, const QColor& color) {
    const qreal inset = area.width() / 5;
    painter.setPen(QPen(color, area.width() / 16));
    painter.drawRect(area.adjusted(inset, inset, -inset, -inset));
  }

  QString name_;
};

}  // namespace

QIcon iconNamed(const std::string& name) {
  if (name.empty()) return {};
  static std::map<std::string, QIcon> made;
  QIcon& icon = made[name];
  if (icon.isNull()) icon = QIcon(new SvgIconEngine(toQt(name)));
  return icon;
}

bool hasIcon(const std::string& name) { return QFile::exists(fileOf(toQt(name))); }

}  // namespace varnholt::qt
