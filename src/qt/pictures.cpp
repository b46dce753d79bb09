#include "qt/pictures.hpp"

#include <QBuffer>
#include <QImageReader>

#include <utility>

namespace varnholt::qt {
namespace {

// A decoder gives a half, a quarter and an eighth at once; any other size it makes from these, in the time of one more
// scaling.
QSize decodedSize(const QSize& whole, const QSize& area) {
  const QSize covering = whole.scaled(area, Qt::KeepAspectRatioByExpanding);
  int parts = 1;
  while (parts < 8 && whole.width() / (parts * 2) >= covering.width())
    parts *= 2;
  return parts > 1 ? whole / parts : covering.boundedTo(whole);
}

// An empty area: in its own size.
QImage decode(const std::string& bytes, const QSize& area) {
  QByteArray raw = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&raw);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  if (!area.isEmpty()) reader.setScaledSize(decodedSize(reader.size(), area));
  return reader.read();
}

}  // namespace

const QPixmap& Pictures::kept(const std::string& path) {
  const auto found = kept_.find(path);
  if (found != kept_.end()) return found->second;
  return kept_[path] = fresh(path);
}

QPixmap Pictures::fresh(const std::string& path) const {
  const auto bytes = path.empty() || !reader_ ? std::nullopt : reader_(path);
  return bytes ? QPixmap::fromImage(decode(*bytes, {})) : QPixmap();
}

void Pictures::decodeAhead(const std::string& path, const QSize& area) {
  auto bytes = reader_ ? reader_(path) : std::nullopt;
  if (!bytes) return;
  ahead_ = {path, std::async(std::launch::async, [bytes = *std::move(bytes), area] { return decode(bytes, area); })};
}

QImage Pictures::covering(const std::string& path, const QSize& area) {
  const auto covers = [&](const QImage& image) {
    return image.width() >= area.width() && image.height() >= area.height();
  };
  if (ahead_.image.valid() && ahead_.path == path)
    if (const QImage ready = ahead_.image.get(); covers(ready)) return ready;
  decodeAhead(path, area);
  return ahead_.image.valid() ? ahead_.image.get() : QImage();
}

}  // namespace varnholt::qt
