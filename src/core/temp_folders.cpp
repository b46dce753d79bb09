#include "core/temp_folders.hpp"

#include "platform/paths.hpp"

namespace varnholt::core {

void CleanTempFolders(platform::FileSystem& files, const std::string& tmp, const std::string& temp) {
  for (const auto& folder : {tmp, temp}) {
    if (folder.empty()) continue;
    const auto listing = files.list(folder);
    if (!listing) continue;
    for (const auto& entry : (*listing)->files())
      if (entry.name.starts_with(TemporaryPrefix) && entry.kind == platform::EntryKind::File)
        (void)files.deleteFile(platform::paths::join(folder, entry.name), true);
  }
}

}  // namespace varnholt::core
