#include "rename/rename_dialog.hpp"

#include "controls/dress.hpp"
#include "core/picture_file.hpp"
#include "core/text_character.hpp"
#include "panels/listing.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::rename {
namespace {

constexpr controls::Twips MaskOnWidth = 7000, MaskOffWidth = 2820;
constexpr const char* MaskOn = "Mask On";
constexpr const char* MaskOff = "Mask Off";
constexpr const char* NoItems = "No Items In View";
constexpr controls::Twips NameColumn = 3000;
constexpr std::size_t LongName = 50, LongNameKept = 46;

const char* captionOf(Caller caller) {
  switch (caller) {
  case Caller::Favourite:
    return "Rename Favorit To : *.Url";
  case Caller::Bookmark:
    return "Rename Bookmark To : *.Bmk";
  case Caller::RenameTarget:
    return "Rename Target File";
  case Caller::Panel:
    break;
  }
  return "Rename Item(s)";
}

}  // namespace

// --- Looks ---------------------------------------------------------------------------------------------------------

rename::Form14::Form14(core::Program& program) : Form(program.loop, "Form14"), program_(program) {
  Caption = captionOf(Caller::Panel);
  dressItemPart();
  dressMaskPart();
  defaultButton = "Command11";
  cancelButton = "Command2";
  reset(Caller::Panel);
}

void rename::Form14::dressItemPart() {
  Picture1.AccessibleName = "File type";
  Picture1.ToolTipText = "Icon of the item's type";
  Label1.AccessibleName = "Item in hand";
  Label2.AccessibleName = "Place among the selected items";
  dress(Text1, "New name", "Key in the new name of the item");
  for (controls::Button* arrow : {&Image1, &Image2})
    dress(*arrow, "", "Previus Item", "back");
  for (controls::Button* arrow : {&Image10, &Image11})
    dress(*arrow, "", "Next Item, without renaming this one", "forward");
  Image3.ToolTipText = "Picture Preview";
  Image3.AccessibleName = "Picture Preview";
  Image3.Stretch = true;
  dress(Command1, "Return to &Original", "Sets back the name as it is on the disk");
  dress(Command3, "lo&wer", "Sets newname to lower case");
  dress(Command4, "UPPE&R", "Sets newname to UPPER CASE");
  dress(Command5, MaskOff, "Enable/Disable Mask function. Valid for files only.");
  dress(Command9, "Open &Item", "Opens the item in hand");
  dress(Command11, "&Next Item", "Renames this item and goes on to the next one");
  dress(Command2, "&Cancel", "Cancel Operation");
  Command1.Click = [this] { Text1.Text = Item; };
  Command3.Click = [this] { Text1.Text = platform::foldCase(Text1.Text.get()); };
  Command4.Click = [this] { Text1.Text = platform::upperCase(Text1.Text.get()); };
  Command5.Click = [this] { Command5_Click(); };
}

void rename::Form14::dressMaskPart() {
  dress(Check2, "Change Original N&ame", "Off: the names stay, with a text added or cut. On: a new name and a number");
  dress(Text3, "New base name", "Key New Valid FileName Without Extention !.");
  dress(Text5, "Start of the counter", "Key Numeric Start Value");
  dress(Text2, "Text to add or cut", "Key in Text to be Added to org. Filename, (Case sensitive).");
  dress(Text4, "New extension",
        "Key in File extension without the dot as text. No wildcards permitted except  the \"*\" as s");
  dress(Command8, "+", "+ adds chr. to filename, - subtract chr. from  filename.");
  dress(Check3, "&LCASE", "The whole new name in lower case");
  dress(Check1, "&UCASE", "The whole new name in UPPER CASE");
  dress(Command7, "&Preview", "Preview mask on Item(s), Valid for files only.");
  dress(Command6, "&Execute All", "Sets All to Mask at once. Valid for files only.");
  Label4.Caption = "Text:";
  Label5.Caption = "Integer:";
  Label6.Caption = "New Ext:";
  ListView1.ColumnHeaders = {{"Before Rename:", NameColumn}, {"After Rename:", NameColumn}};
  ListView1.AccessibleName = "Old and new names";
  ListView1.ToolTipText = "Names before and after. A double click opens the item.";
  ListView1.MultiSelect = false;
  auto icons = panels::panelImageList();
  icons.emplace(KeptIcon, "warning");
  ListView1.ImageList = std::move(icons);
  Label7.AccessibleName = "Names that could not be given";
  ListView1.setSorted(false);
  Command8.Click = [this] { Command8_Click(); };
  Check2.Click = [this] { Check2_Click(); };
  Check3.Click = [this] { Check1.Value = 0; };
  Check1.Click = [this] { Check3.Value = 0; };
  Text5.Change = [this] { Text5_Change(); };
}

// --- State ---------------------------------------------------------------------------------------------------------

void rename::Form14::reset(Caller caller) {
  Caption = captionOf(caller);
  for (controls::CheckBox* box : {&Check1, &Check2, &Check3})
    box->Value = 0;
  Text2.Text = "";
  Text4.Text = "*";
  Text5.Text = "0";
  Command8.Caption = "+";
  counter_ = "0";
  Invalid = false;
  Index = 0;
  Check2_Click();
  ListView1.clear();
  showKept(0, {});
  Command5.Enabled = caller == Caller::Panel;
  // The window comes up in its designed size, wherever its caller stands.
  Height = narrowHeight_ = 0;
  setMask(false);
}

