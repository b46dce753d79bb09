#include "fileops/name_dialog.hpp"

#include "controls/dress.hpp"
#include "controls/placing.hpp"
#include "core/text_character.hpp"
#include "core/val_input_rule.hpp"

#include <utility>

namespace varnholt::fileops {

NameForm::NameForm(controls::MessageLoop& loop, std::string name) : Form(loop, std::move(name)) {
  Command11.Caption = "&Ok";
  dress(Command1, "&Reset", "Resets input to blank");
  dress(Command2, "&Cancel", "Exits without any changes.");
  defaultButton = "Command11";
  cancelButton = "Command2";
  Command1.Click = [this] {
    Text1.Text = "";
    Text1.SetFocus();
  };
  Command2.Click = [this] { UnloadForm(); };
}

void NameForm::placeBeside(const controls::Form& window, Away away) {
  controls::standBeside(*this, window, away.right, away.down);
}

fileops::Form32::Form32(core::MessageDialogs& dialogs) : NameForm(dialogs.loop(), "Form32"), dialogs_(dialogs) {
  Caption = "Make File";
  dress(Text1, "File name", "Key in Valit Filename With File Extension.");
  Command11.ToolTipText = "Take the name as keyed";
  Command11.Click = [this] { Command11_Click(); };
}

std::optional<std::string> fileops::Form32::ask(NameQuestion question) {
  question_ = std::move(question);
  name_.reset();
  Caption = question_.caption;
  Text1.ToolTipText = question_.toolTip;
  Image1.ToolTipText = question_.pictureTip;
  Image1.IconName = question_.icon;
  Text1.Text = question_.preset;
  question_.beside ? placeBeside(*question_.beside, question_.away) : controls::standAsDesigned(*this);
  ShowModal();
  return name_;
}

void fileops::Form32::Command11_Click() {
  // A name that was left as it stands may begin or end with blanks.
  const std::string& keyed = Text1.Text.get();
  const std::string name(keyed == question_.preset ? keyed : core::trimmed(keyed));
  if (name.empty() || name == question_.emptyAnswer) return Text1.prompt(question_.emptyAnswer);
  if (const auto refused = core::firstRefusedCharacter(name)) {
    dialogs_.alert(core::refusedCharacterText(*refused));
    if (!question_.refusedCaption.empty()) Caption = question_.refusedCaption;
    Text1.SetFocus();
    return;
  }
  name_ = name;
  UnloadForm();
}

}  // namespace varnholt::fileops
