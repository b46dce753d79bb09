#include "places/opened_items.hpp"

namespace varnholt::places {

OpenedItems::OpenedItems(panels::Desk& desk) : desk_(desk), Form28(desk), Form29(desk), Form40(desk) {}

void OpenedItems::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "OpenItem_Click",
       .toolTip = "Open a web address, or a file or folder by its path",
       .icon = "open",
       .heading = "Places",
       .menuText = "Open I&tem...",
       .number = 16,
       .newGroup = true,
       .run = [this] { Form29.ShowModal(); }},
      {.handler = "Recent_Files_Click",
       .toolTip = "The files that were opened, newest first",
       .icon = "recent",
       .heading = "Places",
       .menuText = "&Recent Files...",
       .number = 17,
       .run = [this] { Recent_Files_Click(); }},
      {.handler = "Mufi_Click",
       .toolTip = "The files that are opened most often",
       .icon = "most-used",
       .heading = "Places",
       .menuText = "Most &Used Files...",
       .run = [this] { Mufi_Click(); }},
  });
}

void OpenedItems::Recent_Files_Click() {
  Form28.chosen.clear();
  Form28.ShowModal();
  if (!Form28.chosen.empty()) desk_.opener.Filehis_store(Form28.chosen);
}

void OpenedItems::Mufi_Click() {
  if (desk_.mostUsed.entries.empty())
    desk_.program.dialogs.alert("No Items In Most Used Files !");
  else
    Form40.ShowModal();
}

void OpenedItems::load() {
  Form29.load();
  desk_.mostUsed.load(desk_.program);
}

void OpenedItems::store() {
  desk_.state.noteStored(Form29.store());
  desk_.state.noteStored(desk_.mostUsed.store(desk_.program));
}

}  // namespace varnholt::places
