#include "search/search.hpp"

namespace varnholt::search {

Search::Search(panels::Desk& desk)
    : desk_(desk), Form37(desk.program.loop), Form36(desk, Form37), Form47(desk, found), Form48(desk, found) {}

void Search::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "QuickFindFolder_Click",
       .toolTip = "Look for a folder by its name, on a drive or below the folder of the active view",
       .icon = "find-folder",
       .heading = "Tools",
       .menuText = "Quick Find Folder On Drive(s)",
       .newGroup = true,
       .run = [this] { Form36.ShowModal(); }},
      {.handler = "QuickFind_Click",
       .toolTip = "Go to a file of the active view while its name is typed",
       .icon = "find-item",
       .heading = "Tools",
       .menuText = "Quick Find File In Active View",
       .shortcut = "Ctrl+F",
       .run = [this] { Form47.open(false); }},
      {.handler = "QuickFolderInView_Click",
       .toolTip = "Go to a folder of the active view while its name is typed",
       .icon = "find-item",
       .heading = "Tools",
       .menuText = "Quick Find Item In Active View",
       .run = [this] { Form47.open(true); }},
      {.handler = "FoundHistory_Click",
       .toolTip = "The items that were found, to go there again",
       .icon = "history",
       .heading = "Tools",
       .menuText = "Found &History...",
       .run =
           [this] {
             Form47.FoundStore();
             Form48.ShowModal();
           }},
  });
}

void Search::load() {
  Form36.SearchHistoryLoad();
  found.load(desk_.program);
}

void Search::store() {
  desk_.state.noteStored(Form36.SearchHistoryStore());
  Form47.FoundStore();
  desk_.state.noteStored(found.store(desk_.program));
}

}  // namespace varnholt::search
