#include "qt/pictures.hpp"

#include <QBuffer>
#include <QImageReader>

namespace varnholt::qt {

const QPixmap& Pictures::kept(const std::string& path) {
  const auto found = kept_.find(path);
  if (found != kept_.end()) return found->second;
  return kept_[path] = fresh(path);
}

QPixmap Pictures::fresh(const std::string& path) const {
  if (path.empty() || !reader_) return {};
  const auto bytes = reader_(path);
  if (!bytes) return {};
  QByteArray raw = QByteArray::fromRawData(bytes->data(), static_cast<qsizetype>(bytes->size()));
  QBuffer buffer(&raw);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  return QPixmap::fromImage(reader.read());
}

}  // namespace varnholt::qt
