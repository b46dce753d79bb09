#include "rename/item.hpp"

#include "core/item_text.hpp"
#include "platform/paths.hpp"

namespace varnholt::rename {

namespace paths = platform::paths;

Item SplitFolderItem(std::string_view text, std::string_view folder) {
  const std::string path = core::entryPath(text, folder);
  return {paths::parent(path), std::string(paths::fileName(path)), core::isFolderItem(text)};
}

}  // namespace varnholt::rename
