#include "basket/basket.hpp"

namespace varnholt::basket {

void Basket::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "WinCopy_Click",
       .toolTip = "Add the selected items to the paste basket, which keeps what is in it (Ctrl+C)",
       .icon = "copy",
       .heading = "File",
       .menuText = "Add &To Basket",
       .shortcut = "Ctrl+C",
       .newGroup = true,
       .run = [this] { WinCopy_Click(); }},
      {.handler = "WinPaste_Click",
       .toolTip = "Copy all that is in the paste basket into the active view (Ctrl+V)",
       .icon = "paste",
       .heading = "File",
       .menuText = "&Paste From Basket",
       .shortcut = "Ctrl+V",
       .run = [this] { Paste.WinPaste_Click(); }},
      {.handler = "RegOptions_Click",
       .toolTip = "Show and edit the paste basket, load and save it",
       .icon = "paste-viewer",
       .heading = "File",
       .menuText = "Paste &Viewer...",
       .number = 82,
       .run = [this] { RegOptions_Click(); }},
      {.handler = "CopySelection_Click",
       .toolTip = "Add the selected items to the paste basket (Ctrl+C)",
       .icon = "copy",
       .heading = "File/Copy",
       .menuText = "Copy &Selection To Basket",
       .run = [this] { WinCopy_Click(); }},
  });
}

}  // namespace varnholt::basket
