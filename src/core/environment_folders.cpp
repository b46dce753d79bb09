#include "core/environment_folders.hpp"

#include "platform/paths.hpp"

namespace varnholt::core {
namespace {

namespace paths = platform::paths;

// A drive root alone ("C:\") is no folder of the system's.
bool isLongEnough(const std::string& value) { return value.size() > 3; }

std::string findSystemFolder(const platform::Platform& platform, const std::string& windir) {
  for (const char* name : {"System32", "System"}) {
    const auto found = platform.files.resolve(paths::join(windir, name));
    if (found && platform.files.folderExists(*found)) return paths::withoutClosing(*found);
  }
  return platform.files.folderExists(windir) ? paths::withoutClosing(windir) : std::string();
}

void loadWindowsFolder(const platform::Platform& platform, MessageDialogs& dialogs, EnvironmentFolders& folders) {
  folders.windir.clear();
  const std::string value = platform.environment.variable("windir");
  if (isLongEnough(value)) {
    if (platform.files.folderExists(value)) {
      folders.windir = paths::withClosing(value);
      return;
    }
    dialogs.critical("%windir% Folder Not Found !, - make/set [windir=windows folder] Entvirontvariable");
    return;
  }
  const std::string system = platform.environment.windowsFolder();
  if (platform.files.folderExists(system)) {
    folders.windir = paths::withClosing(system);
    return;
  }
  dialogs.critical("Windows Folder Not Found !, - make/set [windir=windows folder] Entvirontvariable");
  dialogs.inform("Set [windir] Entvirontvariable !");
}

}  // namespace

bool CheckEnvironment(const platform::Platform& platform, MessageDialogs& dialogs, EnvironmentFolders& folders) {
  const std::string value = platform.environment.variable("windir");
  if (isLongEnough(value)) {
    if (!platform.files.folderExists(value)) {
      dialogs.critical(
          "Windows Folder NOT Found or NOT Valid !, - make/set [windir=windows folder] Entvirontvariable !");
      return false;
    }
    folders.windir = paths::withClosing(value);
  } else {
    const std::string system = platform.environment.windowsFolder();
    if (!platform.files.folderExists(system)) {
      dialogs.critical(
          "%Windir% Environment Variable Are Missing, - make/set [windir=windows folder] Entvirontvariable !");
      return false;
    }
    folders.windir = paths::withClosing(system);
  }
  folders.systemFolder = findSystemFolder(platform, folders.windir);
  if (!folders.systemFolder.empty()) return true;
  dialogs.critical("Windows/System Folder Not Found ! [set windir=windows folder variable] !, Cannot Continue !");
  return false;
}

void LoadEnvironmentFolders(const platform::Platform& platform, MessageDialogs& dialogs, EnvironmentFolders& folders) {
  const auto load = [&](const char* name, std::string& folder, bool closing, const char* message) {
    const std::string value = platform.environment.variable(name);
    if (!isLongEnough(value)) return;
    if (platform.files.folderExists(value)) {
      folder = closing ? paths::withClosing(value) : paths::withoutClosing(value);
      return;
    }
    folder.clear();
    dialogs.critical(message);
  };
  load("SystemRoot", folders.SystemRoot, false,
       "%SystemRoot% Folder Not Found !, - make/set [SystemRoot= windows folder] Entvirontvariable");
  load("ProgramFiles", folders.ProgramFiles, false,
       "%ProgramFiles% Folder Not Found !, - make/set [ProgramFiles=Program files folder] Entvirontvariable");
  loadWindowsFolder(platform, dialogs, folders);
  load("tmp", folders.tmp, true, "%tmp% Folder Not Found !, - make/set [tmp=tmp folder] Entvirontvariable");
  load("temp", folders.temp, true, "%temp% Folder Not Found !, - make/set [temp=temp folder] Entvirontvariable");
}

}  // namespace varnholt::core
