#include "panels/navigation.hpp"

#include "core/item_text.hpp"
#include "platform/paths.hpp"

#include <algorithm>

namespace varnholt::panels {

namespace paths = platform::paths;

bool Navigation::exists(const std::string& folder) const { return program_.files().folderExists(folder); }

std::string Navigation::spelled(const std::string& stored) const {
  const auto path = program_.files().resolve(stored);
  return path && exists(*path) ? *path : std::string();
}

// --- Showing a folder ----------------------------------------------------------------------------------------------

void Navigation::list(Panel& panel) {
  listing_.ViewClearItems(panel);
  panel.showPath();
  noteFolder(panel);
}

void Navigation::noteFolder(Panel& panel) {
  histories_.noteLastFolder(panel.path());
  ViewDriveSelection();
  if (form_.activePanel() == &panel) active_.followDrive(panel);
  showPlace();
  form_.events.folderChanged();
}

void Navigation::showPlace() {
  const Panel* panel = form_.activePanel();
  if (!panel) return;
  form_.Caption = "Varnholt -  " + paths::withoutClosing(panel->path());
  const auto& folders = form_.ImageCombo1.Items.get();
  const auto shown = std::ranges::find_if(
      folders, [&](const controls::ComboBox::Item& each) { return paths::sameFolder(each.text, panel->path()); });
  form_.ImageCombo1.choose(shown == folders.end() ? -1 : static_cast<int>(shown - folders.begin()));
}

void Navigation::selectFolderRow(Panel& panel, const std::string& folder) {
  auto item = panel.findByCompareText(core::rowCompareText(core::folderRowText(paths::fileName(folder)), " "));
  if (item) selectRow(panel, *item);
}

void Navigation::selectRow(Panel& panel, controls::ListItem item) {
  panel.list.chooseRow(item.row());
  form_.events.itemChanged(panel);
}

// --- The stacks of places ------------------------------------------------------------------------------------------

void Navigation::enter(Panel& panel) { list(panel); }

void Navigation::fstack_pop(Panel& panel) {
  FolderStack& stack = panel.backStack;
  if (!stack.empty() && paths::sameFolder(stack.newest(), panel.path())) stack.pop();
  if (!stack.empty()) {
    const std::string folder = stack.pop();
    if (exists(folder)) {
      panel.setPath(folder);
      list(panel);
    }
  }
  panel.showPath();
}

void Navigation::pushlok(Panel& panel) { panel.forwardStack.push(panel.path()); }

bool Navigation::poplok(Panel& panel) {
  while (!panel.forwardStack.empty()) {
    const std::string folder = panel.forwardStack.pop();
    if (!exists(folder)) continue;
    panel.setPath(folder);
    return true;
  }
  return false;
}

void Navigation::browseButtons(Panel& panel) {
  panel.controls.Forward.Enabled = !panel.forwardStack.empty();
  const FolderStack& back = panel.backStack;
  const bool onlyHere = back.count() == 1 && paths::sameFolder(back.newest(), panel.path());
  panel.controls.Back.Enabled = !back.empty() && !onlyHere;
}

void Navigation::Browseback(Panel& panel) {
  if (!panel.backStack.empty()) {
    const std::string left = panel.path();
    pushlok(panel);
    fstack_pop(panel);
    if (paths::sameFolder(left, panel.path())) panel.forwardStack.pop();
    // Where the panel is now stays the newest place, so that the next step back leaves it.
    fstack_push(panel);
  }
  browseButtons(panel);
  listing_.FocusView();
}

void Navigation::Browseforward(Panel& panel) {
  panel.controls.Back.Enabled = false;
  const std::string left = panel.path();
  if (poplok(panel)) {
    fstack_push(panel);
    enter(panel);
    selectFolderRow(panel, left);
  }
  browseButtons(panel);
  listing_.FocusView();
}

void Navigation::Prevfolder(Panel& panel) {
  std::string target = panel.parentTrail.pop();
  // Where another way has led back to by itself is no step.
  while (!target.empty() && (paths::sameFolder(target, panel.path()) || !exists(target)))
    target = panel.parentTrail.pop();
  if (target.empty()) {
    parentFolder(panel);
    return;
  }
  moveUp(panel, target);
  listing_.FocusView();
}

void Navigation::moveUp(Panel& panel, const std::string& target) {
  const std::string left = panel.path();
  panel.setPath(target);
  fstack_push(panel);
  enter(panel);
  selectFolderRow(panel, left);
  browseButtons(panel);
}

void Navigation::parentFolder(Panel& panel) {
  const std::string left = panel.path();
  std::string target = paths::parent(left);
  while (!exists(target) && !paths::isRoot(target))
    target = paths::parent(target);
  if (!paths::sameFolder(target, left)) moveUp(panel, target);
  listing_.FocusView();
}

// --- Going somewhere -----------------------------------------------------------------------------------------------

bool Navigation::goTo(Panel& panel, const std::string& folder) {
  if (!exists(folder)) return false;
  if (!paths::sameFolder(panel.path(), folder)) {
    panel.parentTrail.push(panel.path());
    panel.forwardStack.clear();
  }
  panel.setPath(folder);
  fstack_push(panel);
  enter(panel);
  Folderhis_store(panel);
  browseButtons(panel);
  return true;
}

bool Navigation::goToStored(Panel& panel, const std::string& stored) {
  const std::string folder = spelled(stored);
  return !folder.empty() && goTo(panel, folder);
}

bool Navigation::visit(Panel& panel, const std::string& folder) {
  if (!exists(folder)) return false;
  panel.setPath(folder);
  listing_.ViewClearItems(panel);
  panel.showPath();
  showPlace();
  return true;
}

bool Navigation::GoToDirection(const std::string& target) {
  Panel* panel = form_.activePanel();
  if (!panel) return false;
  const auto path = program_.files().resolve(target);
  if (!path) return false;
  if (program_.files().folderExists(*path)) return goTo(*panel, *path);
  if (!goTo(*panel, paths::parent(*path))) return false;
  const auto name = paths::fileName(*path);
  if (auto item = panel->findByCompareText(core::rowCompareText(paths::baseName(name), paths::extension(name))))
    selectRow(*panel, *item);
  return true;
}

void Navigation::enterFolder(Panel& panel, controls::ListItem item) {
  const std::string folder = panel.itemPath(item);
  if (!exists(folder)) {
    listing_.viewrefresh();
    return;
  }
  panel.parentTrail.push(panel.path());
  panel.forwardStack.clear();
  panel.setPath(folder);
  fstack_push(panel);
  list(panel);
  Folderhis_store(panel);
  browseButtons(panel);
  if (panel.list.count() > 0) panel.list.focusRow(0);
  if (ClickPane) ClickPane();
}

void Navigation::rootFolder(Panel& panel) {
  panel.setPath(panel.driveRoot());
  fstack_push(panel);
  enter(panel);
  panel.parentTrail.clear();
  browseButtons(panel);
}

void Navigation::rootreset_Click() {
  rootFolder(form_.Panel1);
  rootFolder(form_.Panel2);
  listing_.FocusView();
}

void Navigation::ResetHomeDrive_Click() {
  for (Panel* panel : {&form_.Panel1, &form_.Panel2}) {
    panel->setPath(form_.InitFolder);
    fstack_push(*panel);
    enter(*panel);
    browseButtons(*panel);
  }
  listing_.viewrefresh();
  if (ClickPane) ClickPane();
}

void Navigation::leaveVanished() {
  for (Panel* panel : {&form_.Panel1, &form_.Panel2}) {
    std::string folder = drives_.has(panel->path().front()) ? panel->path() : form_.InitFolder;
    while (!paths::isRoot(folder) && !exists(folder))
      folder = paths::parent(folder);
    if (folder == panel->path() && exists(folder)) continue;
    if (!goTo(*panel, folder)) goTo(*panel, form_.InitFolder);
  }
}

void Navigation::ImageCombo1_Click() {
  const std::string chosen = form_.ImageCombo1.Text;
  if (chosen.empty()) return;
  const std::string folder = spelled(chosen);
  if (folder.empty()) {
    program_.dialogs.alert("Invalid Path, - Folder Do Not Exist !");
    return showPlace();
  }
  GoToDirection(folder);
  listing_.FocusView();
}

std::string Navigation::folderForDrive(const std::string& drive) const {
  if (form_.Menu.checked("WinStart")) {
    const std::string last = spelled(histories_.lastFolder(drive));
    if (!last.empty()) return last;
  }
  return drive + "\\";
}

void Navigation::DriveChange(Panel& panel) {
  form_.Menu["WinStart"].Enabled = false;
  const std::string drive = paths::driveOf(panel.controls.Drive.Text.get());
  const auto info = drive.empty() ? platform::Error{} : program_.drive(drive.front());
  if (!info || !info->ready) {
    program_.dialogs.alert("Drive Not Ready !, - Press Ok or Esc-key");
    ViewDriveSelection();
    if (exists(panel.path())) listing_.ViewClearItems(panel);
  } else {
    panel.setPath(folderForDrive(drive));
    panel.parentTrail.clear();
    form_.statusLine("Updating View Data, - Please Wait !");
    fstack_push(panel);
    enter(panel);
    form_.statusLine("");
    browseButtons(panel);
    Folderhis_store(panel);
    panel.list.SetFocus();
  }
  form_.Menu["WinStart"].Enabled = true;
}

// --- Stored places and history -------------------------------------------------------------------------------------

void Navigation::store_Click() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  program_.settings.save(core::setting::viewStorepath, panel->path());
  program_.dialogs.inform(" Location Stored In Memory ! ");
}

