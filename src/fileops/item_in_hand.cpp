#include "fileops/item_in_hand.hpp"

namespace varnholt::fileops {

std::string targetOf(const panels::Desk& desk, std::string_view name) {
  return desk.form.TargetPath + std::string(name);
}

platform::TreeSize treeSize(const panels::Desk& desk, const std::string& folder, const platform::Progress& progress) {
  const auto info = desk.files().info(folder);
  if (!info || info->isLink) return {};
  return desk.files().folderSize(folder, progress).valueOr({});
}

std::uint64_t folderBytes(const panels::Desk& desk, const std::string& folder) {
  return desk.program.loop.ask([&] { return treeSize(desk, folder).bytes; });
}

}  // namespace varnholt::fileops