void rename::Form14::showItem(const std::string& folder, const std::string& name, std::size_t count) {
  Folder = folder;
  Item = name;
  Label1.Caption = core::shortened(name, LongName, LongNameKept);
  Label1.ToolTipText = name;
  Label2.Caption = std::to_string(Index + 1) + " / " + std::to_string(count);
  Text1.Text = name;
  showPicture();
  const bool several = count >= 2;
  for (controls::Control* each : std::initializer_list<controls::Control*>{&Image1, &Image10, &Label2})
    each->Visible = several;
  for (controls::Button* arrow : {&Image2, &Image11})
    arrow->Visible = several && Image3.Visible;
}

void rename::Form14::showPicture() {
  std::string picture;
  if (core::hasPictureName(Item)) {
    const std::string path = platform::paths::join(Folder, Item);
    picture = program_.files().readFile(path).valueOr({});
    if (core::pictureFormat(picture).empty()) picture.clear();
  }
  Image3.Visible = !picture.empty();
  Image3.PictureData = std::move(picture);
}

// --- The mask's controls -------------------------------------------------------------------------------------------

bool rename::Form14::maskOn() const { return Command5.Caption.get() == MaskOn; }

void rename::Form14::Command5_Click() {
  const bool on = !maskOn();
  if (on) narrowHeight_ = Height;
  setMask(on);
  if (!on) return Text1.SetFocus();
  if (ListView1.count() == 0) ListView1.add(NoItems);
  Text2.SetFocus();
}

void rename::Form14::setMask(bool on) {
  Command5.Caption = on ? MaskOn : MaskOff;
  showMask(on);
  // Enter in a field of the mask must not rename the item in hand, which has nothing to do with it.
  defaultButton = on ? "Command7" : "Command11";
  Width = on ? MaskOnWidth : MaskOffWidth;
  if (!on) Height = narrowHeight_;
}

void rename::Form14::showMask(bool on) {
  for (controls::Control* each :
       std::initializer_list<controls::Control*>{&Check2, &Label3, &Text3, &Command8, &Label4, &Text2, &Label6, &Text4,
                                                 &Check3, &Check1, &ListView1, &Label7, &Command7, &Command6})
    each->Visible = on;
  const bool counts = on && Check2.Value != 0;
  Label5.Visible = counts;
  Text5.Visible = counts;
}

void rename::Form14::Command8_Click() { Command8.Caption = Command8.Caption.get() == "+" ? "-" : "+"; }

void rename::Form14::Check2_Click() {
  const bool newBase = Check2.Value != 0;
  Label3.Caption = newBase ? "Change FileName:" : "Exp. Filename:";
  Text2.Text = newBase ? "" : Text2.Text.get();
  Text3.Text = newBase ? Text3.Text.get() : "";
  Text2.Enabled = !newBase;
  Command8.Enabled = !newBase;
  Text3.Enabled = newBase;
  showMask(maskOn());
}

void rename::Form14::readCounter() { counter_ = core::trimmed(Text5.Text.get()).empty() ? "0" : Text5.Text.get(); }

void rename::Form14::Text5_Change() {
  readCounter();
  if (isNumeric(counter_, program_.platform.regional)) return;
  counter_ = "0";
  Text5.Text = "0";
  program_.dialogs.alert("Input Not Numeric !");
}

void rename::Form14::showKept(std::size_t count, const std::string& first) {
  Label7.Caption = count == 0   ? std::string()
                   : count == 1 ? first
                                : std::to_string(count) + " Item(s) would keep their names.  " + first;
}

// --- The mask at work ----------------------------------------------------------------------------------------------

void rename::Form14::checkField(const FieldRule& rule, controls::TextBox& field, bool empties) {
  if (rule.allows(field.Text.get())) return;
  const std::string content = field.Text;
  if (empties) field.Text = "";
  Invalid = true;
  program_.dialogs.alert(std::string(rule.message) + content);
  field.SetFocus();
}

bool rename::Form14::readMask() {
  readCounter();
  Invalid = false;
  for (const auto check : {&Form14::CheckBaseChars, &Form14::CheckAddChars, &Form14::CheckExtChars}) {
    (this->*check)();
    if (Invalid) return false;
  }
  return true;
}

Mask rename::Form14::mask() const {
  const auto text = [](const controls::TextBox& field) { return std::string(core::trimmed(field.Text.get())); };
  Mask mask;
  mask.newBase = Check2.Value != 0;
  mask.base = text(Text3);
  mask.cuts = Command8.Caption.get() == "-";
  mask.text = text(Text2);
  mask.extension = text(Text4);
  if (Check3.Value != 0) mask.letters = Letters::Lower;
  if (Check1.Value != 0) mask.letters = Letters::Upper;
  return mask;
}

void rename::Form14::Stringsum(const std::string& name, bool isFile) {
  NewName = isFile ? maskedName(mask(), name, counter_, program_.platform.regional) : std::string();
}

}  // namespace varnholt::rename