void Navigation::memfolder() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  if (!goToStored(*panel, program_.settings.get(core::setting::viewStorepath))) {
    program_.dialogs.alert("Location has Changed and NOT Valid !");
    return;
  }
  if (ClickPane) ClickPane();
}

void Navigation::Presetfolder() {
  const std::string left = spelled(program_.settings.get(core::setting::view1path));
  const std::string right = spelled(program_.settings.get(core::setting::view2path));
  if (left.empty() || right.empty()) {
    program_.dialogs.alert("Location has Changed and NOT Valid !");
    return;
  }
  goToPair(left, right);
  listing_.viewrefresh();
}

void Navigation::goToPair(const std::string& left, const std::string& right) {
  goTo(form_.Panel1, left);
  goTo(form_.Panel2, right);
}

void Navigation::Folderhis_store(const Panel& panel) {
  if (!histories_.folders.add(panel.path())) return;
  auto& combo = form_.ImageCombo1;
  combo.Clear();
  for (const auto& folder : histories_.folders.entries())
    combo.AddItem(paths::withoutClosing(folder), "folder");
  showPlace();
}

void Navigation::savefolder_his_Click() {
  if (histories_.folders.entries().empty()) {
    program_.dialogs.inform("No Folder History To Store !");
    return;
  }
  if (const auto written = histories_.storeFolders(program_); !written) {
    program_.dialogs.alert("Folder History Not Stored !, - " + written.error().text);
    return;
  }
  program_.dialogs.inform("Folder History Stored in File !");
}

void Navigation::ClearHis_Click() {
  histories_.folders.clear();
  form_.ImageCombo1.Clear();
}

}  // namespace varnholt::panels
