#include "core/message_dialogs.hpp"

#include "controls/dress.hpp"

namespace varnholt::core {

// --- Form11 --------------------------------------------------------------------------------------------------------

core::Form11::Form11(controls::MessageLoop& loop) : Form(loop, "Form11") {
  Caption = "Alert !";
  dress(Command11, "&Execute", "Execute Operation");
  dress(Command1, "&Cancel", "Cancel Operation");
  dress(Command2, "&All", "Delete All Folders without Further Prompt !");
  Command2.Visible = false;
  defaultButton = "Command1";
  cancelButton = "Command1";
  Command11.Click = [this] { Command11_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
}

void core::Form11::finish(Answer answer) {
  AlertAnswer = answer;
  Hide();
}

void core::Form11::Command11_Click() {
  if (executed) executed();
  finish(Answer::Yes);
}

void core::Form11::Command1_Click() { finish(Answer::No); }

void core::Form11::Command2_Click() { finish(Answer::All); }

// --- Form12 --------------------------------------------------------------------------------------------------------

core::Form12::Form12(controls::MessageLoop& loop) : Form(loop, "Form12") {
  Caption = "Alert";
  dress(Command11, "&Ok", "Close");
  defaultButton = "Command11";
  cancelButton = "Command11";
  Command11.Click = [this] { Command11_Click(); };
  Unload = [this] {
    for (const auto& listener : closed)
      listener();
  };
}

void core::Form12::Command11_Click() { UnloadForm(); }

// --- Form13 --------------------------------------------------------------------------------------------------------

core::Form13::Form13(controls::MessageLoop& loop) : Form(loop, "Form13") {
  Caption = "Information !";
  Click = [this] { UnloadForm(); };
  KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Esc && event.code != controls::key::Enter) return;
    event.handled = true;
    UnloadForm();
  };
}

// --- MessageDialogs ------------------------------------------------------------------------------------------------

MessageDialogs::MessageDialogs(controls::MessageLoop& loop, controls::Timer& Timer2)
    : Form11(loop), Form12(loop), Form13(loop), loop_(loop), Timer2_(Timer2) {
  Timer2_.Interval = 2000;
  Timer2_.Tick = [this] { Timer2_Timer(); };
  Form13.Unload = [this] { Timer2_.Enabled = false; };
}

Answer MessageDialogs::ask(const std::string& text, const std::string& caption) {
  Form11.Caption = caption;
  Form11.AlertAnswer = Answer::None;
  Form11.Label1.Caption = text;
  Form11.ShowModal();
  return Form11.AlertAnswer;
}

bool MessageDialogs::AskRetry(const std::string& text, const std::string& caption) {
  return ask(text, caption) == Answer::Yes;
}

void MessageDialogs::alert(const std::string& text) {
  Form12.Label1.Caption = text + "\r";
  Form12.ShowModal();
}

void MessageDialogs::inform(const std::string& text, const std::string& caption) {
  Form13.Caption = caption;
  Form13.Label1.Caption = text;
  Timer2_.Enabled = true;
  Form13.ShowModal();
}

void MessageDialogs::critical(const std::string& text) {
  loop_.show({"Alert !", text, controls::MessageIcon::Critical, controls::MessageButtons::Ok});
}

void MessageDialogs::Timer2_Timer() {
  Timer2_.Enabled = false;
  Form13.UnloadForm();
}

}  // namespace varnholt::core
