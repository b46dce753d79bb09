#pragma once

#include "platform/result.hpp"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace varnholt::platform {

/// Drive types by the numbers of the original platform's file system object.
enum class DriveType { Unknown = 0, Removable = 1, Fixed = 2, Network = 3, CdRom = 4, RamDisk = 5 };

struct DriveInfo {
  char letter = 'C';  ///< upper case
  DriveType type = DriveType::Fixed;
  bool ready = false;
  std::string fileSystem;            ///< "CDFS", "UDF", "FAT32", "NTFS", else the kernel's name in upper case
  std::string label;                 ///< VolumeName
  std::string share;                 ///< ShareName; empty unless a network volume
  std::int32_t serial = 0;           ///< stable for one file system
  std::uint64_t totalBytes = 0;      ///< 0 when the system does not know
  std::uint64_t freeBytes = 0;       ///< free on the volume
  std::uint64_t availableBytes = 0;  ///< free for this user

  std::string root() const { return std::string(1, letter) + ":\\"; }
  bool isCompactDisc() const { return fileSystem == "CDFS"; }
  /// What was written has to be on the medium before the user is told that all is done.
  bool mayBePulledOut() const { return type == DriveType::Removable || type == DriveType::Network; }
  /// A disc of any kind: nothing on it can be changed.
  bool isDisc() const { return isCompactDisc() || fileSystem == "UDF"; }
};

/// The drive letters. `C` is the user's home folder, `Z` the root of the file system, and volumes mounted under
/// /media, /run/media and /mnt have letters from `D` on in mount order. The file `drives.conf` in the per-user
/// configuration folder replaces that, and the variable VARNHOLT_DRIVES (`C=/home/me;D=/data`) replaces both.
class Drives {
 public:
  virtual ~Drives() = default;
  /// All letters in alphabetical order, ready or not. Asks the volumes nothing, so it is quick and never blocks.
  virtual std::vector<char> letters() const = 0;
  /// Facts of one drive. InvalidPath when the letter is not mapped; a drive whose folder is gone has ready false.
  /// A volume on a dead network share may block: call from a handler through MessageLoop::runBlocking.
  virtual Result<DriveInfo> info(char letter) const = 0;
  /// Reads the map again (a volume was mounted or unmounted).
  virtual void refresh() = 0;
  /// Calls `changed` whenever something was mounted or unmounted, from the GLib main loop of the thread that asks,
  /// which may be within any of its turns. One listener.
  virtual void watch(std::function<void()> changed) = 0;
};

}  // namespace varnholt::platform
