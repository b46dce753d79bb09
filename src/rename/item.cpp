#include "rename/item.hpp"

#include "platform/paths.hpp"

namespace varnholt::rename {

namespace paths = platform::paths;

Item SplitFolderItem(const core::Item& item, std::string_view folder) {
  const std::string path = core::entryPath(item.path, folder);
  return {paths::parent(path), std::string(paths::fileName(path)), item.isFolder};
}

}  // namespace varnholt::rename
