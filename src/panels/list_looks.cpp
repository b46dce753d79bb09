#include "panels/list_looks.hpp"

#include "core/program_files.hpp"

namespace varnholt::panels {
namespace {

/// A colour set of the lists: its menu entry and its line image.
struct ColorSet {
  const char* menu;
  std::string_view image;
};
constexpr ColorSet Sets[] = {
    {"BlueBlack", core::program_file::Line34},
    {"BrownBlack", core::program_file::Line34db},
    {"GrayBlack", core::program_file::Line34dg},
};
constexpr int Tile = 5;

}  // namespace

std::string ListLooks::lineImage(int number) const {
  return core::program_file::path(program_.platform, Sets[number].image);
}

bool ListLooks::allLineImagesExist() const {
  for (int number = 0; number < 3; ++number)
    if (!program_.files().fileExists(lineImage(number))) return false;
  return true;
}

void ListLooks::takeGrounds(controls::Color active, controls::Color inactive) {
  active_.activeColor = active;
  active_.inactiveColor = inactive;
  form_.ListView3.BackColor = inactive;
  apply();
}

void ListLooks::takeSet(int number) {
  if (program_.files().fileExists(lineImage(number))) linePicture_ = lineImage(number);
  program_.init.GetColorMenu = std::to_string(number);
}

void ListLooks::applyInitState() {
  const std::string wanted = program_.init.GetColorMenu;
  const int number = wanted == "1" ? 1 : wanted == "2" ? 2 : 0;
  if (program_.files().fileExists(lineImage(number))) form_.Menu[Sets[number].menu].Checked = true;
  takeSet(number);
  if (!allLineImagesExist()) {
    program_.dialogs.inform("\rImage File Line34*.Jpg missing In App. Folder !");
    if (program_.init.MainViewState == "1" || program_.init.MainViewState == "3") program_.init.MainViewState = "2";
  }
  form_.Menu["ShiftColors"].Checked = program_.init.MainViewState == "1" || program_.init.MainViewState == "3";
  form_.Menu["GridLines"].Checked = program_.init.MainViewState == "2" || program_.init.MainViewState == "3";
  form_.Menu["ShiftColorOther"].Checked = program_.init.GetColorState == "1";
  apply();
}

void ListLooks::apply() {
  const bool shift = form_.Menu["ShiftColors"].Checked;
  const auto text = static_cast<controls::Color>(std::stoul(colors.text));
  for (controls::ListView* list : {&form_.ListView1, &form_.ListView2, &form_.ListView3}) {
    list->ForeColor = text;
    list->GridLines = form_.Menu["GridLines"].Checked.get();
    list->Picture = shift ? linePicture_ : std::string();
    list->PictureAlignment = shift ? Tile : 0;
  }
  for (Panel* panel : {&form_.Panel1, &form_.Panel2})
    panel->list.BackColor = panel == form_.activePanel() ? active_.activeColor : active_.inactiveColor;
  applyOther();
  colorMenuState();
}

void ListLooks::colorMenuState() {
  auto& menu = form_.Menu;
  if (!menu.has("ColorMenu")) return;
  const bool shifted = menu["ShiftColors"].Checked || menu["ShiftColorOther"].Checked;
  menu["ColorMenu"].Enabled = shifted;
  menu["ColorMenu"].ToolTipText =
      shifted ? "Colors of the shifted lines" : "Colors of shifted lines: switch Shift Colors on first (Options)";
}

void ListLooks::GridLines_Click() {
  form_.Menu["GridLines"].Checked = !form_.Menu["GridLines"].Checked;
  apply();
}

void ListLooks::ShiftColors_Click() {
  if (!allLineImagesExist()) {
    program_.dialogs.alert("Image File Line34*.Jpg missing In App. Folder !");
    return;
  }
  form_.Menu["ShiftColors"].Checked = !form_.Menu["ShiftColors"].Checked;
  apply();
}

void ListLooks::ShiftColorOther_Click() {
  if (!program_.files().fileExists(lineImage(0))) {
    program_.dialogs.alert("Shift Image File missing In App. Folder !");
    return;
  }
  auto& entry = form_.Menu["ShiftColorOther"];
  entry.Checked = !entry.Checked;
  program_.init.GetColorState = entry.Checked ? "1" : "0";
  colorMenuState();
  applyOther();
}

void ListLooks::chooseSet(int number) {
  auto& entry = form_.Menu[Sets[number].menu];
  entry.Checked = !entry.Checked;
  if (!entry.Checked) return;
  if (program_.files().fileExists(lineImage(number))) {
    takeSet(number);
  } else {
    program_.dialogs.alert("File Line34.Jpg missing In App. Folder !");
  }
  for (const auto& set : Sets)
    if (set.menu != Sets[number].menu) form_.Menu[set.menu].Checked = false;
  apply();
}

void ListLooks::ShiftColorOtherM(controls::ListView& list, const std::string& picture) {
  const bool shift = form_.Menu["ShiftColorOther"].Checked;
  list.Picture = shift ? picture : std::string();
  list.PictureAlignment = shift ? Tile : 0;
}

void ListLooks::addDialog(const controls::Form& dialog) {
  for (controls::Control* control : dialog.controls())
    if (control->kind() == controls::Kind::ListView) otherLists_.push_back(static_cast<controls::ListView*>(control));
}

// A dialog that is shut takes it over when it opens, one that is open is drawn anew.
void ListLooks::applyOther() {
  for (controls::ListView* list : otherLists_)
    ShiftColorOtherM(*list, linePicture_);
}

}  // namespace varnholt::panels
