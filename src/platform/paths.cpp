#include "platform/paths.hpp"

#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::platform::paths {
namespace {

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool hasDrive(std::string_view path) { return path.size() >= 2 && path[1] == ':' && isLetter(path[0]); }

// Where the extension begins. A point that leads or ends the name begins none.
size_t extensionPoint(std::string_view name) {
  const size_t point = name.rfind('.');
  return point == 0 || point == name.size() - 1 ? std::string_view::npos : point;
}

std::string_view trimClosing(std::string_view path) {
  while (!path.empty() && path.back() == '\\')
    path.remove_suffix(1);
  return path;
}

}  // namespace

std::string join(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.empty() && path.back() != '\\') path += '\\';
  return path.append(name);
}

std::string withClosing(std::string_view folder) {
  return folder.empty() ? std::string() : std::string(trimClosing(folder)) + '\\';
}

std::string withoutClosing(std::string_view folder) {
  const std::string_view trimmed = trimClosing(folder);
  const bool root = hasDrive(trimmed) && trimmed.size() == 2;
  return std::string(trimmed) + (root && trimmed.size() < folder.size() ? "\\" : "");
}

bool isRoot(std::string_view path) {
  return hasDrive(path) && (path.size() == 2 || (path.size() == 3 && path[2] == '\\'));
}

std::string driveOf(std::string_view path) {
  return hasDrive(path) ? std::string{static_cast<char>(path[0] & ~0x20), ':'} : std::string();
}

std::string_view fileName(std::string_view path) {
  const std::string_view trimmed = trimClosing(path);
  if (isRoot(trimmed)) return {};
  const size_t slash = trimmed.rfind('\\');
  return slash == std::string_view::npos ? trimmed : trimmed.substr(slash + 1);
}

std::string parent(std::string_view path) {
  const std::string_view trimmed = trimClosing(path);
  if (isRoot(trimmed)) return withClosing(trimmed);
  const size_t slash = trimmed.rfind('\\');
  return slash == std::string_view::npos ? std::string() : withClosing(trimmed.substr(0, slash + 1));
}

std::string_view extension(std::string_view name) {
  const size_t point = extensionPoint(name);
  return point == std::string_view::npos ? std::string_view() : name.substr(point + 1);
}

std::string_view baseName(std::string_view name) { return name.substr(0, extensionPoint(name)); }

bool isProgramName(std::string_view name) {
  constexpr std::string_view Extensions[] = {"exe", "dll", "ocx", "sys", "drv", "cpl", "scr", "com", "efi", "mui"};
  const std::string_view end = extension(name);
  return end.size() == 3 && std::ranges::count(Extensions, foldCase(end)) > 0;
}

bool sameFolder(std::string_view a, std::string_view b) { return foldCase(trimClosing(a)) == foldCase(trimClosing(b)); }

}  // namespace varnholt::platform::paths
