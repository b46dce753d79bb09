#include "qt/pictures.hpp"

#include <QBuffer>
#include <QImageReader>

namespace varnholt::qt {

const QPixmap& Pictures::kept(const std::string& path) {
  const auto found = kept_.find(path);
  if (found != kept_.end()) return found->second;
  return kept_[path] = fresh(path);
}

QPixmap Pictures::fresh(const std::string& path) const { return read(path, {}); }

QPixmap Pictures::covering(const std::string& path, const QSize& area) const { return read(path, area); }

// An empty area: in its own size.
QPixmap Pictures::read(const std::string& path, const QSize& area) const {
  if (path.empty() || !reader_) return {};
  const auto bytes = reader_(path);
  if (!bytes) return {};
  QByteArray raw = QByteArray::fromRawData(bytes->data(), static_cast<qsizetype>(bytes->size()));
  QBuffer buffer(&raw);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  const QSize covering = reader.size().scaled(area, Qt::KeepAspectRatioByExpanding);
  if (!area.isEmpty() && covering.width() < reader.size().width()) reader.setScaledSize(covering);
  return QPixmap::fromImage(reader.read());
}

}  // namespace varnholt::qt
