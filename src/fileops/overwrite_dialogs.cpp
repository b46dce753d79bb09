#include "fileops/overwrite_dialogs.hpp"

#include "controls/dress.hpp"
#include <algorithm>
#include <string_view>

namespace varnholt::fileops {
namespace {

struct AttributeText {
  std::uint32_t value;
  std::string_view text;
};

// The rest of the values passes without a question.
constexpr AttributeText AttributeTexts[] = {
    {1, "Readonly"},
    {33, "Readonly"},
    {2, "Hidden"},
    {34, "Hidden"},
    {4, "System File"},
    {36, "System File"},
    {3, "Readonly and Hidden"},
    {35, "Readonly and Hidden"},
    {7, "Readonly,Hidden and SystemFile"},
    {39, "Readonly,Hidden and SystemFile"},
    {38, "Archive,Hidden and SystemFile"},
    {2081, "Compressed File.. Cannot Continue !"},
};

}  // namespace

// --- Form7 ---------------------------------------------------------------------------------------------------------

fileops::Form7::Form7(controls::MessageLoop& loop) : Form(loop, "Form7") {
  Caption = "Overwrite Warning !";
  Label1.AccessibleName = "Name of the source";
  Label2.AccessibleName = "Date, size and version of the source";
  Label3.AccessibleName = "Name of the target";
  Label4.AccessibleName = "Date, size and version of the target";
  Label6.AccessibleName = "What the rename does to both files";
  Label6.Visible = false;
  Label5.Caption = "With Last Modified Attribute.";
  dress(Command11, "Over&Write", "OverWrite existing file");
  dress(Command1, "&Skip Current", "Only Current File is Skipped !");
  dress(Command2, "&Cancel", "Cancel Operation");
  dress(Command3, "O.W. All &Older", "OverWrites Only All Older Files (Last Modified) With Version Check!");
  dress(Command6, "O.W. &All", "OverWrites All Files With Version Check !");
  dress(Command4, "&Rename Target", "Rename Target File");
  defaultButton = "Command1";
  cancelButton = "Command2";
  Command11.Click = [this] {
    Label5.Visible = false;
    finish(Overwrite::ThisOne);
  };
  Command1.Click = [this] { finish(Overwrite::Skip); };
  Command2.Click = [this] { finish(Overwrite::Cancel); };
  Command3.Click = [this] {
    if (answeredForAll) answeredForAll();
    finish(Overwrite::AllOlder);
  };
  Command6.Click = [this] {
    if (answeredForAll) answeredForAll();
    finish(Overwrite::All);
  };
  Command4.Click = [this] { finish(Overwrite::RenameTarget); };
  // The close box says no more than Cancel does.
  QueryUnload = [this](bool& keep) {
    keep = true;
    finish(Overwrite::Cancel);
  };
}

void fileops::Form7::finish(Overwrite answer) {
  OverwriteAnswer = answer;
  Hide();
}

// --- Form10 --------------------------------------------------------------------------------------------------------

fileops::Form10::Form10(controls::MessageLoop& loop) : Form(loop, "Form10") {
  Caption = "Warning";
  Label1.AccessibleName = "Question";
  dress(Command11, "&Execute", "Execute This Item !");
  dress(Command1, "Execute &All", "Executes all Items without further prompt !");
  dress(Command2, "&Skip", "Skip Current Item.");
  dress(Command3, "&Cancel", "Cancel All Operations");
  defaultButton = "Command2";
  cancelButton = "Command3";
  Command11.Click = [this] { finish(AttributeAnswer::ThisItem); };
  Command1.Click = [this] { finish(AttributeAnswer::All); };
  Command2.Click = [this] { finish(AttributeAnswer::Skip); };
  Command3.Click = [this] { finish(AttributeAnswer::CancelAll); };
  QueryUnload = [this](bool& keep) {
    keep = true;
    finish(AttributeAnswer::CancelAll);
  };
}

void fileops::Form10::finish(AttributeAnswer answer) {
  AttrAnswer = answer;
  Hide();
}

void fileops::Form10::atribtrap(std::uint32_t attributes, const std::string& name) {
  const auto* found = std::ranges::find(AttributeTexts, attributes, &AttributeText::value);
  if (found == std::end(AttributeTexts)) return;
  Label1.Caption =
      "Current File:  " + name + "\r Are marked:  " + std::string(found->text) + "\rPlease use Command Options !";
  ShowModal();
}

}  // namespace varnholt::fileops
