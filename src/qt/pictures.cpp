#include "qt/pictures.hpp"

#include <QBuffer>
#include <QImageReader>

#include <memory>
#include <string_view>
#include <utility>

namespace varnholt::qt {
namespace {

// Room in both directions, or as much as shows the whole picture.
enum class Fit { Cover, Show };

// A decoder gives a half, a quarter and an eighth at once; any other size it makes from these, in the time of one more
// scaling.
QSize decodedSize(const QSize& whole, const QSize& area, Fit fit) {
  const QSize covering = whole.scaled(area, fit == Fit::Cover ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio);
  int parts = 1;
  while (parts < 8 && whole.width() / (parts * 2) >= covering.width())
    parts *= 2;
  return parts > 1 ? whole / parts : covering.boundedTo(whole);
}

/// A JPEG file that ends before its picture does: the decoder would make the rest grey without a word. The end marker
/// cannot stand in the picture's own data, but does in those of a thumbnail, which are passed over with their segment.
bool isCutOff(std::string_view bytes) {
  using namespace std::string_view_literals;
  if (!bytes.starts_with("\xFF\xD8"sv)) return false;
  constexpr unsigned char StartOfScan = 0xDA;
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
  for (std::size_t at = 2; at + 4 <= bytes.size() && byte(at) == 0xFF;) {
    if (byte(at + 1) == StartOfScan) return bytes.find("\xFF\xD9"sv, at) == std::string_view::npos;
    const bool fills = byte(at + 1) == 0xFF;
    at += fills ? 1 : 2 + (std::size_t{byte(at + 2)} << 8 | byte(at + 3));
  }
  return true;
}

// An empty area: in its own size.
Pictures::Loaded decode(const std::string& bytes, const QSize& area, Fit fit) {
  if (isCutOff(bytes)) return {};
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
  ahead_ = {path, std::async(std::launch::async,
                             [bytes = *std::move(bytes), area] { return decode(bytes, area, Fit::Cover).image; })};
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
