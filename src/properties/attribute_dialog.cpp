#include "properties/attribute_dialog.hpp"

#include "controls/dress.hpp"

namespace varnholt::properties {

properties::Form18::Form18(controls::MessageLoop& loop) : Form(loop, "Form18") {
  Caption = "Attribut Change";
  Label1.AccessibleName = "Files to change";
  dress(Text1, "What is changed", "No folders can be changed !");
  Text1.Locked = true;
  dress(Check1, "&Archive", "Apply Archive Attribut");
  dress(Check2, "&Read-Only", "Apply Read-Only Attribut");
  dress(Check3, "&Hidden", "Apply Hidden Attribut");
  dress(Text2, "Attribut changed on file", "The file that was changed last");
  Text2.Locked = true;
  dress(Command1, "&Execute",
        "Executes Attribut Changes on Selected Items. Cannot Change attribute on compressed and indexed files !.");
  dress(Command2, "&Cancel", "Cancel Operation Without changes");
  defaultButton = "Command1";
  cancelButton = "Command2";
  Command2.Click = [this] { running_ ? void(StopFlag = true) : Hide(); };
  QueryUnload = [this](bool& keep) { keep = StopFlag = running_; };
}

void properties::Form18::reset(std::size_t count) {
  Text1.Text = "Overwrites Exisitens Attributes !";
  Label1.Caption = std::to_string(count) + " Items To Change !  (Folders, Systemfiles NO change)";
  Text2.Text = "";
  for (controls::CheckBox* box : {&Check1, &Check2, &Check3})
    box->Value = 0;
  Check1.SetFocus();
}

void properties::Form18::setRunning(bool running) {
  running_ = running;
  StopFlag = false;
  Command1.Enabled = !running;
  for (controls::CheckBox* box : {&Check1, &Check2, &Check3})
    box->Enabled = !running;
}

}  // namespace varnholt::properties
