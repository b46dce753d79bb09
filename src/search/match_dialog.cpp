#include "search/match_dialog.hpp"

#include "controls/dress.hpp"

#include <string>

namespace varnholt::search {
namespace {

constexpr const char* Title = "Match Found !";

}  // namespace

search::Form37::Form37(controls::MessageLoop& loop) : Form(loop, "Form37") {
  Caption = Title;
  dress(Text1, "Folder that was found", "Folder that was found");
  Text1.Locked = true;
  dress(Command1, "&Accept", "Accept Folder And Go There.");
  dress(Command2, "&Cancel", "Cancel this menu only.");
  dress(Command3, "C&ontinue", "Continue Scanning For Folders");
  bind(Command1, Answer::Accept, ", - Accept");
  bind(Command2, Answer::Cancel, ", - Cancel");
  bind(Command3, Answer::Continue, ", - Continue");
  Load = [this] {
    answer = Answer::Cancel;
    Command1.SetFocus();
  };
  defaultButton = "Command1";
  cancelButton = "Command2";
}

void search::Form37::bind(controls::Button& button, Answer given, const char* title) {
  button.Click = [this, given] {
    answer = given;
    UnloadForm();
  };
  button.GotFocus = [this, title] { Caption = std::string(Title) + title; };
}

}  // namespace varnholt::search
