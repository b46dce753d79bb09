#include "properties/attribute_dialog.hpp"

namespace varnholt::properties {

properties::Form18::Form18(controls::MessageLoop& loop) : Form(loop, "Form18") {
  Caption = "Attribut Change";
  Label1.AccessibleName = "Files to change";
  Text1.AccessibleName = "What is changed";
  Text1.ToolTipText = "No folders can be changed !";
  Text1.Locked = true;
  Check1.Caption = "&Archive";
  Check1.ToolTipText = "Apply Archive Attribut";
  Check2.Caption = "&Read-Only";
  Check2.ToolTipText = "Apply Read-Only Attribut";
  Check3.Caption = "&Hidden";
  Check3.ToolTipText = "Apply Hidden Attribut";
  Text2.AccessibleName = "Attribut changed on file";
  Text2.ToolTipText = "The file that was changed last";
  Text2.Locked = true;
  Command1.Caption = "&Execute";
  Command1.ToolTipText =
      "Executes Attribut Changes on Selected Items. Cannot Change attribute on compressed and indexed files !.";
  Command2.Caption = "&Cancel";
  Command2.ToolTipText = "Cancel Operation Without changes";
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
