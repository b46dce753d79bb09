#include "fileops/edit_file.hpp"

#include "core/system_tools.hpp"
#include "platform/paths.hpp"

namespace varnholt::fileops {

void EditFile::Command2_Click() {
  panels::Panel* panel = desk_.form.activePanel();
  const auto item = panel ? panel->list.SelectedItem() : std::nullopt;
  if (!item || panel->isFolder(*item)) {
    desk_.selection.nonselect();
    return;
  }
  core::openInNotepad(desk_.program, panel->itemPath(*item));
}

void EditFile::Command13_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  desk_.form.setMode("EditMode");
  const auto name = dialog_.ask({.caption = "Make File",
                                 .toolTip = "Key in Valit Filename With File Extension.",
                                 .pictureTip = "Make File",
                                 .emptyAnswer = "Key in Valid File Name !."});
  desk_.dispatcher.commandDone();
  if (name) makeFile(*desk_.form.activePanel(), *name);
}

void EditFile::makeFile(panels::Panel& panel, const std::string& name) {
  auto& dialogs = desk_.program.dialogs;
  const std::string path = platform::paths::join(panel.path(), name);
  if (desk_.files().folderExists(path)) {
    dialogs.alert("Folder:  " + name + "\rAlready Exist !");
    return;
  }
  if (desk_.files().fileExists(path) && !dialogs.AskRetry("File:  " + name + "\rAlready Exist !, OverWrite ?")) return;
  // The question named a link, not the file behind it, which keeps what it holds.
  const auto there = desk_.files().info(path);
  auto written = there && there->isLink ? desk_.files().deleteFile(path, false) : platform::Result<void>();
  if (written) written = desk_.files().writeFile(path, "");
  if (!written) {
    dialogs.alert("File:  " + name + "\r" + written.error().text);
    return;
  }
  desk_.listing.ViewUpdateAll(panel.path());
  panel.goOnFrom(name);
  core::openInNotepad(desk_.program, path);
}

}  // namespace varnholt::fileops
