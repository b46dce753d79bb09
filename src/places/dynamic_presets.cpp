#include "places/dynamic_presets.hpp"

#include "controls/dress.hpp"
#include "controls/header_sort.hpp"
#include "places/static_presets.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <vector>

namespace varnholt::places {
namespace {

constexpr controls::SortIcons HeaderIcons{SortedUpIcon, SortedDownIcon, 0};

}  // namespace

namespace paths = platform::paths;

places::Form34::Form34(panels::Desk& desk) : Form(desk.program.loop, "Form34"), desk_(desk) {
  Caption = "Dynamic Preset View";
  setTexts();
  ListView1.MultiSelect = false;
  ListView1.ImageList = presetIcons();
  ListView1.ColumnHeaders =
      std::vector<controls::ColumnHeader>{{"Path left View:", 4200, 0, false}, {"Path Right View:", 4200, 0, false}};
  ListView1.setSorted(false);
  Check1.Value = 1;
  defaultButton = "Command1";
  cancelButton = "Command3";
  Activate = [this] { Form_Activate(); };
  ListView1.rowToolTip = [this](controls::ListItem row) {
    return row.id() < tips_.size() ? tips_[row.id()] : std::string();
  };
  ListView1.ItemClick = [this](controls::ListItem) { showFocused(); };
  ListView1.DblClick = [this] { Command1_Click(); };
  ListView1.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter) return;
    event.handled = true;
    Command1_Click();
  };
  ListView1.ColumnClick = [this](int number) { ListView1_ColumnClick(number); };
  Check2.Click = [this] { Check2_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Command11.Click = [this] { Command11_Click(); };
  Command3.Click = [this] { Hide(); };
}

void places::Form34::setTexts() {
  Label1.AccessibleName = "Path of the left view";
  Label2.AccessibleName = "Path of the right view";
  ListView1.AccessibleName = "Visited pairs of folders";
  ListView1.ToolTipText = "Dbl Click on Item to open the pair, or press Enter key.";
  dress(Check2, "Sorting", "Disable/Enable Sorting In View");
  dress(Check1, "Record visited pairs", "Disable/Enable Option");
  dress(Command1, "&Open", "Open Dynamic Preset");
  dress(Command11, "C&lear", "Empty the list");
  dress(Command3, "&Cancel", "Close without change");
}

// --- The list ------------------------------------------------------------------------------------------------------

void places::Form34::DynPresetAdd() {
  if (!Check1.Value) return;
  const std::string left = paths::withoutClosing(desk_.form.Panel1.path());
  const std::string right = paths::withoutClosing(desk_.form.Panel2.path());
  const std::string pair = platform::foldCase(left + right);
  for (std::uint32_t row = 0; row < ListView1.count(); ++row)
    if (platform::foldCase(ListView1.cell(row, 0) + ListView1.cell(row, 1)) == pair) return;
  ListView1.add(left, ValidIcon).setSubItem(1, right);
}

void places::Form34::Form_Activate() {
  std::vector<FolderPair> pairs;
  for (std::uint32_t id = 0; id < ListView1.count(); ++id)
    pairs.push_back({controls::ListItem(ListView1, id).Text(), controls::ListItem(ListView1, id).SubItems(1)});
  const auto focused = ListView1.SelectedItem();
  const std::uint32_t focusedId = focused ? focused->id() : 0;
  ListView1.clear();
  tips_.clear();
  for (const FolderPair& pair : pairs) {
    controls::ListItem row = ListView1.add(pair.left, ValidIcon);
    row.setSubItem(1, pair.right);
    tips_.push_back(markPair(desk_, row, pair));
  }
  if (!pairs.empty()) {
    controls::ListItem item(ListView1, focusedId);
    item.setSelected(true);
    ListView1.focusRow(item.row());
  }
  showFocused();
}

void places::Form34::showFocused() {
  const auto item = ListView1.SelectedItem();
  Label1.Caption = item ? item->Text() : "";
  Label2.Caption = item ? item->SubItems(1) : "";
}

void places::Form34::Command11_Click() {
  ListView1.clear();
  tips_.clear();
  showFocused();
}

void places::Form34::Command1_Click() {
  const auto item = ListView1.SelectedItem();
  if (!item) return;
  const FolderPair pair{item->Text(), item->SubItems(1)};
  if (asOneMove([&] { return goToPair(desk_, pair); })) ListView1.SetFocus();
}

// --- Sorting -------------------------------------------------------------------------------------------------------

void places::Form34::Check2_Click() {
  const bool on = Check2.Value != 0;
  controls::sortShown(ListView1, on ? 0 : -1, 0, false, HeaderIcons);
  ListView1.setSorted(on);
}

void places::Form34::ListView1_ColumnClick(int number) {
  if (ListView1.Sorted()) controls::turnByHeader(ListView1, number - 1, number - 1, HeaderIcons);
}

}  // namespace varnholt::places
