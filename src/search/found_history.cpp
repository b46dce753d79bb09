#include "search/found_history.hpp"

#include "controls/dress.hpp"
#include "controls/header_sort.hpp"
#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "platform/paths.hpp"

namespace varnholt::search {
namespace {

namespace paths = platform::paths;

constexpr std::string_view FolderMark = "|Fold|";
constexpr int FolderIcon = 1, FileIcon = 2, SortedUpIcon = 3, SortedDownIcon = 4;
constexpr std::size_t ShownLetters = 80;

}  // namespace

std::string endOf(const std::string& text, std::size_t letters) {
  if (core::characterCount(text) <= letters) return text;
  return "... " + std::string(core::lastCharacters(text, letters));
}

// --- The history ---------------------------------------------------------------------------------------------------

void FoundHistory::FoundStore(const core::Item& item) {
  items_.add((item.isFolder ? std::string(FolderMark) : std::string()) + item.path);
}

std::vector<core::Item> FoundHistory::items() const {
  std::vector<core::Item> items;
  for (auto entry = items_.entries().rbegin(); entry != items_.entries().rend(); ++entry) {
    std::string_view line = *entry;
    const bool isFolder = line.starts_with(FolderMark);
    if (isFolder) line.remove_prefix(FolderMark.size());
    if (!paths::driveOf(line).empty()) items.push_back({std::string(line), isFolder});
  }
  return items;
}

void FoundHistory::load(const core::Program& program) { items_.assign(file_.load(program)); }

platform::Result<void> FoundHistory::store(const core::Program& program) {
  return file_.store(program, items_.entries(), items_.limit());
}

// --- Form48 --------------------------------------------------------------------------------------------------------

search::Form48::Form48(panels::Desk& desk, FoundHistory& history)
    : Form(desk.program.loop, "Form48"), desk_(desk), history_(history) {
  Caption = "Found History";
  ListView1.MultiSelect = false;
  ListView1.ImageList = std::map<int, std::string>{
      {FolderIcon, "folder"}, {FileIcon, "file"}, {SortedUpIcon, "sort-up"}, {SortedDownIcon, "sort-down"}};
  ListView1.ColumnHeaders = std::vector<controls::ColumnHeader>{{"Path:", 7200, 0, false}, {"Type:", 1500, 0, false}};
  ListView1.setSorted(false);
  defaultButton = "Command2";
  cancelButton = "Command3";
  setTexts();
  bind();
}

void search::Form48::setTexts() {
  Image1.AccessibleName = Image1.ToolTipText = "Found History In this Program Session.";
  ListView1.AccessibleName = "Items that were found";
  ListView1.ToolTipText = "Dbl Click on Item to go there, or press Enter key.";
  dress(Command2, "GoTo Selected Item", "Go to the folder of the selected item, and select it there");
  dress(Command1, "Reset View", "Empties the list and the history");
  dress(Command3, "&Cancel", "Cancel Operation");
}

void search::Form48::bind() {
  Load = [this] { Form_Load(); };
  ListView1.ItemClick = [this](controls::ListItem) { ListView1_Click(); };
  ListView1.KeySelect = [this](bool) { ListView1_Click(); };
  ListView1.DblClick = [this] { Command2_Click(); };
  ListView1.ColumnClick = [this](int number) {
    controls::sortByHeader(ListView1, number - 1, number - 1, {SortedUpIcon, SortedDownIcon, 0});
  };
  ListView1.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter) return;
    event.handled = true;
    Command2_Click();
  };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { UnloadForm(); };
}

void search::Form48::Form_Load() {
  items_ = history_.items();
  ListView1.clear();
  for (const core::Item& item : items_)
    ListView1.add(item.path, item.isFolder ? FolderIcon : FileIcon).setSubItem(1, item.isFolder ? "<Folder>" : "");
  if (!items_.empty()) ListView1.focusRow(0);
  Command1.Enabled = Command2.Enabled = !items_.empty();
  StatusBar1.setPanel(1, std::to_string(items_.size()) + " Item(s) In View");
  ListView1.SetFocus();
}

void search::Form48::ListView1_Click() {
  if (const auto row = ListView1.SelectedItem()) StatusBar1.setPanel(1, endOf(items_[row->id()].path, ShownLetters));
}

void search::Form48::Command1_Click() {
  history_.clear();
  Form_Load();
}

void search::Form48::Command2_Click() {
  const auto row = ListView1.SelectedItem();
  panels::Panel* panel = desk_.form.activePanel();
  if (!row || !panel) return;
  const core::Item item = items_[row->id()];
  const auto folder = desk_.files().resolve(paths::parent(item.path));
  if (!folder || !desk_.navigation.goTo(*panel, *folder)) {
    desk_.program.dialogs.alert("File Path NOT Valid !");
    return;
  }
  const std::string_view name = paths::fileName(item.path);
  const auto found =
      panel->findByCompareText(item.isFolder ? core::rowCompareText(core::folderRowText(name), " ")
                                             : core::rowCompareText(paths::baseName(name), paths::extension(name)));
  if (found) desk_.navigation.selectRow(*panel, *found);
  desk_.selection.ClickPane();
  UnloadForm();
}

}  // namespace varnholt::search
