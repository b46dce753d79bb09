#include "qt/pictures.hpp"

#include <QBuffer>
#include <QImageReader>

#include <memory>
#include <utility>

namespace varnholt::qt {
namespace {

// Room in both directions, or as much as shows the whole picture.
enum class Fit { Cover, Show };

// A decoder gives a half, a quarter and an eighth at once; any other size it makes from these, in the time of one more
// scaling.
QSize decodedSize(const QSize& whole, const QSize& area, Fit fit) {
  const QSize covering =
      whole.scaled(area, fit == Fit::Cover ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio);
  int parts = 1;
  while (parts < 8 && whole.width() / (parts * 2) >= covering.width())
    parts *= 2;
  return parts > 1 ? whole / parts : covering.boundedTo(whole);
}

// An empty area: in its own size.
Pictures::Loaded decode(const std::string& bytes, const QSize& area, Fit fit) {
  QByteArray raw = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&raw);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  const bool turned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
  const QSize whole = reader.size();
  if (!area.isEmpty() && whole.isValid())
    reader.setScaledSize(decodedSize(whole, turned ? area.transposed() : area, fit));
  Pictures::Loaded loaded;
  loaded.image = reader.read();
  loaded.natural = !whole.isValid() ? loaded.image.size() : turned ? whole.transposed() : whole;
  return loaded;
}

}  // namespace

const QPixmap& Pictures::kept(const std::string& path) {
  const auto found = kept_.find(path);
  if (found != kept_.end()) return found->second;
  const auto bytes = path.empty() || !reader_ ? std::nullopt : reader_(path);
  return kept_[path] = bytes ? QPixmap::fromImage(decode(*bytes, {}, Fit::Show).image) : QPixmap();
}

void Pictures::loadBeside(const std::string& path, const QSize& area, std::function<void(const Loaded&)> done) {
  const auto loaded = std::make_shared<Loaded>();
  aside_.run(
      [reader = reader_, path, area, loaded] {
        const auto bytes = reader ? reader(path) : std::nullopt;
        if (bytes) *loaded = decode(*bytes, area, Fit::Show);
      },
      [loaded, done = std::move(done)] { done(*loaded); });
}

void Pictures::decodeAhead(const std::string& path, const QSize& area) {
  auto bytes = reader_ ? reader_(path) : std::nullopt;
  if (!bytes) return;
  ahead_ = {path, std::async(std::launch::async, [bytes = *std::move(bytes), area] {
              return decode(bytes, area, Fit::Cover).image;
            })};
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
