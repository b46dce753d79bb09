#include "panels/panel_keys.hpp"

#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "panels/panel_shortcuts.hpp"
#include "platform/paths.hpp"

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;
namespace key = controls::key;

constexpr int Q = 81, F2 = 113;

std::string properCaseParts(std::string_view path) {
  std::string text;
  while (true) {
    const auto end = path.find('\\');
    text += core::properCase(path.substr(0, end));
    if (end == std::string_view::npos) return text;
    text += '\\';
    path.remove_prefix(end + 1);
  }
}

}  // namespace

void PanelKeys::KeyDown(Panel& panel, controls::KeyEvent& event) {
  // What goes on may be watched, and the list be walked through, but keys are commands here.
  if (d_.dispatcher.busy) return;
  if (const PanelShortcut* shortcut = panelShortcut(event)) {
    event.handled = true;
    if (d_.form.Menu.has(std::string(shortcut->entry))) d_.form.Menu[std::string(shortcut->entry)].choose();
    return;
  }
  const auto item = panel.list.SelectedItem();
  switch (event.code) {
  case key::Esc:
    event.handled = true;
    escape();
    return;
  case key::Ctrl:
    d_.form.CtrlHeld = true;
    return;
  case Q:
  case F2:
    d_.trees.redraw();
    return;
  case key::Enter:
    event.handled = true;
    event.modifiers.ctrl ? commandline() : DblClick(panel);
    return;
  case key::Right:
    event.handled = true;
    if (item && panel.isFolder(*item) && !event.modifiers.ctrl) DblClick(panel);
    return;
  case key::Space:
    event.handled = spaceLeavesFolder(panel);
    return;
  case key::Left:
    event.handled = true;
    d_.navigation.parentFolder(panel);
    return;
  }
}

void PanelKeys::KeyUp(Panel& panel, controls::KeyEvent& event) {
  if (event.code == key::Ctrl) d_.form.CtrlHeld = false;
  if (event.code != key::Up && event.code != key::Down) return;
  d_.form.events.itemChanged(panel);
}

void PanelKeys::escape() {
  if (d_.form.Picture1.Visible) return;
  d_.listing.viewHightreset();
  d_.form.Text3.Text = "";
  d_.selection.ResetView();
}

bool PanelKeys::spaceLeavesFolder(Panel& panel) {
  if (!d_.form.Menu.checked("RLC")) return false;
  d_.navigation.parentFolder(panel);
  return true;
}

void PanelKeys::DblClick(Panel& panel) {
  if (d_.dispatcher.busy) return;
  const auto item = panel.list.SelectedItem();
  if (!item) return;
  if (panel.isFolder(*item)) {
    d_.navigation.enterFolder(panel, *item);
    return;
  }
  d_.opener.open(panel.itemPath(*item));
}

void PanelKeys::OpenSelected_Click() {
  if (Panel* panel = d_.form.activePanel()) DblClick(*panel);
}

void PanelKeys::MarkItem_Click() {
  if (Panel* panel = d_.form.activePanel()) panel->list.markFromUser();
}

void PanelKeys::OtherPanel_Click() {
  if (Panel* panel = d_.form.activePanel()) d_.form.otherPanel(*panel).list.SetFocus();
}

// --- The path lines ------------------------------------------------------------------------------------------------

void PanelKeys::pathKey(Panel& panel, controls::KeyEvent& event) {
  if (event.code != key::Enter && event.code != key::Esc) return;
  event.handled = true;
  if (event.code == key::Enter) return goToTyped(panel);
  panel.showPath();
  panel.list.SetFocus();
}

void PanelKeys::goToTyped(Panel& panel) {
  if (d_.dispatcher.busy) return;
  std::string typed = panel.controls.Text.Text.get();
  // The name of a folder may end in a blank: what stands there exactly goes first.
  if (!d_.program.files().folderExists(typed)) typed = std::string(core::unquoted(core::trimmed(typed)));
  if (typed.size() == 2 && typed.back() == ':') typed += '\\';
  // The list takes the keyboard first, since it is the active panel that goes; what was typed waits meanwhile.
  panel.list.SetFocus();
  if (d_.navigation.GoToDirection(typed)) return;
  d_.program.dialogs.alert("File/Folder Path NOT Valid !");
  panel.controls.Text.Text = typed;
  panel.controls.Text.SetFocus();
}

// --- The command line ----------------------------------------------------------------------------------------------

void PanelKeys::commandline() {
  Panel* panel = d_.form.activePanel();
  if (!panel) return;
  std::string line;
  if (const auto item = panel->list.SelectedItem()) {
    const std::string path = panel->itemPath(*item);
    line = panel->isFolder(*item) ? properCaseParts(path) : path;
  }
  d_.form.Text3.Text = line;
  d_.form.Text3.Visible = true;
  d_.form.Text3.SetFocus();
}

void PanelKeys::Text3_KeyDown(controls::KeyEvent& event) {
  if (event.code == key::Esc) {
    event.handled = true;
    d_.listing.viewHightreset();
    d_.listing.FocusView();
  }
  if (event.code == key::Enter) {
    event.handled = true;
    runLine();
  }
}

void PanelKeys::runLine() {
  const std::string line(core::trimmed(d_.form.Text3.Text.get()));
  if (d_.dispatcher.busy || line.empty()) return;
  std::string command = line;
  // As at any prompt: relative names are those of the folder that the user looks at.
  const Panel* panel = d_.form.activePanel();
  const std::string folder = panel ? panel->path() : std::string();
  // A typed path may spell its parts in another letter case than the disk does.
  if (const auto path = d_.program.files().resolve(std::string(core::unquoted(line)))) {
    command = platform::quoteArgument(*path);
    if (d_.program.files().folderExists(*path))
      command = platform::quoteArgument(paths::join(d_.program.folders.windir, "explorer.exe")) + ' ' + command;
    else {
      if (!d_.program.start(command, folder)) d_.opener.open(*path);
      return;
    }
  }
  if (const auto started = d_.program.start(command, folder); !started)
    d_.program.dialogs.alert("Cannot Start Command Line !, - " + started.error().text);
}

}  // namespace varnholt::panels
