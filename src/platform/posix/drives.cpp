#include "platform/posix/drives.hpp"

#include "platform/posix/mount_table.hpp"
#include "platform/posix/mount_watch.hpp"
#include "platform/posix/volume_facts.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

namespace varnholt::platform::posix {
namespace {

/// The mount that a path lies on: by the kernel's own number for it, else by device.
std::optional<Mount> mountOf(const std::string& path, dev_t device) {
  const auto mounts = readMounts();
  struct statx facts;
  if (::statx(AT_FDCWD, path.c_str(), AT_NO_AUTOMOUNT, STATX_MNT_ID, &facts) == 0 && (facts.stx_mask & STATX_MNT_ID))
    for (const Mount& mount : mounts)
      if (mount.id == facts.stx_mnt_id) return mount;
  return mountOfDevice(mounts, device);
}

void takeSizes(const std::string& path, DriveInfo& info) {
  struct statvfs facts {};
  if (::statvfs(path.c_str(), &facts) != 0) return;
  const std::uint64_t unit = facts.f_frsize;
  info.totalBytes = facts.f_blocks * unit;
  info.freeBytes = facts.f_bfree * unit;
  info.availableBytes = facts.f_bavail * unit;
  // The identifier of the file system, for volumes that udev has no name for.
  info.serial = static_cast<std::int32_t>(static_cast<std::uint32_t>(facts.f_fsid ^ (facts.f_fsid >> 32)));
}

void takeMount(const Mount& mount, DriveInfo& info) {
  info.fileSystem = fileSystemName(mount.type);
  info.type = driveTypeOf(mount);
  info.share = shareOf(mount);
  info.label = labelOfDevice(mount.device);
  if (const std::int32_t serial = serialOfDevice(mount.device)) info.serial = serial;
}

void takeMapping(const DriveMapping& drive, DriveInfo& info) {
  info.type = drive.type.value_or(info.type);
  info.fileSystem = drive.fileSystem.value_or(info.fileSystem);
  info.label = drive.label.value_or(info.label);
  info.share = drive.share.value_or(info.share);
  info.serial = drive.serial.value_or(info.serial);
  info.totalBytes = drive.totalBytes.value_or(info.totalBytes);
  info.freeBytes = drive.freeBytes.value_or(info.freeBytes);
  info.availableBytes = drive.freeBytes.value_or(info.availableBytes);
}

DriveInfo unreadyDrive(const DriveMapping& drive) {
  DriveInfo info;
  info.letter = drive.letter;
  info.type = drive.type.value_or(DriveType::Unknown);
  info.share = drive.share.value_or(std::string());
  return info;
}

}  // namespace

PosixDrives::PosixDrives(PathMap& map) : map_(map) {}
PosixDrives::~PosixDrives() = default;

void PosixDrives::watch(std::function<void()> changed) { watch_ = std::make_unique<MountWatch>(std::move(changed)); }

std::vector<char> PosixDrives::letters() const {
  std::vector<char> letters;
  for (const DriveMapping& drive : map_.drives())
    if (!drive.hidden) letters.push_back(drive.letter);
  return letters;
}

Result<DriveInfo> PosixDrives::info(char letter) const {
  const char upper = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 32) : letter;
  for (const DriveMapping& drive : map_.drives())
    if (drive.letter == upper) return readVolume(drive, drive.folder);
  return Error{ErrorCode::InvalidPath, std::string(1, letter) + ":\\", "no such drive"};
}

DriveInfo readVolume(const DriveMapping& drive, const std::string& path) {
  struct stat here {
  }, atRoot{};
  if (drive.notReady || ::stat(path.c_str(), &here) != 0 || ::stat(drive.folder.c_str(), &atRoot) != 0 ||
      !S_ISDIR(atRoot.st_mode))
    return unreadyDrive(drive);
  DriveInfo info;
  info.letter = drive.letter;
  info.ready = true;
  takeSizes(path, info);
  if (const auto mount = mountOf(path, here.st_dev)) takeMount(*mount, info);
  // A volume mounted somewhere below the drive's folder is not what the map speaks of.
  if (here.st_dev == atRoot.st_dev) takeMapping(drive, info);
  return info;
}

}  // namespace varnholt::platform::posix
