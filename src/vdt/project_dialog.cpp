#include "vdt/project_dialog.hpp"

#include "controls/dress.hpp"
#include "controls/placing.hpp"
#include "core/text_character.hpp"
#include "core/val_input_rule.hpp"

#include <utility>

namespace varnholt::vdt {
namespace {

constexpr const char* Empty = "Key in Valid File Name !.";
constexpr const char* NotValid = "FileName NOT Valid !";
constexpr const char* Extension = ".Pro";
// The longest name that the file systems of this world take.
constexpr std::size_t LongestName = 255;

// Where it stands from the main window.
constexpr controls::Twips FromLeft = 2000, FromTop = 3000;

}  // namespace

Form44::Form44(panels::Desk& desk, Projects& projects, PointerList& list)
    : Form(desk.program.loop, "Form44"), desk_(desk), projects_(projects), list_(list) {
  Caption = "VDT Project Manager";
  Label1.Caption = "Project Name:";
  Image1.ToolTipText = Image1.AccessibleName = std::string("A new project");
  Image2.ToolTipText = Image2.AccessibleName = std::string("A project that was stored");
  dress(Text1, "Project name", "Name of the new project, without file extension. Dbl. click to clear it");
  Combo1.AccessibleName = "Project to open";
  Combo1.ToolTipText = "The projects that were stored";
  dress(Command1, "Execute", "Open the project, or begin the new one");
  dress(Command2, "&Cancel", "Exits without any changes.");
  defaultButton = "Command1";
  cancelButton = "Command2";
  Load = [this] { Form_Load(); };
  Activate = [this] { Form_Activate(); };
  Combo1.Click = [this] { Combo1_Click(); };
  Text1.DblClick = [this] { Text1.Text = ""; };
  Text1.KeyDown = [this](controls::KeyEvent& event) {
    event.handled = event.code == controls::key::Enter;
    if (event.handled) Command1.SetFocus();
  };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { UnloadForm(); };
}

bool Form44::open(bool names) {
  names_ = names;
  executed_ = false;
  Text1.Visible = Image1.Visible = names;
  Combo1.Visible = Image2.Visible = !names;
  Label1.Caption = names ? "Project Name:" : "Open Project:";
  if (names) projects_.makeFolder();
  ShowModal();
  desk_.selection.ClickPane();
  desk_.listing.FocusView();
  return executed_;
}

void Form44::Form_Load() {
  controls::standBeside(*this, desk_.form, FromLeft, FromTop);
  if (const auto saved = projects_.VdtProjectSave(); !saved)
    desk_.program.dialogs.alert(projects_.notSaved(saved.error()));
  Text1.Text = "";
  Combo1.Clear();
  for (std::string& name : projects_.names())
    Combo1.AddItem(std::move(name));
  Combo1.choose(-1);
  Command1.Enabled = true;
}

void Form44::Form_Activate() {
  if (names_) {
    if (!focused()) Text1.SetFocus();
    return;
  }
  Command1.Enabled = !Combo1.Text->empty();
  Command1.Enabled ? Command1.SetFocus() : Combo1.SetFocus();
}

void Form44::Combo1_Click() {
  if (Combo1.Text->empty()) return;
  Command1.Enabled = true;
  Command1.SetFocus();
}

void Form44::Command1_Click() { names_ ? takeName() : takeChosen(); }

void Form44::takeChosen() {
  projects_.setCurrent(Combo1.Text);
  projects_.VdtProjectLoad();
  finish();
}

void Form44::takeName() {
  const std::string name(core::trimmed(Text1.Text.get()));
  if (name.empty() || name == Empty || name == NotValid) return Text1.prompt(Empty);
  const std::string project = name + Extension;
  const auto refused = core::firstRefusedCharacter(name);
  if (refused || project.size() > LongestName) {
    Text1.prompt(NotValid);
    if (refused) desk_.program.dialogs.alert(core::refusedCharacterText(*refused));
    return;
  }
  if (desk_.files().fileExists(projects_.path(project)) && !mayReplace(name)) return;
  projects_.setCurrent(project);
  list_.clear();
  finish();
}

bool Form44::mayReplace(const std::string& name) {
  return desk_.program.dialogs.AskRetry("Project \r" + name + ".Pro Already Exits !, - Overwrite ?");
}

void Form44::finish() {
  executed_ = true;
  if (projectChanged) projectChanged();
  UnloadForm();
}

}  // namespace varnholt::vdt
