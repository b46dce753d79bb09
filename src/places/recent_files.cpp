#include "places/recent_files.hpp"

#include "controls/dress.hpp"
#include "places/open_file.hpp"

namespace varnholt::places {

places::Form28::Form28(panels::Desk& desk) : Form(desk.program.loop, "Form28"), desk_(desk) {
  Caption = "Recent Files";
  defaultButton = "Command11";
  cancelButton = "Command2";
  setTexts();
  Load = [this] {
    show("Recent Files Emty ...");
    ImageCombo1.SetFocus();
  };
  Command1.Click = [this] { Command1_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command11.Click = [this] { Command11_Click(); };
  Command2.Click = [this] { UnloadForm(); };
}

void places::Form28::setTexts() {
  ImageCombo1.AccessibleName = "Recent files";
  ImageCombo1.ToolTipText = "Select a file that was opened before, newest first.";
  dress(Command11, "&Open", "Open Selected Item");
  dress(Command3, "&Go To", "Go To Selected File Location.");
  dress(Command1, "C&lear", "Clear All Items In Recent Files menu");
  dress(Command2, "&Cancel", "Cancel Operation");
}

void places::Form28::show(const char* whenEmpty) {
  const auto& files = desk_.histories.files.entries();
  std::vector<controls::ComboBox::Item> items;
  for (auto file = files.rbegin(); file != files.rend(); ++file)
    items.push_back({*file, "file"});
  for (controls::Button* button : {&Command11, &Command3, &Command1})
    button->Enabled = !items.empty();
  if (items.empty()) items.push_back({whenEmpty, ""});
  ImageCombo1.Items = std::move(items);
  ImageCombo1.choose(0);
}

std::optional<std::string> places::Form28::fileInHand() const {
  const auto file = desk_.files().resolve(ImageCombo1.Text.get());
  if (!file || !desk_.files().fileExists(*file)) return {};
  return *file;
}

void places::Form28::Command1_Click() {
  desk_.histories.files.clear();
  show("Recent Files Cleared ...");
  desk_.program.dialogs.inform("Recent Files Cleared In Memory !");
}

void places::Form28::Command3_Click() {
  const auto file = fileInHand();
  if (file && desk_.navigation.GoToDirection(*file))
    UnloadForm();
  else
    desk_.program.dialogs.alert("File Path NOT Valid !");
}

void places::Form28::Command11_Click() {
  const auto file = fileInHand();
  if (!file) {
    desk_.program.dialogs.alert("File Do Not Exist !, - Removes From List.");
    desk_.histories.files.remove(ImageCombo1.Text.get());
    show("Recent Files Emty ...");
    return;
  }
  if (!openFile(desk_, *file)) return;
  chosen = *file;
  UnloadForm();
}

}  // namespace varnholt::places
