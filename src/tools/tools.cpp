#include "tools/tools.hpp"

#include "core/diagnostic_log.hpp"
#include "core/program_files.hpp"
#include "core/system_tools.hpp"
#include "platform/paths.hpp"

namespace varnholt::tools {

Tools::Tools(panels::Desk& desk) : form8(desk.program.loop, core::programVersion()), desk_(desk) {}

void Tools::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "Dos_Click",
       .toolTip = "Open a command prompt",
       .icon = "command-prompt",
       .heading = "Tools",
       .menuText = "Command &Prompt",
       .run = [this] { Dos_Click(); }},
      {.handler = "Readme_Click",
       .toolTip = "Open the file Readme.txt",
       .icon = "info",
       .heading = "Help",
       .menuText = "Read me..",
       .run = [this] { Readme_Click(); }},
      {.handler = "About_program_Click",
       .toolTip = "Version of the program",
       .icon = "about",
       .heading = "Help",
       .menuText = "&About Varnholt...",
       .newGroup = true,
       .run = [this] { form8.ShowModal(); }},
  });
}

// A system without its command prompt has none to offer.
void Tools::load() {
  const std::string prompt =
      platform::paths::join(platform::paths::join(desk_.program.folders.windir, "system32"), "cmd.exe");
  if (!desk_.files().resolve(prompt)) desk_.form.Menu["Dos"].Enabled = false;
}

void Tools::Dos_Click() {
  auto& program = desk_.program;
  desk_.form.setMode("DosMode");
  std::string prompt = core::systemTool(program, "system32\\cmd.exe");
  if (prompt.empty()) prompt = core::systemTool(program, "command.com");
  if (prompt.empty()) {
    program.dialogs.alert("Cmd.exe or Command.com Not found");
    return;
  }
  const panels::Panel* active = desk_.form.activePanel();
  core::startTool(program, platform::quoteArgument(prompt), active ? active->path() : std::string());
}

void Tools::Readme_Click() {
  core::openInNotepad(desk_.program, core::program_file::path(desk_.program.platform, core::program_file::Readme));
}

}  // namespace varnholt::tools
