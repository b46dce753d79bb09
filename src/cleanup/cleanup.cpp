#include "cleanup/cleanup.hpp"

namespace varnholt::cleanup {

CleanUp::CleanUp(panels::Desk& desk, fileops::Desktop& desktop, const panels::Icons& icons)
    : desk_(desk),
      Form16(desk),
      Form23(desk.program.loop),
      scan(desk, Form16),
      clean(desk, desktop, icons, Form16, Form23, scan) {
  Form16.Command1.Click = [this] {
    scan.Command1_Click();
    clean.putInHand(0);
  };
}

void CleanUp::addCommands(panels::CommandTable& table) {
  table.add({
      {.handler = "Command17_Click",
       .button = "Command17",
       .caption = "CleanUp",
       .toolTip = "Search a drive for files to clean",
       .icon = "cleanup",
       .number = 12,
       .run = [this] { Command17_Click(); }},
      {.handler = "cleanupsearch_Click",
       .toolTip = "Search a drive or folder for files to clean, by pattern and by size",
       .icon = "cleanup",
       .heading = "Tools",
       .menuText = "CleanUp - &Search",
       .newGroup = true,
       .run = [this] { desk_.dispatcher.perform("Command17_Click"); }},
  });
}

void CleanUp::Command17_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  desk_.form.setMode("CleanMode");
  // It was hidden to show where a file lies: the list is still there.
  if (Form16.isLoaded()) clean.putInHand(Form16.ListView1.focusedRow().value_or(0));
  Form16.ShowModal();
  if (!Form16.isLoaded()) scan.forget();
  desk_.listing.FocusView();
  desk_.dispatcher.commandDone();
}

}  // namespace varnholt::cleanup
