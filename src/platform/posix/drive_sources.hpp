#pragma once

#include "platform/drives.hpp"
#include "platform/posix/mount_table.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::platform::posix {

/// One letter and the folder it stands for. What is given here goes before what the system says of the volume.
struct DriveMapping {
  char letter = 'C';   ///< upper case
  std::string folder;  ///< system form, absolute, without closing slash unless it is the root
  std::optional<DriveType> type;
  std::optional<std::string> fileSystem, label, share;
  std::optional<std::int32_t> serial;
  std::optional<std::uint64_t> totalBytes, freeBytes;
  bool notReady = false;
  bool hidden = false;  ///< in no list of drives: it only gives paths below its folder a name
};

/// Where the drive map comes from: the variable, else the file, else home, root and the mounted volumes.
struct DriveSources {
  std::string variable;       ///< text of VARNHOLT_DRIVES; empty when not set
  std::string configFile;     ///< drives.conf; may be missing
  std::string home;           ///< the user's home folder
  std::string mountInfoFile;  ///< /proc/self/mountinfo, or a file of that form (proc_pid_mountinfo(5))

  /// The process environment's.
  static DriveSources fromSystem();
  /// Reads them. Drives by letter; of two with one letter the first stays. `current`: as defaultDrives() takes it.
  std::vector<DriveMapping> read(const std::vector<DriveMapping>& current = {}) const;
};

/// `C=/home/me;D=/data`. Parts without a letter or an absolute folder are passed over.
std::vector<DriveMapping> parseDriveVariable(std::string_view text);

/// The text of drives.conf. A section a drive, named by its letter; `folder` is needed, all else optional:
///
///     # An optical drive that a folder plays.
///     [E]
///     folder=/srv/discs/holiday
///     type=cdrom            (removable, fixed, network, cdrom, ramdisk)
///     filesystem=CDFS
///     label=HOLIDAY
///     share=\\server\discs
///     serial=-559038737     (signed 32-bit)
///     total=681574400       (bytes)
///     free=0                (bytes)
///     notready              (the drive is there, but holds no medium)
///
/// Values run to the end of their line (the remarks in brackets above are none of the format); blanks around keys and
/// values do not count. A line that cannot be understood is passed over.
std::vector<DriveMapping> parseDriveFile(std::string_view text);

/// C, Z, and a letter from D on for each volume below /media, /run/media and /mnt in mount order, as far as they go.
/// Drives that are `current` keep their letters, and a letter that has become free is not given again: a path that the
/// program holds must never come to mean another volume.
std::vector<DriveMapping> defaultDrives(const std::string& home, const std::vector<Mount>& mounts,
                                        const std::vector<DriveMapping>& current = {});

}  // namespace varnholt::platform::posix
