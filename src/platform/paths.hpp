#pragma once

#include <string>
#include <string_view>

/// Path texts in the program's own form: drive letter, backslashes, bytes as the disk has them
/// (`C:\Photos\a.jpg`). Pure text: nothing here asks the disk.
namespace varnholt::platform::paths {

/// What a backslash within a name of the disk is in a name of ours (U+F05C: 0xF000 plus the character, the range that
/// other programs use for characters that Windows forbids), and what stands before one of these two that is itself in
/// the name (U+F01B). Both are UTF-8.
inline constexpr std::string_view BackslashStandIn = "\xEF\x81\x9C", EscapeMark = "\xEF\x80\x9B";

/// Folder and name joined by one backslash; none is added when the folder ends in one. An empty folder gives the name.
std::string join(std::string_view folder, std::string_view name);

/// The folder with exactly one closing backslash: the form in which panels and files of our own hold folders.
std::string withClosing(std::string_view folder);

/// The folder without closing backslash, a drive root ("C:\") excepted: the form shown to the user.
std::string withoutClosing(std::string_view folder);

/// True for "C:\" and "C:" in any case.
bool isRoot(std::string_view path);

/// "C:" in upper case from any path with a drive letter; empty text when there is none.
std::string driveOf(std::string_view path);

/// Name after the last backslash; a closing backslash is not part of it. Empty for a root.
std::string_view fileName(std::string_view path);

/// The folder that holds the path, with closing backslash; a root is its own parent.
std::string parent(std::string_view path);

/// Text behind the last point of the name, without the point. Empty for a name without a point, for one that ends in
/// its last point, and for one that begins with its only point: ".profile" is whole, ".tar.gz" gives "gz".
std::string_view extension(std::string_view name);

/// The name less its extension and the point before it; the whole name where there is no extension.
std::string_view baseName(std::string_view name);

/// True for the extensions of programs and libraries of Windows: what else would be opened for a version resource is
/// known to have none.
bool isProgramName(std::string_view name);

/// True when both texts name one folder: closing backslash and letter case do not count.
bool sameFolder(std::string_view a, std::string_view b);

}  // namespace varnholt::platform::paths
