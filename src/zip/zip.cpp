#include "zip/zip.hpp"

namespace varnholt::zip {

void Zip::addCommands(panels::CommandTable& table) {
  table.add({{.handler = "MakeZip_Click",
              .toolTip = "Pack the selected items into a zip file",
              .icon = "zip",
              .heading = "File",
              .menuText = "Ma&ke Zip File...",
              .after = "EditFile",
              .newGroup = true,
              .run = [this] { MakeZip_Click(); }}});
}

void Zip::MakeZip_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  makeZip();
  desk_.dispatcher.commandDone();
}

void Zip::makeZip() {
  auto& dialogs = desk_.program.dialogs;
  auto& collected = desk_.form.filecollect;
  panels::Panel& panel = *desk_.form.activePanel();
  if (!desk_.files().fileExists(Form41.library.libraryPath())) {
    dialogs.critical("File Vnzip.Dll missing in Application Folder, Function exits !");
    return;
  }
  if (collected.empty()) desk_.selection.ClickPane();
  if (panel.list.count() == 0 || collected.empty()) {
    dialogs.alert("No Items Selected, - Function Exits !");
    return;
  }
  std::vector<core::Item> items;
  while (!collected.empty())
    items.push_back(collected.pop());
  const std::string folder = panel.path();
  if (Form41.open(folder, items)) desk_.listing.ViewClearItems(panel);
  desk_.listing.FocusView();
}

}  // namespace varnholt::zip
