#include "platform/posix/mounted_place.hpp"

#include "platform/posix/mount_table.hpp"

#include <climits>
#include <cstdlib>
#include <optional>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

struct MountedPlace {
  dev_t device = 0;
  std::string path;  ///< from the root of the file system, with closing slash
};

std::optional<std::uint64_t> mountIdOf(const char* path) {
  struct statx facts;
  if (::statx(AT_FDCWD, path, AT_NO_AUTOMOUNT, STATX_MNT_ID, &facts) != 0) return {};
  return facts.stx_mask & STATX_MNT_ID ? std::optional<std::uint64_t>(facts.stx_mnt_id) : std::nullopt;
}

std::string_view withoutSlash(std::string_view path) {
  return path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
}

std::optional<MountedPlace> placeOf(const std::string& path, const std::vector<Mount>& mounts) {
  char real[PATH_MAX];
  if (!::realpath(path.c_str(), real)) return {};
  const auto id = mountIdOf(real);
  for (const Mount& mount : mounts) {
    const std::string_view point = withoutSlash(mount.point);
    if (!id || mount.id != *id || !std::string_view(real).starts_with(point)) continue;
    const auto rest = std::string_view(real).substr(point.size());
    return MountedPlace{mount.device, std::string(withoutSlash(mount.root)).append(withoutSlash(rest)) + '/'};
  }
  return {};
}

}  // namespace

bool liesWithinByMounts(const std::string& folderPath, const std::string& ancestorPath) {
  const auto mounts = readMounts();
  const auto folder = placeOf(folderPath, mounts), ancestor = placeOf(ancestorPath, mounts);
  return folder && ancestor && folder->device == ancestor->device && folder->path.starts_with(ancestor->path);
}

}  // namespace varnholt::platform::posix
