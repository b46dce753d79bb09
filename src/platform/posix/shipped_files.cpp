#include "platform/posix/shipped_files.hpp"

#include "platform/posix/copy_bytes.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/temp_file.hpp"
#include "platform/posix/unique_fd.hpp"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

namespace fs = std::filesystem;

UniqueFd openFolder(const fs::path& folder) {
  return UniqueFd(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

class NobodyWaits : public CopyMonitor {
  bool add(std::uint64_t) override { return true; }
};

/// Shipped files may be read-only where they are installed; the user's copies are the user's. The copy is on the disk
/// before it has its name, or a power cut could leave an empty file that no later start replaces.
int fill(TempFile& file, int source, const struct stat& facts) {
  NobodyWaits monitor;
  if (const int error = copyBytes(source, file.fd(), facts, monitor)) return error;
  if (::fchmod(file.fd(), (facts.st_mode & 0777) | S_IWUSR) != 0 && !cannotKeep(errno)) return errno;
  if (const int error = syncFile(file.fd())) return error;
  return 0;
}

bool copyFile(const fs::path& source, const fs::path& target) {
  const UniqueFd folder = openFolder(target.parent_path()), from(::open(source.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat facts {};
  if (!folder || !from || ::fstat(from.get(), &facts) != 0) return false;
  TempFile file;
  if (file.create(folder.get(), 0600) != 0 || fill(file, from.get(), facts) != 0) return false;
  const int error = file.placeNew(target.filename().c_str());
  return error == 0 || error == EEXIST;  // another start was quicker
}

/// What an unfinished copy of a file or folder was called by earlier versions: ".NAME.new-PROCESS".
bool isUnfinished(const std::string& name, const std::vector<std::string>& shipped) {
  constexpr std::string_view mark = ".new-";
  const auto at = name.rfind(mark);
  if (!name.starts_with('.') || at == std::string::npos) return false;
  const char *from = name.data() + at + mark.size(), *end = name.data() + name.size();
  pid_t process = 0;
  const auto number = std::from_chars(from, end, process);
  if (number.ec != std::errc() || number.ptr != end || process <= 0) return false;
  return std::ranges::find(shipped, name.substr(1, at - 1)) != shipped.end() && ::kill(process, 0) != 0 &&
         errno == ESRCH;
}

std::vector<std::string> namesIn(const fs::path& folder) {
  std::vector<std::string> names;
  std::error_code failed;
  for (fs::directory_iterator entry(folder, failed); !failed && entry != fs::directory_iterator();
       entry.increment(failed))
    names.push_back(entry->path().filename());
  return names;
}

}  // namespace

void clearUnfinished(const std::string& folder, const std::vector<std::string>& shipped) {
  if (const UniqueFd open = openFolder(folder)) clearLeftovers(open.get());
  std::error_code ignored;
  for (const std::string& name : namesIn(folder))
    if (isUnfinished(name, shipped)) fs::remove_all(fs::path(folder) / name, ignored);
}

bool copyMissingFiles(const std::string& source, const std::string& target) {
  std::error_code failed;
  const fs::file_type kind = fs::status(source, failed).type();
  if (kind == fs::file_type::not_found) return true;
  if (kind == fs::file_type::regular) return fs::exists(fs::symlink_status(target, failed)) || copyFile(source, target);
  if (kind != fs::file_type::directory) return true;
  fs::create_directories(target, failed);
  bool all = fs::is_directory(target, failed);
  if (!all) return false;
  const auto names = namesIn(source);
  clearUnfinished(target, names);
  for (const std::string& name : names)
    all = copyMissingFiles(source + "/" + name, target + "/" + name) && all;
  return all;
}

bool copyNewerFile(const std::string& source, const std::string& target) {
  struct stat shipped {
  }, there{};
  if (::stat(source.c_str(), &shipped) != 0) return true;
  const auto isOlder = [](const timespec& a, const timespec& b) {
    return a.tv_sec < b.tv_sec || (a.tv_sec == b.tv_sec && a.tv_nsec < b.tv_nsec);
  };
  if (::stat(target.c_str(), &there) == 0 && !isOlder(there.st_mtim, shipped.st_mtim)) return true;
  const UniqueFd folder = openFolder(fs::path(target).parent_path());
  const UniqueFd from(::open(source.c_str(), O_RDONLY | O_CLOEXEC));
  TempFile file;
  if (!folder || !from || file.create(folder.get(), 0600) != 0 || fill(file, from.get(), shipped) != 0) return false;
  const timespec times[] = {shipped.st_mtim, shipped.st_mtim};
  return (::futimens(file.fd(), times) == 0 || cannotKeep(errno)) &&
         file.replace(fs::path(target).filename().c_str()) == 0;
}

bool makeFolderFrom(const std::string& source, const std::string& target) {
  std::error_code failed;
  if (fs::is_directory(target, failed)) return true;
  const fs::path parent = fs::path(target).parent_path();
  const UniqueFd place = openFolder(parent);
  if (!place || !fs::is_directory(source, failed)) return false;
  std::string name;
  UniqueFd held;
  if (makeTemporaryFolder(place.get(), name, held) != 0) return false;
  const std::string built = parent / name;
  const fs::perms permissions = fs::status(source, failed).permissions() | fs::perms::owner_all;
  if (copyMissingFiles(source, built) &&
      (::fchmod(held.get(), static_cast<mode_t>(permissions)) == 0 || cannotKeep(errno)))
    (void)renameNoReplace(place.get(), name.c_str(), place.get(), fs::path(target).filename().c_str());
  fs::remove_all(built, failed);
  return fs::is_directory(target, failed);
}

}  // namespace varnholt::platform::posix
