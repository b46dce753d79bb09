#pragma once

#include "core/message_dialogs.hpp"
#include "platform/platform.hpp"

#include <string>

namespace varnholt::core {

/// The folders that every part of the program takes from the environment. Empty: not there.
struct EnvironmentFolders {
  std::string SystemRoot, ProgramFiles;  ///< without closing backslash
  std::string windir, tmp, temp;         ///< with closing backslash
  std::string systemFolder;              ///< System32, System or the Windows folder itself; without closing backslash
};

/// Finds the Windows folder and the system folder in it. False: told the user why, and the program must end.
bool CheckEnvironment(const platform::Platform& platform, MessageDialogs& dialogs, EnvironmentFolders& folders);

/// Takes the five folders from the environment. A variable that names no folder is told, and its path stays empty.
void LoadEnvironmentFolders(const platform::Platform& platform, MessageDialogs& dialogs, EnvironmentFolders& folders);

}  // namespace varnholt::core
