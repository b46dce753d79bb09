#pragma once

#include "platform/drives.hpp"
#include "platform/posix/mount_table.hpp"

#include <string>
#include <string_view>

namespace varnholt::platform::posix {

/// The name shown for a kernel's file system type: "iso9660" is "CDFS", "vfat" is "FAT32", ntfs, ntfs3 and fuseblk
/// are "NTFS", the rest in upper case.
std::string fileSystemName(std::string_view kernelType);

DriveType driveTypeOf(const Mount& mount);

/// The share of a network volume ("\\server\photos"; "server:/export" as NFS writes it); else empty.
std::string shareOf(const Mount& mount);

/// The label and serial that udev has for the device (/dev/disk/by-label, by-uuid). Empty and 0 without.
std::string labelOfDevice(dev_t device);
std::int32_t serialOfDevice(dev_t device);

/// A serial from a volume identifier: "1A2B-3C4D" as the number it writes, the low half of NTFS's 16 digits, and a
/// digest of anything else.
std::int32_t serialFromIdentifier(std::string_view identifier);

}  // namespace varnholt::platform::posix
