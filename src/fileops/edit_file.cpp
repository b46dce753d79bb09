#include "fileops/edit_file.hpp"

#include "core/system_tools.hpp"
#include "platform/paths.hpp"

namespace varnholt::fileops {

void EditFile::Command2_Click() {
  panels::Panel* panel = context_.form.activePanel();
  const auto item = panel ? panel->list.SelectedItem() : std::nullopt;
  if (!item || panel->isFolder(*item)) {
    context_.selection.nonselect();
    return;
  }
  core::openInNotepad(context_.program, panel->itemPath(*item));
}

void EditFile::Command13_Click() {
  if (!context_.dispatcher.panelPreCheck()) return;
  context_.form.setMode("EditMode");
  const auto name = dialog_.ask({.caption = "Make File",
                                 .toolTip = "Key in Valit Filename With File Extension.",
                                 .pictureTip = "Make File",
                                 .emptyAnswer = "Key in Valid File Name !."});
  context_.dispatcher.commandDone();
  if (name) makeFile(*context_.form.activePanel(), *name);
}

void EditFile::makeFile(panels::Panel& panel, const std::string& name) {
  auto& dialogs = context_.program.dialogs;
  const std::string path = platform::paths::join(panel.path(), name);
  if (context_.files().folderExists(path)) {
    dialogs.alert("Folder:  " + name + "\rAlready Exist !");
    return;
  }
  if (context_.files().fileExists(path) && !dialogs.AskRetry("File:  " + name + "\rAlready Exist !, OverWrite ?"))
    return;
  if (const auto written = context_.files().writeFile(path, ""); !written) {
    dialogs.alert("File:  " + name + "\r" + written.error().text);
    return;
  }
  context_.listing.ViewUpdateAll(panel.path());
  core::openInNotepad(context_.program, path);
}

}  // namespace varnholt::fileops
