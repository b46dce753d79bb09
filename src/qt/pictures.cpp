#include "qt/pictures.hpp"

#include "core/picture_file.hpp"

#include <utility>

namespace varnholt::qt {
namespace {

using Fit = PictureWish::Fit;

// More than any picture that can be shown has.
constexpr std::uint64_t LargestFile = 1u << 30;

const std::atomic<bool> AlwaysWanted{false};

// Of a film that is passed by, no more is read than tells what it is.
std::optional<std::string> pictureFile(const Pictures::Reader& reader, const std::string& path) {
  if (!reader) return {};
  const auto beginning = reader(path, core::PictureBeginning);
  if (!beginning || core::pictureFormat(*beginning).empty()) return {};
  return reader(path, LargestFile);
}

}  // namespace

QPixmap Pictures::drawn(const std::string& bytes) {
  return QPixmap::fromImage(decodePicture(bytes, {}, AlwaysWanted).image);
}

const QPixmap& Pictures::kept(const std::string& path) {
  const auto found = kept_.find(path);
  if (found != kept_.end()) return found->second;
  const auto bytes = path.empty() ? std::nullopt : pictureFile(reader_, path);
  return kept_[path] = bytes ? drawn(*bytes) : QPixmap();
}

void Pictures::loadBeside(const std::string& path, const PictureWish& wish, Unwanted unwanted,
                          std::function<void(DecodedPicture)> done) {
  const auto loaded = std::make_shared<DecodedPicture>();
  aside_.run(
      [reader = reader_, path, wish, unwanted, loaded] {
        if (const auto bytes = pictureFile(reader, path)) *loaded = decodePicture(*bytes, wish, *unwanted);
      },
      [loaded, done = std::move(done)] { done(std::move(*loaded)); });
}

void Pictures::decodeAhead(const std::string& path, const QSize& area) {
  auto bytes = pictureFile(reader_, path);
  if (!bytes) return;
  ahead_ = {path, std::async(std::launch::async, [bytes = *std::move(bytes), area] {
              return decodePicture(bytes, {area, Fit::Cover}, AlwaysWanted).image;
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
