#include "tools/system_shortcuts.hpp"

#include "core/program_files.hpp"
#include "core/system_tools.hpp"

namespace varnholt::tools {

void SystemShortcuts::Dos_Click() {
  form_.setMode("DosMode");
  std::string prompt = core::systemTool(program_, "system32\\cmd.exe");
  if (prompt.empty()) prompt = core::systemTool(program_, "command.com");
  if (prompt.empty()) {
    program_.dialogs.alert("Cmd.exe or Command.com Not found");
    return;
  }
  const panels::Panel* active = form_.activePanel();
  core::startTool(program_, platform::quoteArgument(prompt), active ? active->path() : std::string());
}

void SystemShortcuts::Readme_Click() {
  core::openInNotepad(program_, core::program_file::path(program_.platform, core::program_file::Readme));
}

}  // namespace varnholt::tools
