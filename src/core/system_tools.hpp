#pragma once

#include "core/program.hpp"

#include <string>

namespace varnholt::core {

/// Full path of a tool of the Windows folder ("system32\cmd.exe"); empty when it is not there.
std::string systemTool(const Program& program, const std::string& relative);

/// A folder of the user's profile ("Cookies"): what the registry names, else one below the Windows folder.
std::string profileFolder(const Program& program, const std::string& name);

/// Starts a command in a folder and does not wait; the user is told when it cannot be started.
void startTool(const Program& program, const std::string& command, const std::string& folder);

/// "Could Not Find Notepad.exe !", or notepad.exe with the file in the file's folder.
void openInNotepad(const Program& program, const std::string& file);

}  // namespace varnholt::core
