#include "fileops/operation_dialogs.hpp"

#include "controls/dress.hpp"
#include "panels/command_table.hpp"

#include <utility>

namespace varnholt::fileops {

ProgressForm::ProgressForm(controls::MessageLoop& loop, OperationWords given)
    : Form(loop, given.form), words(std::move(given)) {
  Caption = words.caption;
  Label5.AccessibleName = "Progress in words";
  QueryUnload = [this](bool& keep) {
    if (!running_) return;
    keep = true;
    StopFlag = true;
  };
  hideProgress();
}

void ProgressForm::showCount(std::size_t number, std::size_t of) {
  Caption = words.caption + ", - Processing... " + std::to_string(number) + " => " + std::to_string(of) + " Item(s)";
}

void ProgressForm::setRunning(bool running) {
  running_ = running;
  stopButton().Enabled = running;
  rest(running);
}

void ProgressForm::showProgress(const std::string& line) {
  ProgressBar1.Visible = true;
  Label5.Caption = line;
  Label5.Visible = true;
}

void ProgressForm::hideProgress() {
  ProgressBar1.Visible = false;
  ProgressBar1.Value = 0;
  Label5.Caption = "";
  Label5.Visible = false;
}

OperationForm::OperationForm(controls::MessageLoop& loop, OperationWords given)
    : ProgressForm(loop, std::move(given)),
      item(words.itemIsText2 ? Text2 : Text1),
      summary(words.itemIsText2 ? Text1 : Text2) {
  for (controls::TextBox* box : {&Text1, &Text2, &Text3})
    box->Locked = true;
  item.ToolTipText = "The item in hand";
  summary.ToolTipText = "What is selected";
  Text3.ToolTipText = "The folder in question";
  Label4.AccessibleName = "Size of what is selected";
  dress(Command11, words.button, words.buttonTip);
  dress(Command1, "&Stop", "Stop Operation !");
  Command1.Enabled = false;
  dress(Command2, "&Cancel", "Cancel Operation");
  dress(Command3, "Si&ze", "Calculates size of selected item(s)");
  defaultButton = "Command11";
  cancelButton = "Command2";
  Command1.Click = [this] { StopFlag = true; };
}

void OperationForm::rest(bool running) {
  for (controls::Button* button : {&Command11, &Command2, &Command3})
    button->Enabled = !running;
}

TargetForm::TargetForm(controls::MessageLoop& loop, OperationWords words) : OperationForm(loop, std::move(words)) {
  dress(Command4, "&Browse", "Browse to folder using treeview");
  Command5.Enabled = false;
}

fileops::Form3::Form3(controls::MessageLoop& loop)
    : TargetForm(loop, {"Form3", "Copy", "Copy Item(s)", "C&opy", "Copies selected item(s)"}) {
  dress(Command5, "Copy &As", "Copy File As New Name.");
}

fileops::Form5::Form5(controls::MessageLoop& loop)
    : TargetForm(loop, {"Form5", "Move", "Move Item(s)", "&Move", "Moves selected item(s)"}) {
  dress(Command5, "Move &As", "Move Item as New Name.");
}

fileops::Form4::Form4(controls::MessageLoop& loop)
    : OperationForm(loop, {"Form4", "Delete", "Delete Item(s)", "&Delete", "Deletes selected item(s)", true}) {}

}  // namespace varnholt::fileops
