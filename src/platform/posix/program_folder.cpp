#include "platform/posix/program_folder.hpp"

#include "platform/posix/environment.hpp"
#include "platform/posix/shipped_files.hpp"

#include <cstdlib>
#include <filesystem>

#include <pwd.h>
#include <unistd.h>

namespace varnholt::platform::posix {
namespace {

namespace fs = std::filesystem;

bool isFolder(const std::string& path) {
  std::error_code failed;
  return !path.empty() && fs::is_directory(path, failed);
}

bool canWriteIn(const std::string& folder) { return isFolder(folder) && ::eaccess(folder.c_str(), W_OK | X_OK) == 0; }

std::string parentOf(const std::string& folder) { return fs::path(folder).parent_path().string(); }

std::string ownExecutableFolder() {
  std::error_code failed;
  return fs::read_symlink("/proc/self/exe", failed).parent_path().string();
}

std::string homeFolder() {
  if (const char* home = std::getenv("HOME"); home && *home == '/') return home;
  const passwd* user = ::getpwuid(::geteuid());
  return user && user->pw_dir ? user->pw_dir : "/";
}

std::string userDataFolder() {
  // The base directory specification has relative values ignored.
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data == '/') return std::string(data) + "/varnholt";
  return homeFolder() + "/.local/share/varnholt";
}

std::string findAssets(const HostFolders& given, const std::string& executable) {
  if (!given.assets.empty()) return given.assets;
  for (const std::string& folder : {executable + "/assets", parentOf(executable) + "/share/varnholt/assets"})
    if (isFolder(folder)) return folder;
  return {};
}

/// The library that makes archives, which the program opens in its own folder.
constexpr const char* Library = "/Vnzip.dll";

bool bringLibrary(const std::string& executable, const std::string& program) {
  if (executable == program) return true;
  return copyNewerFile(executable + Library, program + Library) &&
         copyNewerFile(parentOf(executable) + "/lib/varnholt" + Library, program + Library);
}

std::string preferredFolder(const HostFolders& given, const std::string& executable) {
  if (!given.data.empty()) return given.data;
  return canWriteIn(executable) && !isInstalled(executable) ? executable : userDataFolder();
}

std::string passingFolder() {
  const std::string own = ownFolder(temporaryFolderName(), 0700);
  return own.empty() ? own : ownFolder(own + "/program", 0700);
}

/// Makes a folder. One that the program cannot name is cleared. False when it cannot be had.
bool make(std::string& folder, PathMap& map) {
  if (!map.toProgram(folder) && !map.reach(parentOf(folder))) folder.clear();
  std::error_code failed;
  if (!folder.empty()) fs::create_directories(folder, failed);
  return isFolder(folder);
}

}  // namespace

bool isInstalled(const std::string& executable) {
  for (const std::string system : {"/usr", "/bin", "/sbin"})
    if (executable == system || executable.starts_with(system + "/")) return true;
  return fs::path(executable).filename() == "bin" && isFolder(parentOf(executable) + "/share/varnholt");
}

ProgramFolders findProgramFolders(const HostFolders& given, PathMap& map) {
  const std::string executable = given.executable.empty() ? ownExecutableFolder() : given.executable;
  ProgramFolders found;
  found.assets = findAssets(given, executable);
  found.program = preferredFolder(given, executable);
  found.isOwn = found.program != executable;
  bool made = make(found.program, map);
  if (!made && given.data.empty()) {
    // A home that nobody can write to: the program works all the same.
    found.program = passingFolder();
    made = !found.program.empty() && make(found.program, map);
    if (made)
      found.notices.push_back(
          "The program folder could not be made. Settings and lists go with the temporary files in\r" +
          map.toProgram(found.program).valueOr(found.program));
  }
  if (!made) {
    found.notices.push_back("The program folder could not be made. Settings and lists are not kept.");
    return found;
  }
  clearUnfinished(found.program, {"Windows"});
  const bool assets = found.assets.empty() || copyMissingFiles(found.assets + "/program", found.program);
  if (!bringLibrary(executable, found.program) || !assets)
    found.notices.push_back("Not all files of the program could be copied into its folder.");
  return found;
}

}  // namespace varnholt::platform::posix
