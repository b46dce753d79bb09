#include "panels/drops.hpp"

namespace varnholt::panels {

std::vector<std::string> Drops::draggedFiles(Panel& panel) {
  std::vector<std::string> files;
  if (dispatcher_.busy) return files;
  for (const std::uint32_t id : panel.list.selectedIds())
    files.push_back(panel.itemPath({panel.list, id}));
  return files;
}

std::string Drops::folderOf(Panel& panel, controls::ListItem item) const {
  return panel.isFolder(item) ? panel.itemPath(item) : std::string();
}

// Copy and move go into the folder of the panel that is not their source, so that one shows the folder meanwhile.
void Drops::OLEDragDrop(Panel& panel, controls::DropEvent& event) {
  const bool within = event.source == &panel.list;
  if (dispatcher_.busy || event.files.empty() || (within && event.folder.empty())) return;
  Panel& target = within ? form_.otherPanel(panel) : panel;
  if (event.folder.empty()) {
    event.accepted = take(target, event);
    return;
  }
  const std::string before = target.path();
  if (!navigation_.visit(target, event.folder)) {
    // The row names what has vanished, and goes; so does what is selected beside it.
    navigation_.visit(panel, panel.path());
    return selection_.ClickPane();
  }
  const std::string shown = target.path();
  event.accepted = take(target, event);
  if (target.path() == shown) navigation_.visit(target, before);
}

bool Drops::take(Panel& panel, controls::DropEvent& event) {
  Panel& source = form_.otherPanel(panel);
  if (event.source != &source.list) return dropFiles && dropFiles(panel, event.files, event.modifiers.shift);
  source.list.SetFocus();
  DragDropClick(event.modifiers.shift ? "Command3_Click" : "Command1_Click");
  return true;
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
  dispatcher_.perform(handler);
}

}  // namespace varnholt::panels
