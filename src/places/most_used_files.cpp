#include "places/most_used_files.hpp"

#include "controls/dress.hpp"
#include "controls/header_sort.hpp"
#include "core/format.hpp"

#include <algorithm>
#include <unordered_set>

namespace varnholt::places {
namespace {

constexpr int FileIcon = 1, SortedUpIcon = 2, SortedDownIcon = 3;

}  // namespace

places::Form40::Form40(panels::Desk& desk) : Form(desk.program.loop, "Form40"), desk_(desk) {
  Caption = "Most Used Files (Stores 100)";
  ListView1.ImageList =
      std::map<int, std::string>{{FileIcon, "file"}, {SortedUpIcon, "sort-up"}, {SortedDownIcon, "sort-down"}};
  ListView1.ColumnHeaders = std::vector<controls::ColumnHeader>{
      {"Hits:", 1200, SortedDownIcon, false}, {"Name:", 3300, 0, false}, {"Path:", 5100, 0, false}};
  ListView1.setSortKey(0);
  ListView1.setSortOrder(controls::SortOrder::Descending);
  ListView1.setSorted(true);
  defaultButton = "Command11";
  cancelButton = "Command2";
  setTexts();
  bind();
}

void places::Form40::setTexts() {
  ListView1.AccessibleName = "Most used files";
  ListView1.ToolTipText = "Dbl Click on Item to open the file, or press Enter key.";
  Label1.Caption = "When  More Than 100 Entries !, Oldest Accessed Files Will Be Removed";
  dress(Command11, "&Open", "Open Selected Item");
  dress(Command6, "&Go To Location !", "Go to selected file location");
  dress(Command3, "&Delete", "Deletes Selected Item(s) In List.");
  dress(Command2, "&Cancel", "Cancel Operation");
}

void places::Form40::bind() {
  Load = [this] {
    ListView1.selectNone();
    ListView1.SetFocus();
  };
  Activate = [this] { Form_Activate(); };
  ListView1.ItemClick = [this](controls::ListItem) { ListView1_Click(); };
  ListView1.KeySelect = [this](bool) { ListView1_Click(); };
  ListView1.DblClick = [this] { Command11_Click(); };
  ListView1.ColumnClick = [this](int number) {
    controls::sortByHeader(ListView1, number - 1, number - 1, {SortedUpIcon, SortedDownIcon, 0});
  };
  ListView1.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter && event.code != controls::key::Delete) return;
    event.handled = true;
    event.code == controls::key::Enter ? Command11_Click() : Command3_Click();
  };
  Command3.Click = [this] { Command3_Click(); };
  Command6.Click = [this] { Command6_Click(); };
  Command11.Click = [this] { Command11_Click(); };
  Command2.Click = [this] { UnloadForm(); };
}

// --- The list ------------------------------------------------------------------------------------------------------

void places::Form40::Form_Activate() { show(); }

void places::Form40::show() {
  const std::string focused = pathInFocus();
  std::unordered_set<std::string> selected;
  for (const std::uint32_t id : ListView1.selectedIds())
    selected.insert(paths_[id]);
  ListView1.clear();
  paths_.clear();
  std::optional<std::uint32_t> focusedId;
  for (const auto& entry : desk_.mostUsed.entries) {
    auto row = ListView1.add(core::format("000000", entry.hits, desk_.program.platform.regional), FileIcon);
    row.setSubItem(1, entry.name);
    row.setSubItem(2, entry.folder);
    paths_.push_back(entry.path());
    if (selected.contains(paths_.back())) row.setSelected(true);
    if (paths_.back() == focused) focusedId = row.id();
  }
  if (ListView1.count() > 0) ListView1.focusRow(focusedId ? ListView1.rowOf(*focusedId) : 0);
  StatusBar1.setPanel(1, "Entries = " + std::to_string(ListView1.count()));
  for (controls::Button* button : {&Command11, &Command6, &Command3})
    button->Enabled = ListView1.count() > 0;
}

std::string places::Form40::pathInFocus() {
  const auto row = ListView1.SelectedItem();
  return row ? paths_[row->id()] : std::string();
}

std::optional<std::string> places::Form40::fileInFocus() {
  const auto file = desk_.files().resolve(pathInFocus());
  if (!file || !desk_.files().fileExists(*file)) return {};
  return *file;
}

void places::Form40::ListView1_Click() {
  if (pathInFocus().empty()) return;
  StatusBar1.setPanel(1, fileInFocus() ? "Entries = " + std::to_string(ListView1.count()) : "File Do Not Exist !");
}

// --- Commands ------------------------------------------------------------------------------------------------------

void places::Form40::Command3_Click() {
  std::unordered_set<std::string> going;
  for (const std::uint32_t id : ListView1.selectedIds())
    going.insert(paths_[id]);
  if (going.empty()) return;
  const std::uint32_t row = ListView1.focusedRow().value_or(0);
  std::erase_if(desk_.mostUsed.entries, [&](const auto& entry) { return going.contains(entry.path()); });
  show();
  if (ListView1.count() > 0) ListView1.focusRow(std::min(row, ListView1.count() - 1));
}

void places::Form40::Command6_Click() {
  const auto file = fileInFocus();
  if (file && desk_.navigation.GoToDirection(*file))
    UnloadForm();
  else
    desk_.program.dialogs.alert("File Path NOT Valid !");
}

void places::Form40::Command11_Click() {
  if (const auto file = fileInFocus())
    desk_.opener.open(*file);
  else
    desk_.program.dialogs.alert("Invalid Path, - File Do Not Exist !");
  show();
}

}  // namespace varnholt::places
