#include "qt/picture_decoder.hpp"

#include "core/picture_file.hpp"
#include "qt/cut_off_picture.hpp"
#include "qt/exif_turn.hpp"
#include "qt/heif_picture.hpp"

#include <QIODevice>
#include <QImageReader>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace varnholt::qt {
namespace {

using Fit = PictureWish::Fit;

/// The bytes of a file, which end at once when they are not wanted any more. The decoder of JPEG reads a buffer of the
/// toolkit's own in one go, and could not be stopped.
class StoppableBytes : public QIODevice {
 public:
  StoppableBytes(std::string_view bytes, const std::atomic<bool>& unwanted) : bytes_(bytes), unwanted_(unwanted) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
  }
  qint64 size() const override { return static_cast<qint64>(bytes_.size()); }

 protected:
  qint64 readData(char* data, qint64 most) override {
    if (unwanted_) return -1;
    const auto at = std::min(static_cast<std::size_t>(pos()), bytes_.size());
    const std::string_view part = bytes_.substr(at, static_cast<std::size_t>(most));
    std::memcpy(data, part.data(), part.size());
    return static_cast<qint64>(part.size());
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  std::string_view bytes_;
  const std::atomic<bool>& unwanted_;
};

bool fitsLimit(const QSize& size) {
  constexpr qint64 BytesPerPixel = 4;
  const qint64 limit = qint64{QImageReader::allocationLimit()} << 20;
  return BytesPerPixel * size.width() * size.height() <= limit;
}

// The decoder of JPEG gives a half, a quarter and an eighth at once; any other size it makes from these, in the time of
// one more scaling.
QSize decodedSize(const QSize& whole, const QSize& area, Fit fit) {
  const QSize shown = area.isEmpty() ? whole : area;
  const QSize covering = whole.scaled(shown, fit == Fit::Cover ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio);
  int parts = 1;
  while (parts < 8 && (whole.width() / (parts * 2) >= covering.width() || !fitsLimit(whole / parts)))
    parts *= 2;
  return parts > 1 ? whole / parts : covering.boundedTo(whole);
}

/// An icon file holds the same picture in several sizes: the smallest that covers the area, or the largest.
void chooseIcon(QImageReader& reader, const QSize& area) {
  int best = 0;
  QSize bestSize;
  for (int number = 0; number < reader.imageCount() && reader.jumpToImage(number); ++number) {
    const QSize size = reader.size();
    const auto covers = [&](const QSize& each) { return !area.isEmpty() && each.width() >= area.width(); };
    const bool better =
        covers(bestSize) ? covers(size) && size.width() < bestSize.width() : size.width() > bestSize.width();
    if (bestSize.isValid() && !better) continue;
    best = number;
    bestSize = size;
  }
  reader.jumpToImage(best);
}

DecodedPicture decodeByToolkit(const std::string& bytes, std::string_view format, const PictureWish& wish,
                               const std::atomic<bool>& unwanted) {
  StoppableBytes device(bytes, unwanted);
  QImageReader reader(&device);
  reader.setAutoTransform(true);
  // Left to find out the format, the toolkit would load its readers of all, which takes longer than a small picture.
  reader.setAutoDetectImageFormat(false);
  reader.setFormat(QByteArray(format.data(), static_cast<qsizetype>(format.size())));
  if (format == "ico") chooseIcon(reader, wish.area);
  const int held = heldByCamera(bytes);
  const bool turned = liesDown(held) || reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
  const QSize whole = reader.size(), area = turned ? wish.area.transposed() : wish.area;
  const bool scalesEarly = format == "jpeg", isDrawn = format == "svg";
  const bool wantsAll = area.isEmpty() || (wish.fit == Fit::Preview && !scalesEarly);
  if (whole.isValid() && isDrawn && !wantsAll) {
    reader.setScaledSize(whole.scaled(area, Qt::KeepAspectRatio));
  } else if (whole.isValid() && (!wantsAll || scalesEarly || !fitsLimit(whole))) {
    reader.setScaledSize(decodedSize(whole, area, wish.fit));
  }
  DecodedPicture decoded;
  decoded.image = turnedUpright(reader.read(), held);
  decoded.natural = !whole.isValid() ? decoded.image.size() : turned ? whole.transposed() : whole;
  return decoded;
}

}  // namespace

DecodedPicture decodePicture(const std::string& bytes, const PictureWish& wish, const std::atomic<bool>& unwanted) {
  const std::string_view format = core::pictureFormat(bytes);
  if (format.empty() || isCutOff(bytes)) return {};
  DecodedPicture decoded = format == "heif" ? decodeHeif(bytes) : decodeByToolkit(bytes, format, wish, unwanted);
  if (unwanted || decoded.image.isNull()) return {};
  // What the screen is drawn in: drawing it later is a mere copy.
  const bool seeThrough = decoded.image.hasAlphaChannel();
  decoded.image.convertTo(seeThrough ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  return decoded;
}

}  // namespace varnholt::qt
