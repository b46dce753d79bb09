#include "fileops/context.hpp"

namespace varnholt::fileops {

std::uint64_t Context::folderBytes(const std::string& folder) const {
  std::uint64_t bytes = 0;
  program.loop.runBlocking([&] { bytes = treeSize(folder).bytes; });
  return bytes;
}

platform::TreeSize Context::treeSize(const std::string& folder, const platform::Progress& progress) const {
  const auto info = files().info(folder);
  if (!info || info->isLink) return {};
  return files().folderSize(folder, progress).valueOr({});
}

}  // namespace varnholt::fileops
