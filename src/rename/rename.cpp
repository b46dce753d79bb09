#include "rename/rename.hpp"

#include "platform/paths.hpp"

namespace varnholt::rename {

namespace paths = platform::paths;

Rename::Rename(panels::Desk& desk, fileops::OverwritePolicy& policy, fileops::Form7& form7)
    : Form14(desk.program), desk_(desk), single_(desk, policy, form7, Form14), masked_(desk, Form14) {
  bindDialog();
  policy.renameTarget = [this](const std::string& folder, const std::string& name) {
    return renameOne(Caller::RenameTarget, folder + name).has_value();
  };
  // A name that is in the way of a new one is not renamed in its turn.
  policy.copyDialogVisible = [this, visible = policy.copyDialogVisible] {
    return !Form14.Visible && visible && visible();
  };
}

void Rename::bindDialog() {
  Form14.Command11.Click = [this] { Command11_Click(); };
  Form14.Command2.Click = [this] { Form14.Hide(); };
  Form14.Command6.Click = [this] { Command6_Click(); };
  Form14.Command7.Click = [this] { masked_.preview(items_); };
  Form14.Command9.Click = [this] { open(Form14.Folder + Form14.Item); };
  Form14.ListView1.DblClick = [this] {
    if (const auto row = Form14.ListView1.SelectedItem()) open(masked_.previewPath(*row));
  };
  for (controls::Button* arrow : {&Form14.Image1, &Form14.Image2})
    arrow->Click = [this] { step(-1); };
  for (controls::Button* arrow : {&Form14.Image10, &Form14.Image11})
    arrow->Click = [this] { step(+1); };
  Form14.KeyDown = [this](controls::KeyEvent& key) { previewKey(key); };
}

// --- Hand-over -----------------------------------------------------------------------------------------------------

void Rename::Command14_Click() {
  auto& form = desk_.form;
  if (!desk_.dispatcher.panelPreCheck()) return;
  desk_.listing.FocusView();
  desk_.selection.ViewClickCopy(*form.activePanel());
  form.setMode("RenameMode");
  form.CurrentItem = form.filecollect.empty() ? std::string() : form.filecollect.items().front().path;
  desk_.dispatcher.Fileident();
  if (form.CurrentItem.empty()) {
    desk_.selection.ClickPane();
    desk_.selection.nonselect();
    return close();
  }
  ViewIdent();
  desk_.dispatcher.RenameColor();
  show(Caller::Panel);
  close();
  if (renamedTo_) form.activePanel()->goOnFrom(*renamedTo_);
}

void Rename::ViewIdent() {
  items_.clear();
  const std::string folder = desk_.form.activePanel()->path();
  for (const core::Item& item : desk_.form.filecollect.items())
    items_.push_back(SplitFolderItem(item, folder));
}

std::optional<std::string> Rename::renameOne(Caller caller, const std::string& path) {
  auto& form = desk_.form;
  const std::string mode = form.mode(), item = form.CurrentItem;
  const int pointer = std::exchange(desk_.pointer(), controls::pointer::Default);
  form.setMode("RenameMode");
  items_ = {{paths::parent(path), std::string(paths::fileName(path))}};
  show(caller);
  desk_.pointer() = pointer;
  form.CurrentItem = item;
  form.setMode(mode);
  return renamedTo_;
}

// --- The dialog ----------------------------------------------------------------------------------------------------

void Rename::show(Caller caller) {
  renamedTo_.reset();
  single_.askAgain();
  masked_.forget();
  Form14.reset(caller);
  showItem();
  Form14.Text1.SetFocus();
  Form14.ShowModal();
}

// The return from the dialog, whatever its outcome; also when it was never shown.
void Rename::close() {
  desk_.selection.resetcollect();
  desk_.dispatcher.resetval();
  desk_.listing.ColorReset();
  desk_.listing.FocusView();
  desk_.selection.ResetView();
  desk_.dispatcher.commandDone();
}

void Rename::showItem() {
  const Item& item = items_[Form14.Index];
  desk_.form.CurrentItem = item.name;
  Form14.showItem(item.folder, item.name, items_.size());
  if (!item.isFolder) return icons_.Iconshow(Form14.Picture1, item.path());
  Form14.Picture1.PictureData = std::string();
  Form14.Picture1.IconName = "folder";
}

void Rename::step(int by) {
  const auto to = static_cast<std::ptrdiff_t>(Form14.Index) + by;
  if (to < 0 || to >= static_cast<std::ptrdiff_t>(items_.size())) return;
  Form14.Index = static_cast<std::size_t>(to);
  showItem();
}

void Rename::Command11_Click() {
  Form14.Invalid = false;
  Form14.CheckNewName();
  if (Form14.Invalid) return;
  Item& item = items_[Form14.Index];
  const std::string newName = Form14.Text1.Text;
  const auto outcome = single_.rename(item, newName);
  if (outcome == SingleRename::Outcome::Stays) return Form14.Text1.SetFocus();
  if (outcome == SingleRename::Outcome::Renamed) {
    item.name = newName;
    renamedTo_ = newName;
    VerifyS(item);
  }
  if (Form14.Index + 1 == items_.size()) return Form14.Hide();
  step(+1);
  Form14.Text1.SetFocus();
}

void Rename::Command6_Click() {
  if (!masked_.execute(items_)) return;
  Form14.Hide();
  desk_.listing.ViewRenew();
  masked_.tellKept();
}

void Rename::VerifyS(const Item& item) {
  desk_.navigation.leaveVanished();
  desk_.listing.ViewUpdateAll(item.folder);
  if (item.isFolder) desk_.trees.redraw();
}

void Rename::open(const std::string& path) {
  const auto& files = desk_.files();
  if (!files.fileExists(path) && !files.folderExists(path)) {
    desk_.program.dialogs.alert("File/Folder Path NOT Valid !");
    return;
  }
  desk_.files().folderExists(path) ? desk_.opener.OpenItemPath(path) : desk_.opener.open(path);
}

// Enter in the upper field renames also while the mask makes the preview what Enter stands for. The keys of the arrows
// act where no list needs them.
void Rename::previewKey(controls::KeyEvent& key) {
  if (key.code == controls::key::Enter && Form14.Text1.hasFocus()) {
    key.handled = true;
    return Form14.Command11.press();
  }
  if (Form14.ListView1.hasFocus() || !Form14.Image1.Visible) return;
  if (key.code != controls::key::PageUp && key.code != controls::key::PageDown) return;
  step(key.code == controls::key::PageUp ? -1 : +1);
  key.handled = true;
}

}  // namespace varnholt::rename
