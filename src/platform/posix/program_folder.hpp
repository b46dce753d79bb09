#pragma once

#include "platform/platform.hpp"
#include "platform/posix/path_map.hpp"

#include <string>
#include <vector>

namespace varnholt::platform::posix {

/// Where the program keeps its files and finds those that came with it. System form, without closing slash.
struct ProgramFolders {
  std::string program;  ///< empty when it cannot be named or made
  std::string assets;   ///< empty when not found
  bool isOwn = true;    ///< false when it is the executable's folder, in which the user's files may lie
  std::vector<std::string> notices;
};

/// Decides both, makes the program folder and copies the files that lie beside the program (assets/program) into it,
/// without touching any that exist.
///
/// The program folder is the executable's own when it can be written to and the program is not an installed one
/// (portable use), else $XDG_DATA_HOME/varnholt, else one among the temporary files, which the user is told. One that
/// no drive of the map holds gets a hidden drive of its own, so that the program can name it.
ProgramFolders findProgramFolders(const HostFolders& given, PathMap& map);

/// True below /usr, /bin and /sbin, and for a `bin` with `share/varnholt` beside it. As root everything can be
/// written to, and a program folder among the system's programs would be wrong all the same.
bool isInstalled(const std::string& executableFolder);

}  // namespace varnholt::platform::posix
