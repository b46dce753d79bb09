#pragma once

#include "qt/blocking_call.hpp"
#include "qt/picture_decoder.hpp"

#include <QImage>
#include <QPixmap>

#include <atomic>
#include <cstdint>
#include <functional>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace varnholt::qt {

/// Pictures by program path (skins, line images, previews).
class Pictures {
 public:
  /// Gives the bytes of the file at a program path, at most so many; nothing when it cannot be read. Called on any
  /// thread.
  using Reader = std::function<std::optional<std::string>(const std::string& path, std::uint64_t most)>;

  void setReader(Reader reader) { reader_ = std::move(reader); }

  /// Null when there is no such picture, here as below. Kept, for the few line images that all lists share.
  const QPixmap& kept(const std::string& path);
  /// As small as it can be and still cover an area of that size in pixels: a large skin is decoded in a fraction of the
  /// time that all of it would take.
  QImage covering(const std::string& path, const QSize& area);
  /// Begins to decode, beside, what `covering` will be asked for: the picture of a window that is being built.
  void decodeAhead(const std::string& path, const QSize& area);
  /// The picture that these bytes of a file are.
  static QPixmap drawn(const std::string& bytes);
  /// Reads it anew, beside the window: a folder of photos must not pile up in memory, and any of them may be large or
  /// lie on a drive that does not answer. `done` runs on the window's thread. Setting the token makes it end early.
  using Unwanted = std::shared_ptr<std::atomic<bool>>;
  void loadBeside(const std::string& path, const PictureWish& wish, Unwanted unwanted,
                  std::function<void(DecodedPicture)> done);

 private:
  struct Ahead {
    std::string path;
    std::future<QImage> image;
  };

  Reader reader_;
  std::map<std::string, QPixmap> kept_;
  Aside aside_;
  Ahead ahead_;
};

}  // namespace varnholt::qt
