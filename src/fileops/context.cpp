#include "fileops/context.hpp"

namespace varnholt::fileops {

std::uint64_t Context::folderBytes(const std::string& folder) const {
  std::uint64_t bytes = 0;
  program.loop.runBlocking([&] {
    const auto info = files().info(folder);
    if (!info || info->isLink) return;
    if (const auto size = files().folderSize(folder)) bytes = size->bytes;
  });
  return bytes;
}

}  // namespace varnholt::fileops
