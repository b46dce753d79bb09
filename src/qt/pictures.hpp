#pragma once

#include <QPixmap>

#include <functional>
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

  /// Null when there is no such picture. Skins and line images are kept: all windows share few of them.
  const QPixmap& kept(const std::string& path);
  /// Read anew, for previews: a folder of photos must not pile up in memory.
  QPixmap fresh(const std::string& path) const;

 private:
  Reader reader_;
  std::map<std::string, QPixmap> kept_;
};

}  // namespace varnholt::qt
