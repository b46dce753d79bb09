#include "tools/shortcuts.hpp"

#include "core/program_files.hpp"
#include "core/system_tools.hpp"

namespace varnholt::tools {

using platform::quoteArgument;

void Shortcuts::Dos_Click() {
  auto& program = desk_.program;
  desk_.form.setMode("DosMode");
  std::string prompt = core::systemTool(program, "system32\\cmd.exe");
  if (prompt.empty()) prompt = core::systemTool(program, "command.com");
  if (prompt.empty()) return program.dialogs.alert("Cmd.exe or Command.com Not found");
  const panels::Panel* active = desk_.form.activePanel();
  core::startTool(program, quoteArgument(prompt), active ? active->path() : std::string());
}

void Shortcuts::Readme_Click() {
  core::openInNotepad(desk_.program, core::program_file::path(desk_.program.platform, core::program_file::Readme));
}

void Shortcuts::IPconfig_Click() { prompt("IPconfig/all", "Cmd.exe or IPconfig.exe In ...\\System32\rNot Found !"); }

void Shortcuts::IPconfignew_Click() {
  prompt("IPconfig/renew", "Cmd.exe Or IPconfig.exe In ...\\System32\rNot Found !");
}

void Shortcuts::prompt(const std::string& command, const char* missing) {
  auto& program = desk_.program;
  const std::string prompt = core::systemTool(program, "system32\\cmd.exe");
  if (prompt.empty() || core::systemTool(program, "system32\\ipconfig.exe").empty())
    return program.dialogs.alert(missing);
  core::startTool(program, quoteArgument(prompt) + " /K " + command, {});
}

void Shortcuts::winexpl_Click() {
  const panels::Panel* active = desk_.form.activePanel();
  if (!active) return;
  if (explorer(active->path())) desk_.form.Caption = "Varnholt - Use F4 To Update Panel !";
}

void Shortcuts::winexplBoth_Click() {
  for (const panels::Panel* panel : {&desk_.form.Panel1, &desk_.form.Panel2})
    if (!explorer(panel->path())) return;
  desk_.form.Caption = "Varnholt - Use F4 To Update Panels !";
}

void Shortcuts::regedit_Click() {
  auto& program = desk_.program;
  const std::string regedit = core::systemTool(program, "regedit.exe");
  if (regedit.empty()) return program.dialogs.alert("Regedit.exe not found !");
  core::startTool(program, quoteArgument(regedit), {});
}

// An address without a person in it: the desktop's mail program starts, with a letter to nobody yet.
void Shortcuts::OutlookExpress_Click() { explorer("mailto:"); }

void Shortcuts::InternetB_Click() {
  explorer(core::program_file::path(desk_.program.platform, core::program_file::HomePage));
}

void Shortcuts::driveDialog(const char* which) {
  if (explorer(which, "Explorer.exe not found !")) desk_.drives.refresh();
}

void Shortcuts::WinShutDown_Click() {
  auto& program = desk_.program;
  if (!program.dialogs.AskRetry("You are about to Log Off !\rARE YOU SURE ?")) return;
  const auto left = program.loop.ask([&] { return program.platform.shell.logOff(); });
  if (!left) program.dialogs.alert(left.error().text);
}

bool Shortcuts::explorer(const std::string& argument, const char* missing) {
  auto& program = desk_.program;
  const std::string explorer = core::systemTool(program, "explorer.exe");
  if (explorer.empty()) {
    program.dialogs.alert(missing);
    return false;
  }
  core::startTool(program, quoteArgument(explorer) + ' ' + quoteArgument(argument), {});
  return true;
}

}  // namespace varnholt::tools
