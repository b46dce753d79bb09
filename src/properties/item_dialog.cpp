#include "properties/item_dialog.hpp"

#include "controls/dress.hpp"

#include <string>
#include <utility>

namespace varnholt::properties {
namespace {

// What is told, and not to be changed.
void dressLocked(controls::TextBox& field, const std::string& name) {
  dress(field, name, name);
  field.Locked = true;
}

void dressLocked(controls::CheckBox& box, std::string caption, std::string toolTip) {
  dress(box, std::move(caption), std::move(toolTip));
  box.Enabled = false;
}

}  // namespace

properties::Form15::Form15(controls::MessageLoop& loop) : Form(loop, "Form15") {
  Caption = "File/Folder Properties";
  dressFacts();
  dressButtons();
  Label1.AccessibleName = "Items to view";
  Label2.AccessibleName = "Place among the selected items";
  Image3.AccessibleName = "Picture Preview";
  Image3.ToolTipText = "Picture Window Click Stretch on/off";
  Image3.Stretch = true;
  Image3.Click = [this] { Image3.Stretch = !Image3.Stretch; };
  defaultButton = "Command11";
  cancelButton = "Command2";
}

void properties::Form15::dressFacts() {
  dressLocked(Text1, "Name");
  dressLocked(Text2, "Folder that the item stands in");
  dressLocked(Text3, "Type of the item");
  dressLocked(Text4, "Size of the item");
  dressLocked(Text5, "Date Created");
  dressLocked(Text6, "Date last modified");
  dressLocked(Text7, "Attributes in words");
  dressLocked(Check1, "Archive", "Changed since it was archived");
  dressLocked(Check2, "Hidden", "Not shown in ordinary views");
  dressLocked(Check3, "Read-Only", "Not to be changed or deleted");
  dressLocked(Check4, "System", "Belongs to the system");
  dressLocked(Check5, "ComPressed", "Stored compressed by the file system");
  dressLocked(Check6, " NTFS Indexing Service", "An indexing service may read it");
}

void properties::Form15::dressButtons() {
  dress(Image1, "", "Previus Item", "back");
  dress(Image2, "", "Next Item", "forward");
  dress(Command1, "Calculate &Size", "Calculates the Size of Selected  Item");
  dress(Command4, "&Apply Reset",
        "Warning,- This command will reset file atributes til Normal, except the atribut System");
  dress(Command5, "&To DeskTop", "Copy File To Windows Desktop.");
  dress(Command3, "&Open Item", "Opens the item in hand");
  dress(Command11, "&Next Item", "Next Item");
  dress(Command2, "&Cancel", "Cancel Operation");
}

void properties::Form15::reset(std::size_t count, bool readOnlyMedium) {
  Caption = readOnlyMedium ? "File/Folder Properties, - Read Only Data !" : "File/Folder Properties";
  Label1.Caption = std::to_string(count) + (count == 1 ? " Item To View" : " Items To View");
  const bool several = count > 1;
  for (controls::Control* control : std::initializer_list<controls::Control*>{&Image1, &Image2, &Label2})
    control->Visible = several;
  Command11.Enabled = several;
  (several ? Command11 : Command2).SetFocus();
}

}  // namespace varnholt::properties
