#include "fileops/new_folder.hpp"

#include "controls/dress.hpp"
#include "core/text_character.hpp"
#include "platform/paths.hpp"

namespace varnholt::fileops {

using controls::MessageAnswer;
using controls::MessageButtons;
using controls::MessageIcon;

fileops::Form2::Form2(panels::Desk& desk) : NameForm(desk.program.loop, "Form2"), desk_(desk) {
  Caption = "New Folder";
  Image1.ToolTipText = "New Folder";
  dress(Text1, "Folder name", "Key valid foldername without any backslash , - only one folder is permitted !");
  Command11.ToolTipText = "Executes foldername as keyed.";
  Command11.Click = [this] { Command11_Click(); };
}

void fileops::Form2::Command11OfForm1_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  desk_.form.setMode("FolderMode");
  Text1.Text = "";
  Text1.SetFocus();
  ShowModal();
  desk_.listing.FocusView();
  desk_.dispatcher.commandDone();
}

void fileops::Form2::tell(const std::string& text, const std::string& title) const {
  desk_.program.loop.show({title, text, MessageIcon::Exclamation, MessageButtons::Ok});
}

void fileops::Form2::Command11_Click() {
  std::string name(core::trimmed(Text1.Text.get()));
  if (name.ends_with('\\')) name.pop_back();
  if (name.empty()) {
    tell("Please key in new Foldername !", "Alert !");
    return Text1.SetFocus();
  }
  auto& files = desk_.files();
  const std::string parent = desk_.form.activePanel()->path(), folder = platform::paths::join(parent, name);
  if (files.folderExists(folder)) {
    tell("New folder already Exist !      ", "Alert !");
    return Text1.SetFocus();
  }
  const auto answer = desk_.program.loop.show(
      {"New Folder", "New Folder Creation As :    " + folder, MessageIcon::Question, MessageButtons::OkCancel});
  if (answer != MessageAnswer::Ok) return;
  (void)files.createFolder(folder);
  if (!files.folderExists(folder)) {
    tell("Cannot Create New Folder", "Alert");
    return Text1.SetFocus();
  }
  UnloadForm();
  desk_.listing.ViewUpdateAll(parent);
  desk_.form.activePanel()->goOnFrom(name);
  desk_.trees.redraw();
}

}  // namespace varnholt::fileops
