#pragma once

#include "qt/blocking_call.hpp"

#include <QImage>
#include <QPixmap>

#include <functional>
#include <future>
#include <map>
#include <optional>
#include <string>

namespace varnholt::qt {

/// Pictures by program path (skins, line images, previews).
class Pictures {
 public:
  /// Gives the bytes of the file at a program path; nothing when it cannot be read.
  using Reader = std::function<std::optional<std::string>(const std::string& path)>;

  void setReader(Reader reader) { reader_ = std::move(reader); }

  /// Null when there is no such picture, here as below. Kept, for the few line images that all lists share.
  const QPixmap& kept(const std::string& path);
  /// As small as it can be and still cover an area of that size in pixels: a large skin is decoded in a fraction of the
  /// time that all of it would take.
  QImage covering(const std::string& path, const QSize& area);
  /// Begins to decode, beside, what `covering` will be asked for: the picture of a window that is being built.
  void decodeAhead(const std::string& path, const QSize& area);
  /// Reads it anew, beside the window: a folder of photos must not pile up in memory, and any of them may be large or
  /// lie on a drive that does not answer. At least as large as `area` in pixels lets it be shown, where the format can
  /// be read smaller; an empty area: in its own size. `done` runs on the window's thread.
  struct Loaded {
    QImage image;   ///< null when there is no such picture
    QSize natural;  ///< its own size
  };
  void loadBeside(const std::string& path, const QSize& area, std::function<void(const Loaded&)> done);

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
