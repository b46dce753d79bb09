#include "tools/system_shortcuts.hpp"

#include "core/program_files.hpp"
#include "platform/paths.hpp"

namespace varnholt::tools {

using platform::quoteArgument;

std::string SystemShortcuts::tool(const std::string& relative) const {
  const auto found = program_.files().resolve(platform::paths::join(program_.folders.windir, relative));
  return found && program_.files().fileExists(*found) ? *found : std::string();
}

void SystemShortcuts::start(const std::string& command) {
  const panels::Panel* active = form_.activePanel();
  const auto started = program_.platform.shell.start(command, active ? active->path() : std::string());
  if (!started) program_.dialogs.alert(started.error().text);
}

void SystemShortcuts::Dos_Click() {
  form_.setMode("DosMode");
  std::string prompt = tool("system32\\cmd.exe");
  if (prompt.empty()) prompt = tool("command.com");
  if (prompt.empty()) {
    program_.dialogs.alert("Cmd.exe or Command.com Not found");
    return;
  }
  start(quoteArgument(prompt));
}

void SystemShortcuts::Readme_Click() {
  const std::string notepad = tool("notepad.exe");
  if (notepad.empty()) {
    program_.dialogs.alert("Could Not Find Notepad.exe !");
    return;
  }
  const std::string file = core::program_file::path(program_.platform, core::program_file::Readme);
  start(quoteArgument(notepad) + ' ' + quoteArgument(file));
}

}  // namespace varnholt::tools
