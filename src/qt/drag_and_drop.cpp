#include "qt/drag_and_drop.hpp"

#include "platform/file_address.hpp"
#include "platform/paths.hpp"
#include "qt/text.hpp"
#include "qt/theme.hpp"

#include <QDrag>
#include <QFontMetrics>
#include <QMimeData>
#include <QPainter>
#include <QUuid>
#include <QWidget>

#include <utility>

namespace varnholt::qt {
namespace {

constexpr char UriList[] = "text/uri-list";  // RFC 2483
constexpr char OwnDrag[] = "application/x-varnholt-drag";

QByteArray uriOf(const std::string& systemPath) {
  return "file://" + QByteArray::fromStdString(systemPath).toPercentEncoding("/");
}

// What hangs at the pointer: the one name, or how many there are.
QPixmap picture(const std::vector<std::string>& files, const QWidget& from) {
  const QString text = files.size() == 1 ? toShown(platform::paths::fileName(files.front()))
                                         : QStringLiteral("%1  Item(s)").arg(files.size());
  const QFontMetrics metrics = from.fontMetrics();
  const QString shown = metrics.elidedText(text, Qt::ElideMiddle, theme::scaled(240));
  const QSize size(metrics.horizontalAdvance(shown) + 16, metrics.height() + 8);
  QPixmap drawn(size * from.devicePixelRatioF());
  drawn.setDevicePixelRatio(from.devicePixelRatioF());
  drawn.fill(theme::selection());
  QPainter painter(&drawn);
  painter.setFont(from.font());
  painter.setPen(Qt::white);
  painter.drawText(QRect(QPoint(), size), Qt::AlignCenter, shown);
  return drawn;
}

}  // namespace

DragAndDrop::DragAndDrop() {
  carrier_ = [this](QWidget& from, std::unique_ptr<QMimeData> data) {
    auto* drag = new QDrag(&from);  // ends by itself
    drag->setMimeData(data.release());
    drag->setPixmap(picture(own_->files, from));
    drag->exec(Qt::CopyAction);
  };
}

std::unique_ptr<QMimeData> DragAndDrop::dataOf(const std::vector<std::string>& files) const {
  auto data = std::make_unique<QMimeData>();
  QByteArray uris;
  for (const auto& file : files) {
    const std::string path = paths_.toSystem ? paths_.toSystem(file) : std::string();
    if (!path.empty()) uris += uriOf(path) + "\r\n";
  }
  data->setData(QLatin1String(UriList), uris);
  data->setData(QLatin1String(OwnDrag), mark_);
  return data;
}

void DragAndDrop::drag(const controls::Control& source, std::vector<std::string> files, QWidget& from) {
  if (files.empty() || own_) return;
  mark_ = QUuid::createUuid().toByteArray();
  own_ = Load{std::move(files), &source};
  carrier_(from, dataOf(own_->files));
  own_.reset();
}

bool DragAndDrop::carriesFiles(const QMimeData& data) {
  return data.hasFormat(QLatin1String(UriList)) || data.hasFormat(QLatin1String(OwnDrag));
}

std::optional<DragAndDrop::Load> DragAndDrop::read(const QMimeData& data) const {
  if (own_ && data.data(QLatin1String(OwnDrag)) == mark_) return own_;
  Load load;
  for (const QByteArray& line : data.data(QLatin1String(UriList)).split('\n')) {
    const QByteArray uri = line.trimmed();
    if (uri.isEmpty() || uri.startsWith('#')) continue;
    const std::string path = platform::systemPathOfAddress({uri.constData(), static_cast<size_t>(uri.size())});
    std::string file = path.empty() || !paths_.toProgram ? std::string() : paths_.toProgram(path);
    if (file.empty()) return {};
    load.files.push_back(std::move(file));
  }
  if (load.files.empty()) return {};
  return load;
}

}  // namespace varnholt::qt
