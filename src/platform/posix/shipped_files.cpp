#include "platform/posix/shipped_files.hpp"

#include "platform/posix/unique_fd.hpp"

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

namespace fs = std::filesystem;

/// A name beside the target that no other process uses.
fs::path temporaryBeside(const fs::path& target) {
  return target.parent_path() / ("." + target.filename().string() + ".new-" + std::to_string(::getpid()));
}

/// Gives the built file or folder its name, unless somebody was quicker.
bool giveName(const fs::path& built, const fs::path& target) {
  if (::renameat2(AT_FDCWD, built.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) return true;
  if (errno == EINVAL || errno == ENOSYS) {
    // A file system that cannot refuse to replace. Nothing was there when the copy began.
    std::error_code failed;
    if (!fs::exists(fs::symlink_status(target, failed))) return std::rename(built.c_str(), target.c_str()) == 0;
    errno = EEXIST;
  }
  return errno == EEXIST;
}

/// Renames and clears away what is left of a copy that was not needed or failed.
bool finish(bool isBuilt, const fs::path& built, const fs::path& target) {
  const bool done = isBuilt && giveName(built, target);
  std::error_code ignored;
  fs::remove_all(built, ignored);
  return done;
}

/// On the disk before it has its name, or a power cut could leave an empty file that no later start replaces.
bool synced(const fs::path& file) {
  const UniqueFd fd(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
  return fd && ::fsync(fd.get()) == 0;
}

bool copyFile(const fs::path& source, const fs::path& target) {
  const fs::path built = temporaryBeside(target);
  std::error_code failed;
  const bool isBuilt = fs::copy_file(source, built, fs::copy_options::overwrite_existing, failed);
  // Shipped files may be read-only where they are installed; the user's copies are the user's.
  if (isBuilt) fs::permissions(built, fs::perms::owner_write, fs::perm_options::add, failed);
  return finish(isBuilt && synced(built), built, target);
}

}  // namespace

bool copyMissingFiles(const std::string& source, const std::string& target) {
  std::error_code failed;
  const fs::file_type kind = fs::status(source, failed).type();
  if (kind == fs::file_type::not_found) return true;
  if (kind == fs::file_type::regular) return fs::exists(fs::symlink_status(target, failed)) || copyFile(source, target);
  if (kind != fs::file_type::directory) return true;
  fs::create_directories(target, failed);
  bool all = fs::is_directory(target, failed);
  if (!all) return false;
  fs::directory_iterator entry(source, failed);
  for (; !failed && entry != fs::directory_iterator(); entry.increment(failed))
    all = copyMissingFiles(entry->path(), fs::path(target) / entry->path().filename()) && all;
  return all && !failed;
}

bool makeFolderFrom(const std::string& source, const std::string& target) {
  std::error_code failed;
  if (fs::is_directory(target, failed)) return true;
  if (!fs::is_directory(source, failed)) return false;
  const fs::path built = temporaryBeside(target);
  fs::remove_all(built, failed);
  return finish(copyMissingFiles(source, built), built, target) && fs::is_directory(target, failed);
}

}  // namespace varnholt::platform::posix
