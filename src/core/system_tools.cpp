#include "core/system_tools.hpp"

#include "platform/paths.hpp"

namespace varnholt::core {

namespace paths = platform::paths;
using platform::quoteArgument;

std::string systemTool(const Program& program, const std::string& relative) {
  const auto found = program.files().resolve(paths::join(program.folders.windir, relative));
  return found && program.files().fileExists(*found) ? *found : std::string();
}

std::string profileFolder(const Program& program, const std::string& name) {
  return program.registry.shellFolder(name, paths::join(paths::join(program.folders.windir, "Profile"), name));
}

void startTool(const Program& program, const std::string& command, const std::string& folder) {
  const auto started = program.start(command, folder);
  if (!started) program.dialogs.alert(started.error().text);
}

void openInNotepad(const Program& program, const std::string& file) {
  const std::string notepad = systemTool(program, "notepad.exe");
  if (notepad.empty()) {
    program.dialogs.alert("Could Not Find Notepad.exe !");
    return;
  }
  startTool(program, quoteArgument(notepad) + ' ' + quoteArgument(file), paths::parent(file));
}

}  // namespace varnholt::core
