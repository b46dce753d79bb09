#include "places/dynamic_presets.hpp"

#include "places/static_presets.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <vector>

namespace varnholt::places {

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
  Check2.Caption = "Sorting";
  Check2.ToolTipText = "Disable/Enable Sorting In View";
  Check1.Caption = "Record visited pairs";
  Check1.ToolTipText = "Disable/Enable Option";
  Command1.Caption = "&Open";
  Command1.ToolTipText = "Open Dynamic Preset";
  Command11.Caption = "C&lear";
  Command11.ToolTipText = "Empty the list";
  Command3.Caption = "&Cancel";
  Command3.ToolTipText = "Close without change";
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
  ListView1.setSortKey(0);
  ListView1.setSortOrder(controls::SortOrder::Ascending);
  ListView1.setSorted(on);
  showSortIcon(on ? 0 : -1);
}

void places::Form34::ListView1_ColumnClick(int number) {
  if (!ListView1.Sorted()) return;
  ListView1.setSortKey(number - 1);
  const bool ascending = ListView1.SortOrder() == controls::SortOrder::Ascending;
  ListView1.setSortOrder(ascending ? controls::SortOrder::Descending : controls::SortOrder::Ascending);
  showSortIcon(number - 1);
}

void places::Form34::showSortIcon(int column) {
  auto headers = ListView1.ColumnHeaders.get();
  const bool ascending = ListView1.SortOrder() == controls::SortOrder::Ascending;
  for (int at = 0; at < static_cast<int>(headers.size()); ++at)
    headers[static_cast<std::size_t>(at)].Icon = at != column ? 0 : ascending ? SortedUpIcon : SortedDownIcon;
  ListView1.ColumnHeaders = std::move(headers);
}

}  // namespace varnholt::places
