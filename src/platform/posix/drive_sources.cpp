#include "platform/posix/drive_sources.hpp"

#include <algorithm>
#include <charconv>
#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

std::string environmentText(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string homeFolder() {
  if (std::string home = environmentText("HOME"); !home.empty() && home.front() == '/') return home;
  const passwd* user = ::getpwuid(::getuid());
  return user && user->pw_dir && *user->pw_dir == '/' ? user->pw_dir : "/";
}

std::string_view trim(std::string_view text) {
  const auto from = text.find_first_not_of(" \t\r");
  if (from == std::string_view::npos) return {};
  return text.substr(from, text.find_last_not_of(" \t\r") - from + 1);
}

std::optional<char> letterOf(std::string_view text) {
  if (text.size() != 1) return {};
  const char upper = static_cast<char>(text[0] & ~0x20);
  return upper >= 'A' && upper <= 'Z' ? std::optional(upper) : std::nullopt;
}

std::string withoutClosingSlash(std::string_view folder) {
  while (folder.size() > 1 && folder.back() == '/')
    folder.remove_suffix(1);
  return std::string(folder);
}

template <class Number>
std::optional<Number> numberOf(std::string_view text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  return parsed.ec == std::errc() && parsed.ptr == end ? std::optional(number) : std::nullopt;
}

std::optional<DriveType> typeOf(std::string_view word) {
  static constexpr std::pair<std::string_view, DriveType> words[] = {{"removable", DriveType::Removable},
                                                                     {"fixed", DriveType::Fixed},
                                                                     {"network", DriveType::Network},
                                                                     {"cdrom", DriveType::CdRom},
                                                                     {"ramdisk", DriveType::RamDisk}};
  for (const auto& [name, type] : words)
    if (name == word) return type;
  return {};
}

/// One line of a section. A value that makes no sense leaves the drive as it is.
void applyLine(DriveMapping& drive, std::string_view key, std::string_view value) {
  if (key == "folder" && !value.empty() && value.front() == '/')
    drive.folder = withoutClosingSlash(value);
  else if (key == "type")
    drive.type = typeOf(value);
  else if (key == "filesystem")
    drive.fileSystem = std::string(value);
  else if (key == "label")
    drive.label = std::string(value);
  else if (key == "share")
    drive.share = std::string(value);
  else if (key == "serial")
    drive.serial = numberOf<std::int32_t>(value);
  else if (key == "total")
    drive.totalBytes = numberOf<std::uint64_t>(value);
  else if (key == "free")
    drive.freeBytes = numberOf<std::uint64_t>(value);
  else if (key == "notready")
    drive.notReady = true;
}

void dropUnusable(std::vector<DriveMapping>& drives) {
  std::erase_if(drives, [](const DriveMapping& drive) { return drive.folder.empty(); });
  std::stable_sort(drives.begin(), drives.end(), [](const auto& a, const auto& b) { return a.letter < b.letter; });
  const auto sameLetter = [](const auto& a, const auto& b) { return a.letter == b.letter; };
  drives.erase(std::unique(drives.begin(), drives.end(), sameLetter), drives.end());
}

DriveMapping makeDrive(char letter, std::string_view folder) {
  DriveMapping drive;
  drive.letter = letter;
  drive.folder = withoutClosingSlash(folder);
  return drive;
}

bool isBelow(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

bool isUserVolume(const Mount& mount) {
  return mount.type != "autofs" &&
         (isBelow(mount.point, "/media") || isBelow(mount.point, "/run/media") || isBelow(mount.point, "/mnt"));
}

}  // namespace

DriveSources DriveSources::fromSystem() {
  DriveSources sources;
  sources.variable = environmentText("VARNHOLT_DRIVES");
  sources.home = homeFolder();
  std::string config = environmentText("XDG_CONFIG_HOME");
  if (config.empty() || config.front() != '/') config = sources.home + "/.config";
  sources.configFile = config + "/varnholt/drives.conf";
  sources.mountInfoFile = MountInfo;
  return sources;
}

std::vector<DriveMapping> DriveSources::read(const std::vector<DriveMapping>& current) const {
  if (auto drives = parseDriveVariable(variable); !drives.empty()) return drives;
  // It is read whenever the window comes to the front.
  constexpr std::size_t most = 1u << 20;
  if (auto drives = parseDriveFile(readSystemFile(configFile.c_str(), most)); !drives.empty()) return drives;
  return defaultDrives(home, readMounts(mountInfoFile), current);
}

std::vector<DriveMapping> parseDriveVariable(std::string_view text) {
  std::vector<DriveMapping> drives;
  while (!text.empty()) {
    const size_t end = std::min(text.find(';'), text.size());
    const std::string_view part = trim(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    const size_t equals = part.find('=');
    if (equals == std::string_view::npos) continue;
    const auto letter = letterOf(trim(part.substr(0, equals)));
    const auto folder = trim(part.substr(equals + 1));
    if (letter && !folder.empty() && folder.front() == '/') drives.push_back(makeDrive(*letter, folder));
  }
  dropUnusable(drives);
  return drives;
}

std::vector<DriveMapping> parseDriveFile(std::string_view text) {
  std::vector<DriveMapping> drives;
  bool inSection = false;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = trim(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.empty() || line.front() == '#') continue;
    if (line.front() == '[') {
      const auto letter = line.back() == ']' ? letterOf(line.substr(1, line.size() - 2)) : std::nullopt;
      inSection = letter.has_value();
      if (letter) drives.push_back(makeDrive(*letter, ""));
      continue;
    }
    const size_t equals = std::min(line.find('='), line.size());
    if (inSection)
      applyLine(drives.back(), trim(line.substr(0, equals)), trim(line.substr(std::min(equals + 1, line.size()))));
  }
  dropUnusable(drives);
  return drives;
}

std::vector<DriveMapping> defaultDrives(const std::string& home, const std::vector<Mount>& mounts,
                                        const std::vector<DriveMapping>& current) {
  std::vector<DriveMapping> drives{makeDrive('C', home.empty() ? "/" : home), makeDrive('Z', "/")};
  const auto of = [](const std::vector<DriveMapping>& list, auto DriveMapping::*field, const auto& value) {
    return std::find_if(list.begin(), list.end(), [&](const DriveMapping& each) { return each.*field == value; });
  };
  char letter = 'D';
  for (const Mount& mount : mounts) {
    if (of(drives, &DriveMapping::folder, mount.point) != drives.end() || !isUserVolume(mount)) continue;
    if (const auto kept = of(current, &DriveMapping::folder, mount.point); kept != current.end()) {
      drives.push_back(makeDrive(kept->letter, mount.point));
      continue;
    }
    while (letter < 'Z' && of(current, &DriveMapping::letter, letter) != current.end())
      ++letter;
    if (letter < 'Z') drives.push_back(makeDrive(letter++, mount.point));
  }
  dropUnusable(drives);
  return drives;
}

}  // namespace varnholt::platform::posix
