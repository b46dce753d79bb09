#include "platform/posix/mount_table.hpp"

#include "platform/posix/unique_fd.hpp"
#include "platform/shared_library.hpp"

#include <memory>

#include <fcntl.h>
#include <libmount.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

class MountLibrary : public LateLibrary {
 public:
  MountLibrary() : LateLibrary("libmount.so.1") {}

  VARNHOLT_LATE_CALL(mnt_new_table);
  VARNHOLT_LATE_CALL(mnt_unref_table);
  VARNHOLT_LATE_CALL(mnt_table_parse_file);
  VARNHOLT_LATE_CALL(mnt_table_next_fs);
  VARNHOLT_LATE_CALL(mnt_new_iter);
  VARNHOLT_LATE_CALL(mnt_free_iter);
  VARNHOLT_LATE_CALL(mnt_fs_get_id);
  VARNHOLT_LATE_CALL(mnt_fs_get_devno);
  VARNHOLT_LATE_CALL(mnt_fs_get_root);
  VARNHOLT_LATE_CALL(mnt_fs_get_target);
  VARNHOLT_LATE_CALL(mnt_fs_get_fstype);
  VARNHOLT_LATE_CALL(mnt_fs_get_source);
};

const MountLibrary& library() {
  static const MountLibrary opened;
  return opened;
}

std::string textOf(const char* text) { return text ? text : ""; }

Mount mountOf(libmnt_fs* entry) {
  return {static_cast<std::uint64_t>(library().mnt_fs_get_id(entry)),
          library().mnt_fs_get_devno(entry),
          textOf(library().mnt_fs_get_root(entry)),
          textOf(library().mnt_fs_get_target(entry)),
          textOf(library().mnt_fs_get_fstype(entry)),
          textOf(library().mnt_fs_get_source(entry))};
}

}  // namespace

std::vector<Mount> readMounts(const std::string& file) {
  std::vector<Mount> mounts;
  if (!library().isWhole()) return mounts;
  const std::unique_ptr<libmnt_table, decltype(&::mnt_unref_table)> table(library().mnt_new_table(),
                                                                          library().mnt_unref_table);
  const std::unique_ptr<libmnt_iter, decltype(&::mnt_free_iter)> entries(library().mnt_new_iter(MNT_ITER_FORWARD),
                                                                         library().mnt_free_iter);
  if (!table || !entries || library().mnt_table_parse_file(table.get(), file.c_str()) != 0) return mounts;
  for (libmnt_fs* entry = nullptr; library().mnt_table_next_fs(table.get(), entries.get(), &entry) == 0;)
    mounts.push_back(mountOf(entry));
  return mounts;
}

std::optional<Mount> mountOfDevice(const std::vector<Mount>& mounts, dev_t device) {
  const Mount* found = nullptr;
  for (const Mount& mount : mounts)
    if (mount.device == device && (!found || (found->root != "/" && mount.root == "/"))) found = &mount;
  return found ? std::optional(*found) : std::nullopt;
}

std::string readSystemFile(const char* path, std::size_t most) {
  const UniqueFd file(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  std::string text;
  char buffer[16384];
  // A device that somebody has put in the place of a file may go on for ever.
  while (file && text.size() < most) {
    const ssize_t got = ::read(file.get(), buffer, sizeof buffer);
    if (got <= 0) break;
    text.append(buffer, static_cast<size_t>(got));
  }
  return text;
}

}  // namespace varnholt::platform::posix
