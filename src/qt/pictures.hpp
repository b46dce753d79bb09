#pragma once

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
  /// Read anew, for previews: a folder of photos must not pile up in memory.
  QPixmap fresh(const std::string& path) const;

 private:
  struct Ahead {
    std::string path;
    std::future<QImage> image;
  };

  Reader reader_;
  std::map<std::string, QPixmap> kept_;
  Ahead ahead_;
};

}  // namespace varnholt::qt
