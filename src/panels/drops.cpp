#include "panels/drops.hpp"

namespace varnholt::panels {

std::vector<std::string> Drops::draggedFiles(Panel& panel) {
  std::vector<std::string> files;
  if (dispatcher_.busy) return files;
  for (const std::uint32_t id : panel.list.selectedIds())
    files.push_back(panel.itemPath({panel.list, id}));
  return files;
}

void Drops::OLEDragDrop(Panel& panel, controls::DropEvent& event) {
  if (dispatcher_.busy || event.files.empty() || event.source == &panel.list) return;
  if (event.source == &form_.otherPanel(panel).list) {
    event.accepted = true;
    form_.otherPanel(panel).list.SetFocus();
    DragDropClick(event.modifiers.shift ? "Command3_Click" : "Command1_Click");
    return;
  }
  event.accepted = dropFiles && dropFiles(panel, event.files, event.modifiers.shift);
}

void Drops::buttonDrop(const std::string& handler, controls::DropEvent& event) {
  if (dispatcher_.busy || !event.source) return;
  event.accepted = true;
  DragDropClick(handler);
}

void Drops::DragDropClick(const std::string& handler) {
  selection_.ClickPane();
  if (form_.filecollect.empty()) {
    selection_.nonselect();
    return;
  }
  const Command* command = form_.commands.find(handler);
  if (command && command->run) {
    dispatcher_.perform(handler);
    return;
  }
  if (command) form_.statusLine(command->caption + std::string(NotYetBuilt));
}

}  // namespace varnholt::panels
