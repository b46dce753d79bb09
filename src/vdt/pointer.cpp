#include "vdt/pointer.hpp"

#include "core/text_character.hpp"
#include "platform/paths.hpp"

namespace varnholt::vdt {

namespace paths = platform::paths;

Pointer toFolder(std::string_view path) { return {paths::withClosing(path), std::string(FolderMark)}; }

Pointer toFile(std::string_view path) {
  const std::size_t name = path.rfind('\\') + 1;
  return {std::string(path.substr(0, name)), std::string(path.substr(name))};
}

bool isShort(const Pointer& pointer) { return core::characterCount(pointer.key()) <= FolderMark.size(); }

std::optional<Pointer> pointerOf(std::string_view line) {
  Pointer pointer = toFile(line);
  const std::string drive = paths::driveOf(pointer.Text);
  if (drive.empty() && isShort(pointer)) return {};
  pointer.Text.replace(0, drive.size(), drive);
  return pointer.isFolder() ? toFolder(pointer.Text) : pointer;
}

std::optional<std::string> folderBeforeMark(const Pointer& pointer) {
  if (pointer.isFolder() || !pointer.SubItem.ends_with(FolderMark)) return {};
  const std::string key = pointer.key();
  return key.substr(0, key.size() - FolderMark.size());
}

}  // namespace varnholt::vdt
