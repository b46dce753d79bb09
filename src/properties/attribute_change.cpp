#include "properties/attribute_change.hpp"

namespace varnholt::properties {
namespace {

using namespace platform::attribute;

// Exactly these values are a system file's: with others the bit does not protect it.
constexpr platform::Attributes SystemFile[] = {4, 7, 36, 38, 39};
// So many between two turns of the message loop.
constexpr std::size_t FilesOfACall = 256;

}  // namespace

AttributeChange::AttributeChange(panels::Desk& desk, Form18& dialog) : desk_(desk), Form18_(dialog) {
  Form18_.Command1.Click = [this] { Command1_Click(); };
}

void AttributeChange::multiAtribut_Click() {
  auto& form = desk_.form;
  if (!desk_.dispatcher.panelPreCheck()) return;
  desk_.selection.ViewClickCopy(*form.activePanel());
  form.setMode("AttributMode");
  if (form.filecollect.empty()) {
    desk_.selection.ClickPane();
    desk_.selection.nonselect();
  } else {
    open();
  }
  desk_.dispatcher.commandDone();
}

void AttributeChange::open() {
  auto& form = desk_.form;
  folder_ = form.activePanel()->path();
  tally_ = {.SelectedCount = form.filecollect.count()};
  notChanged_ = 0;
  desk_.dispatcher.RenameColor();
  Form18_.reset(tally_.SelectedCount);
  Form18_.ShowModal();
  desk_.selection.ResetAll();
  desk_.dispatcher.resetval();
  desk_.navigation.leaveVanished();
  desk_.listing.viewrefresh();
  desk_.listing.FocusView();
  if (notChanged_ > 0)
    desk_.program.dialogs.inform(std::to_string(notChanged_) + " of " + std::to_string(tally_.SelectedCount) +
                                 " Item(s) Not Changed !");
}

void AttributeChange::Command1_Click() {
  if (refused()) return;
  atribsettingsform18();
  Form18_.setRunning(true);
  desk_.pointer() = controls::pointer::Hourglass;
  run();
  desk_.pointer() = controls::pointer::Default;
  Form18_.setRunning(false);
  Form18_.Hide();
}

bool AttributeChange::refused() {
  const auto drive = desk_.program.drive(folder_.front());
  const bool ready = drive && drive->ready;
  if (ready && !drive->isDisc()) return false;
  desk_.program.dialogs.alert(ready ? "Cannot Change Attribute On CD-Rom/DVD-Rom !\rFunction Exits !"
                                    : "Cannot Delete, - Drive(s) Not Ready !\rFunction Exits !");
  return true;
}

void AttributeChange::atribsettingsform18() {
  Form18_.NewAttributes = (Form18_.Check2.Value ? ReadOnly : 0) | (Form18_.Check3.Value ? Hidden : 0) |
                          (Form18_.Check1.Value ? Archive : 0);
}

void AttributeChange::run() {
  tally_.ItemsDone = 0;
  while (!desk_.form.filecollect.empty() && !Form18_.StopFlag) {
    const std::vector<std::string> names = nextFiles();
    if (!names.empty()) change(names);
    fileops::pbar_beregning(desk_.form, tally_);
    desk_.program.loop.giveTurn();
  }
}

std::vector<std::string> AttributeChange::nextFiles() {
  auto& collected = desk_.form.filecollect;
  std::vector<std::string> names;
  while (!collected.empty() && names.size() < FilesOfACall) {
    core::Item item = collected.pop();
    if (!item.isFolder) names.push_back(std::move(item.path));
  }
  return names;
}

void AttributeChange::change(const std::vector<std::string>& names) {
  const auto results = desk_.files().setAttributesOf(folder_, names, Form18_.NewAttributes, SystemFile);
  std::string last;
  for (std::size_t at = 0; at < names.size(); ++at) {
    if (!results[at]) {
      ++notChanged_;
    } else if (*results[at]) {
      ++tally_.ItemsDone;
      last = names[at];
    }
  }
  showLine(last);
}

void AttributeChange::showLine(const std::string& name) {
  Form18_.Text2.Text = notChanged_ == 0 ? name : "(" + std::to_string(notChanged_) + " Not Changed !)  " + name;
}

}  // namespace varnholt::properties
