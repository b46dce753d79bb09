#pragma once

#include "platform/drives.hpp"
#include "platform/posix/path_map.hpp"

namespace varnholt::platform::posix {

class MountWatch;

/// Drive letters from a path map, and facts of the volumes behind them from the kernel.
class PosixDrives final : public Drives {
 public:
  /// The map must outlive this.
  explicit PosixDrives(PathMap& map);
  ~PosixDrives() override;

  std::vector<char> letters() const override;
  Result<DriveInfo> info(char letter) const override;
  void refresh() override { map_.reload(); }
  void watch(std::function<void()> changed) override;

 private:
  PathMap& map_;
  std::unique_ptr<MountWatch> watch_;
};

/// Facts of the volume that holds a system path, told for the drive. What the drive map says of the drive goes first.
/// A path that is not there gives ready false.
DriveInfo readVolume(const DriveMapping& drive, const std::string& systemPath);

}  // namespace varnholt::platform::posix
