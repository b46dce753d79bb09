#include "platform/posix/volume_facts.hpp"

#include "platform/posix/identity.hpp"

#include <algorithm>
#include <charconv>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace varnholt::platform::posix {
namespace {

template <size_t N>
bool isOneOf(std::string_view word, const std::string_view (&words)[N]) {
  return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

bool isNetworkType(std::string_view type) {
  static constexpr std::string_view types[] = {"cifs", "smb3", "smbfs",      "nfs",        "nfs4",       "ncpfs",
                                               "afs",  "ceph", "fuse.sshfs", "fuse.davfs", "fuse.rclone"};
  return isOneOf(type, types);
}

/// udev marks the whole disk; a partition's mark is its parent's.
bool isRemovable(dev_t device) {
  const std::string base = "/sys/dev/block/" + std::to_string(major(device)) + ':' + std::to_string(minor(device));
  for (const char* tail : {"/removable", "/../removable"})
    if (const std::string text = readSystemFile((base + tail).c_str()); !text.empty()) return text.front() == '1';
  return false;
}

/// The name of the link in a folder of /dev/disk that leads to the device.
std::string linkToDevice(const char* folder, dev_t device) {
  const std::unique_ptr<DIR, int (*)(DIR*)> links(::opendir(folder), ::closedir);
  if (!links) return {};
  while (const dirent* link = ::readdir(links.get())) {
    struct stat facts {};
    if (::fstatat(::dirfd(links.get()), link->d_name, &facts, 0) == 0 && S_ISBLK(facts.st_mode) &&
        facts.st_rdev == device)
      return link->d_name;
  }
  return {};
}

/// udev writes bytes that a file name may not hold as "\x20".
std::string undoUdevEscapes(std::string_view text) {
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    unsigned byte = 0;
    if (text.substr(i).starts_with("\\x") && i + 4 <= text.size() &&
        std::from_chars(text.data() + i + 2, text.data() + i + 4, byte, 16).ptr == text.data() + i + 4) {
      out += static_cast<char>(byte);
      i += 3;
    } else {
      out += text[i];
    }
  }
  return out;
}

}  // namespace

std::string fileSystemName(std::string_view type) {
  if (type == "iso9660") return "CDFS";
  if (type == "vfat") return "FAT32";
  if (type == "ntfs" || type == "ntfs3" || type == "fuseblk") return "NTFS";
  std::string name(type);
  for (char& c : name)
    c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
  return name;
}

DriveType driveTypeOf(const Mount& mount) {
  if (mount.type == "iso9660" || mount.type == "udf") return DriveType::CdRom;
  if (isNetworkType(mount.type)) return DriveType::Network;
  if (mount.type == "tmpfs" || mount.type == "ramfs") return DriveType::RamDisk;
  return isRemovable(mount.device) ? DriveType::Removable : DriveType::Fixed;
}

std::string shareOf(const Mount& mount) {
  if (!isNetworkType(mount.type)) return {};
  std::string share = mount.source;
  if (share.starts_with("//")) std::replace(share.begin(), share.end(), '/', '\\');
  return share;
}

std::string labelOfDevice(dev_t device) { return undoUdevEscapes(linkToDevice("/dev/disk/by-label", device)); }

std::int32_t serialOfDevice(dev_t device) {
  const std::string identifier = linkToDevice("/dev/disk/by-uuid", device);
  return identifier.empty() ? 0 : serialFromIdentifier(identifier);
}

std::int32_t serialFromIdentifier(std::string_view identifier) {
  std::string digits(identifier);
  std::erase(digits, '-');
  std::uint64_t number = 0;
  const char* end = digits.data() + digits.size();
  const bool dosForm = (identifier.size() == 9 && identifier[4] == '-') || identifier.size() == 16;
  if (dosForm && std::from_chars(digits.data(), end, number, 16).ptr == end)
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
  return static_cast<std::int32_t>(digest(identifier));
}

}  // namespace varnholt::platform::posix
