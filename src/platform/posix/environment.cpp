#include "platform/posix/environment.hpp"

#include <cstdlib>

#include <glib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace varnholt::platform::posix {

std::string ownFolder(const std::string& folder, unsigned permissions) {
  if (folder.empty()) return {};
  ::mkdir(folder.c_str(), permissions);
  struct stat facts;
  if (::lstat(folder.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode) || facts.st_uid != ::geteuid()) return {};
  return folder;
}

std::string temporaryFolderName() {
  struct stat facts;
  const char* chosen = std::getenv("TMPDIR");
  const bool isFolder = chosen && *chosen == '/' && ::stat(chosen, &facts) == 0 && S_ISDIR(facts.st_mode);
  return (isFolder ? std::string(chosen) : "/tmp") + "/varnholt-" + std::to_string(::geteuid());
}

PosixEnvironment::PosixEnvironment(const PathMap& map, WindowsFolder windows, std::string programFiles,
                                   std::string temporary)
    : map_(map),
      windows_(std::move(windows)),
      programFiles_(std::move(programFiles)),
      temporary_(std::move(temporary)) {}

std::string PosixEnvironment::programForm(const std::string& systemPath) const {
  return systemPath.empty() ? std::string() : map_.toProgram(systemPath).valueOr({});
}

std::string PosixEnvironment::variable(const std::string& name) const {
  const char* value = std::getenv(name.c_str());
  if (!value) return ownValue(name);
  return *value == '/' ? map_.toProgram(value).valueOr(value) : std::string(value);
}

std::string PosixEnvironment::ownValue(const std::string& name) const {
  if (name == "SystemDrive") return "C:";
  if (name == "windir" || name == "SystemRoot") return windowsFolder();
  if (name == "ProgramFiles") return programForm(ownFolder(programFiles_, 0777));
  if (name == "tmp" || name == "temp") return programForm(ownFolder(temporary_, 0700));
  return {};
}

std::string PosixEnvironment::desktopFolder() const {
  const char* folder = g_get_user_special_dir(G_USER_DIRECTORY_DESKTOP);
  return programForm(folder ? folder : "");
}

std::string PosixEnvironment::windowsFolder() const { return programForm(windows_.path()); }

}  // namespace varnholt::platform::posix
