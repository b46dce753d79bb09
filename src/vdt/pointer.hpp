#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace varnholt::vdt {

/// Stands in place of the name in the row of a folder.
inline constexpr std::string_view FolderMark = "<Folder>";

/// What a row points to: a file by its folder and its name, or a folder and the mark.
struct Pointer {
  std::string Text;     ///< of a folder, with one closing backslash
  std::string SubItem;  ///< name of the file, or the mark

  bool isFolder() const { return SubItem == FolderMark; }
  /// What pointers are told apart by, and the line of a project.
  std::string key() const { return Text + SubItem; }
  std::string target() const { return isFolder() ? Text : key(); }
  bool operator==(const Pointer&) const = default;
};

Pointer toFolder(std::string_view path);
/// Split at the last backslash.
Pointer toFile(std::string_view path);

/// What a line of a project points to, as far as its text tells. None: it is too short to be more than rubbish.
std::optional<Pointer> pointerOf(std::string_view line);
/// Whether a pointer counts only while its file is there: lines as short as that are rubbish else.
bool isShort(const Pointer& pointer);
/// The folder that the pointer to a file leads to when the name ends with the mark, which somebody may have put there
/// without a backslash.
std::optional<std::string> folderBeforeMark(const Pointer& pointer);

}  // namespace varnholt::vdt
