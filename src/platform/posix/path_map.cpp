#include "platform/posix/path_map.hpp"

#include "platform/paths.hpp"

#include <algorithm>

namespace varnholt::platform::posix {
namespace {

Error invalid(std::string_view path, const char* why) { return {ErrorCode::InvalidPath, std::string(path), why}; }

bool isDriveLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

const DriveMapping* driveOfLetter(const std::vector<DriveMapping>& drives, char letter) {
  const char upper = static_cast<char>(letter & ~0x20);
  for (const DriveMapping& drive : drives)
    if (drive.letter == upper) return &drive;
  return nullptr;
}

bool holds(const std::string& folder, std::string_view path) {
  if (folder == "/") return true;
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

const DriveMapping* driveHolding(const std::vector<DriveMapping>& drives, std::string_view path) {
  const DriveMapping* best = nullptr;
  for (const DriveMapping& drive : drives)
    if (holds(drive.folder, path) && (!best || drive.folder.size() > best->folder.size())) best = &drive;
  return best;
}

void appendNameToSystem(std::string_view name, std::string& out) {
  for (size_t i = 0; i < name.size();) {
    const std::string_view rest = name.substr(i);
    if (rest.starts_with(paths::BackslashStandIn)) {
      out += '\\';
      i += paths::BackslashStandIn.size();
    } else if (rest.starts_with(paths::EscapeMark)) {
      const std::string_view next = rest.substr(paths::EscapeMark.size());
      const bool escapes = next.starts_with(paths::BackslashStandIn) || next.starts_with(paths::EscapeMark);
      // Both have three bytes. A mark before anything else was typed by somebody and stands for itself.
      out += escapes ? next.substr(0, 3) : paths::EscapeMark;
      i += escapes ? 6 : 3;
    } else {
      out += name[i++];
    }
  }
}

}  // namespace

PathMap::PathMap(DriveSources sources) : sources_(std::move(sources)) { set(sources_.read()); }

PathMap::PathMap(std::vector<DriveMapping> drives) : fixed_(true) { set(std::move(drives)); }

PathMap::Table PathMap::table() const {
  const std::lock_guard lock(mutex_);
  return table_;
}

void PathMap::set(std::vector<DriveMapping> drives) {
  drives.insert(drives.end(), hidden_.begin(), hidden_.end());
  auto table = std::make_shared<const std::vector<DriveMapping>>(std::move(drives));
  const std::lock_guard lock(mutex_);
  table_ = std::move(table);
}

std::vector<DriveMapping> PathMap::drives() const { return *table(); }

bool PathMap::reach(const std::string& folder) {
  std::vector<DriveMapping> drives = this->drives();
  for (char letter = 'Y'; letter >= 'A'; --letter) {
    if (driveOfLetter(drives, letter)) continue;
    DriveMapping drive;
    drive.letter = letter;
    drive.folder = folder;
    drive.hidden = true;
    std::erase_if(drives, [](const DriveMapping& each) { return each.hidden; });
    hidden_.push_back(std::move(drive));
    set(std::move(drives));
    return true;
  }
  return false;
}

void PathMap::reload() {
  if (fixed_) return;
  for (const DriveMapping& drive : *table())
    if (!drive.hidden &&
        std::none_of(seen_.begin(), seen_.end(), [&](const auto& each) { return each.letter == drive.letter; }))
      seen_.push_back(drive);
  set(sources_.read(seen_));
}

Result<std::string> PathMap::toSystem(std::string_view path) const {
  if (path.size() < 2 || path[1] != ':' || !isDriveLetter(path[0])) return invalid(path, "no drive letter");
  if (path.size() > 2 && path[2] != '\\') return invalid(path, "no backslash after the drive");
  if (path.find('/') != std::string_view::npos || path.find('\0') != std::string_view::npos)
    return invalid(path, "a slash or NUL in the path");
  const Table drives = table();
  const DriveMapping* drive = driveOfLetter(*drives, path[0]);
  if (!drive) return invalid(path, "no such drive");
  std::string system = drive->folder == "/" ? "" : drive->folder;
  for (std::string_view rest = path.substr(2); !rest.empty();) {
    const size_t end = std::min(rest.find('\\'), rest.size());
    if (end > 0) {
      system += '/';
      appendNameToSystem(rest.substr(0, end), system);
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return system.empty() ? "/" : system;
}

Result<std::string> PathMap::toProgram(std::string_view path) const {
  if (path.empty() || path.front() != '/') return invalid(path, "not an absolute path");
  const Table drives = table();
  const DriveMapping* drive = driveHolding(*drives, path);
  if (!drive) return invalid(path, "no drive holds this path");
  std::string program{drive->letter, ':'};
  for (std::string_view rest = path.substr(drive->folder == "/" ? 0 : drive->folder.size()); !rest.empty();) {
    const size_t end = std::min(rest.find('/'), rest.size());
    if (end > 0) {
      program += '\\';
      appendNameToProgram(rest.substr(0, end), program);
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return program.size() == 2 ? program + '\\' : program;
}

void PathMap::appendNameToProgram(std::string_view name, std::string& out) {
  // One look for each: a search for either of them asks about each letter by a call.
  if (name.find('\\') == std::string_view::npos && name.find('\xEF') == std::string_view::npos) {
    out += name;
    return;
  }
  for (size_t i = 0; i < name.size();) {
    const std::string_view rest = name.substr(i);
    if (rest.front() == '\\') {
      out += paths::BackslashStandIn;
      ++i;
    } else if (rest.starts_with(paths::BackslashStandIn) || rest.starts_with(paths::EscapeMark)) {
      out += paths::EscapeMark;
      out += rest.substr(0, 3);
      i += 3;
    } else {
      out += rest.front();
      ++i;
    }
  }
}

std::string PathMap::nameToProgram(std::string_view name) {
  std::string out;
  appendNameToProgram(name, out);
  return out;
}

std::string PathMap::nameToSystem(std::string_view name) {
  std::string out;
  appendNameToSystem(name, out);
  return out;
}

}  // namespace varnholt::platform::posix
