#include "panels/dispatcher.hpp"

#include "core/item_text.hpp"
#include "platform/crash_report.hpp"
#include "platform/paths.hpp"

#include <algorithm>

namespace varnholt::panels {

namespace paths = platform::paths;

void Dispatcher::perform(const std::string& handler) {
  const Command* command = form_.commands.find(handler);
  if (busy || !command || !command->run) return;
  if (command->number != 0) saveLastCommand(command->number);
  platform::noteDoing(handler);
  command->run();
  platform::noteDoing("rest, after " + handler);
}

void Dispatcher::saveLastCommand(int number) {
  if (form_.Menu.checked("LockOnLast")) return;
  program_.settings.save(core::setting::LastCommandNumber, std::to_string(number));
}

void Dispatcher::runLast() {
  const std::string number = program_.settings.get(core::setting::LastCommandNumber);
  const auto& commands = form_.commands.commands();
  const auto found = std::ranges::find_if(
      commands, [&](const Command& each) { return each.number != 0 && std::to_string(each.number) == number; });
  if (found != commands.end()) perform(found->handler);
}

void Dispatcher::Fileident() {
  Panel* source = form_.activePanel();
  if (!source) {
    program_.dialogs.alert("System Error !, No Views Active, Restart Varnholt !");
    return;
  }
  form_.SourcePath = core::entryPath(form_.CurrentItem, source->path());
  form_.TargetPath = form_.otherPanel(*source).path();
}

void Dispatcher::resetval() {
  form_.CurrentItem.clear();
  form_.SourcePath.clear();
  form_.TargetPath.clear();
}

bool Dispatcher::panelPreCheck() {
  if (!form_.activePanel()) {
    Fileident();
    return false;
  }
  if (busy || form_.VDT_Aktive) return false;
  commandBegins();
  busy = true;
  return true;
}

void Dispatcher::commandDone() {
  busy = false;
  form_.ProgressBar1.Value = 0;
  program_.loop.screen().MousePointer = controls::pointer::Default;
  commandEnded();
}

void Dispatcher::markSelected(controls::Color color) {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  for (const std::uint32_t id : panel->list.selectedIds())
    if (panel->list.foreColor(id) == controls::NoColor) panel->list.setForeColor(id, color);
}

void Dispatcher::LockOnLast_Click() {
  auto& entry = form_.Menu["LockOnLast"];
  entry.Checked = !entry.Checked;
  program_.init.LockCommand = entry.Checked ? "1" : "0";
}

void Dispatcher::chooseMemory(bool preFolder) {
  form_.Menu["PreFolder"].Checked = preFolder;
  form_.Menu["RLC"].Checked = !preFolder;
  form_.Menu["LockOnLast"].Enabled = !preFolder;
  program_.init.LastCommand = preFolder ? "0" : "1";
}

}  // namespace varnholt::panels
