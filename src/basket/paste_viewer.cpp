#include "basket/paste_viewer.hpp"

#include "controls/dress.hpp"
#include "controls/header_sort.hpp"
#include "core/item_text.hpp"
#include "fileops/item_in_hand.hpp"
#include "platform/paths.hpp"

#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

namespace varnholt::basket {
namespace {

namespace paths = platform::paths;

constexpr const char* Title = "Paste Viewer";
constexpr int FolderIcon = 1, FileIcon = 2, SortedDownIcon = 3, SortedUpIcon = 4;

/// The basket as rows; the number of a row is its place in the order of adding.
class BasketRows : public controls::RowSource {
 public:
  explicit BasketRows(const std::deque<core::Item>& items) : items_(items) {}
  std::uint32_t rowCount() const override { return static_cast<std::uint32_t>(items_.size()); }
  std::string cell(std::uint32_t row, int column) const override {
    const core::Item& item = items_[row];
    if (column == 1) return item.path;
    return item.isFolder ? "<Folder>" : std::string(paths::fileName(item.path));
  }
  int icon(std::uint32_t row) const override { return items_[row].isFolder ? FolderIcon : FileIcon; }
  std::string seekText(std::uint32_t row) const override { return std::string(paths::fileName(items_[row].path)); }

 private:
  std::deque<core::Item> items_;
};

}  // namespace

basket::Form38::Form38(panels::Desk& desk, PasteCollection& collection)
    : Form(desk.program.loop, "Form38"), desk_(desk), collection_(collection), files_(desk.program) {
  Caption = Title;
  ListView1.ImageList = std::map<int, std::string>{
      {FolderIcon, "folder"}, {FileIcon, "file"}, {SortedDownIcon, "sort-down"}, {SortedUpIcon, "sort-up"}};
  ListView1.ColumnHeaders = std::vector<controls::ColumnHeader>{{"Name:", 3000, 0, false}, {"Path:", 6600, 0, false}};
  ListView1.setSorted(false);
  defaultButton = "Command4";
  cancelButton = "Command4";
  setTexts();
  bind();
  showMore(false);
}

void basket::Form38::setTexts() {
  dress(Command1, "Si&ze", "Get Total Size of Ctrl+C Collection");
  dress(Command2, "&Reset", "Resets View And Paste Collection.");
  dress(Command3, "&Delete", "Deletes Selected Item In View And Paste Collection.");
  dress(Command4, "&Cancel", "Close the Paste Viewer");
  dress(Command5, "S&ave Col.", "Save Current Collection.");
  dress(Command6, "&Go To", "Go To Selected File Location, Valid for Files Only !");
  dress(Command7, "D&elete Col.", "Deletes a Selection.");
  dress(Command8, "More", "Less/More Options !.");
  ListView1.AccessibleName = "Items in the basket";
  ListView1.ToolTipText = "Dbl. Click to Open item ! ";
  Label1.AccessibleName = "What was left out";
  Label2.Caption = "&Load Collection:";
  Label3.Caption = "Collection &Name:";
  Combo1.AccessibleName = "Collection file to load";
  Combo1.ToolTipText = "Click To Load Collection File !.";
  dress(Text2, "Name of the collection", "Key A Valid FileName for your Collection , Without FileExtension !");
  dress(Check1, "Add New Loads To Current Set.", "Enable/Disbale Adding Loads Option !.");
}

void basket::Form38::bind() {
  Load = [this] { Form_Load(); };
  QueryUnload = [this](bool& keep) {
    keep = work_.running();
    work_.stop();
  };
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
  Command6.Click = [this] { Command6_Click(); };
  Command7.Click = [this] { Command7_Click(); };
  Command8.Click = [this] { Command8_Click(); };
  Combo1.Click = [this] { Combo1_Click(); };
  ListView1.DblClick = [this] { ListView1_DblClick(); };
  ListView1.ColumnClick = [this](int number) { ListView1_ColumnClick(number); };
  ListView1.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter && event.code != controls::key::Delete) return;
    event.handled = true;
    event.code == controls::key::Enter ? ListView1_DblClick() : Command3_Click();
  };
  Text2.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter) return;
    event.handled = true;
    Command5_Click();
  };
}

// --- Showing -------------------------------------------------------------------------------------------------------

void basket::Form38::Form_Load() {
  Label1.Caption = "";
  showItems();
  showFiles();
  ListView1.SetFocus();
}

void basket::Form38::showItems() {
  ListView1.setRows(std::make_shared<BasketRows>(collection_.items()));
  if (ListView1.count() > 0) ListView1.focusRow(0);
  showCount();
}

void basket::Form38::showCount() {
  Caption = std::string(Title) + ", - " + std::to_string(collection_.count()) + " Item(s) In View";
}

void basket::Form38::showFiles() {
  Combo1.Clear();
  for (std::string& name : files_.names())
    Combo1.AddItem(std::move(name));
  Combo1.choose(-1);
}

void basket::Form38::showMore(bool more) {
  Command8.Caption = more ? "Less" : "More";
  for (controls::Control* control :
       std::initializer_list<controls::Control*>{&Combo1, &Text2, &Check1, &Command5, &Command7, &Label2, &Label3})
    control->Visible = more;
}

void basket::Form38::Command8_Click() { showMore(!Combo1.Visible); }

void basket::Form38::ListView1_ColumnClick(int number) {
  controls::sortByHeader(ListView1, number - 1, number - 1, {SortedUpIcon, SortedDownIcon, 0});
}

// --- The basket ----------------------------------------------------------------------------------------------------

template <class Call>
bool basket::Form38::runLong(const Call& call) {
  desk_.pointer() = controls::pointer::Hourglass;
  const bool whole = work_.run(Command4, call);
  desk_.pointer() = controls::pointer::Default;
  return whole;
}

void basket::Form38::Command1_Click() {
  Caption = std::string(Title) + ", - Calculating Total Size, Please Wait... !";
  std::uint64_t sum = 0;
  const bool whole = runLong([&] {
    const auto progress = [&](std::uint64_t) { return work_.goesOn(); };
    for (const core::Item& item : collection_.items()) {
      if (!work_.goesOn()) return;
      sum += item.isFolder ? fileops::treeSize(desk_, item.path, progress).bytes
                           : desk_.files().fileSize(item.path).valueOr(0);
    }
  });
  if (!whole) return showCount();
  const std::string bytes = core::panelSize(sum, desk_.program.platform.regional);
  Caption = std::string(Title) + ", - " + std::to_string(collection_.count()) + " Item(s) In : " + bytes + " Bytes";
}

void basket::Form38::Command4_Click() {
  if (work_.running())
    work_.stop();
  else
    UnloadForm();
}

void basket::Form38::Command2_Click() {
  if (!desk_.program.dialogs.AskRetry("You are about to Reset Paste Collection !\rAre you Sure ?")) return;
  collection_.reset();
  showItems();
}

void basket::Form38::Command3_Click() {
  const auto& items = collection_.items();
  std::unordered_set<std::string_view> paths;
  for (const std::uint32_t id : ListView1.selectedIds())
    paths.insert(items[id].path);
  if (paths.empty()) return;
  const std::uint32_t row = ListView1.focusedRow().value_or(0);
  collection_.remove(paths);
  showItems();
  if (ListView1.count() > 0) ListView1.focusRow(std::min(row, ListView1.count() - 1));
}

std::optional<core::Item> basket::Form38::chosenItem(const char* gone) {
  const auto row = ListView1.SelectedItem();
  if (!row) return {};
  core::Item item = collection_.items()[row->id()];
  if (item.isFolder ? desk_.files().folderExists(item.path) : desk_.files().fileExists(item.path)) return item;
  desk_.program.dialogs.inform(gone);
  return {};
}

void basket::Form38::Command6_Click() {
  const auto item = chosenItem("Selected File/Folder Do NOT Exist !");
  if (item) desk_.navigation.GoToDirection(item->isFolder ? paths::parent(item->path) : item->path);
}

void basket::Form38::ListView1_DblClick() {
  const auto item = chosenItem("File/Folder Path Do Not Exist... !");
  if (!item) return;
  item->isFolder ? desk_.opener.OpenItemPath(item->path) : desk_.opener.open(item->path);
}

// --- Collection files ----------------------------------------------------------------------------------------------

void basket::Form38::Command5_Click() {
  const auto mayReplace = [this](const std::string& question) { return desk_.program.dialogs.AskRetry(question); };
  if (files_.saveAs(Text2, collection_.items(), mayReplace)) showFiles();
}

std::string basket::Form38::chosenFile() const { return Combo1.ListIndex < 0 ? std::string() : Combo1.Text.get(); }

void basket::Form38::Combo1_Click() {
  const std::string name = chosenFile();
  if (name.empty()) return;
  Label1.Caption = "";
  Caption = std::string(Title) + ", - Loading Selection Set, - Please Wait...";
  platform::Result<std::string> bytes = std::string();
  CollectionFiles::Loaded loaded;
  const std::string path = files_.path(name);
  const bool whole = runLong([&] {
    bytes = desk_.files().readFile(path);
    if (bytes) loaded = CollectionFiles::itemsOf(desk_.files(), *bytes, [this] { return work_.goesOn(); });
  });
  if (!bytes) desk_.program.dialogs.alert("Cannot Load Collection File !\r" + name + " :  " + bytes.error().text);
  if (!bytes || !whole) return showCount();
  take(loaded, name);
}

void basket::Form38::take(const CollectionFiles::Loaded& loaded, const std::string& name) {
  if (!Check1.Value) collection_.reset();
  for (const core::Item& item : loaded.items)
    collection_.add(item);
  showItems();
  if (loaded.skipped > 0)
    Label1.Caption = std::to_string(loaded.skipped) + " line(s) of " + name + " name nothing that is there.";
}

void basket::Form38::Command7_Click() {
  auto& dialogs = desk_.program.dialogs;
  const std::string name = chosenFile();
  if (name.empty() || !dialogs.AskRetry("Collection File:  " + name + "\rDelete ?")) return;
  const auto deleted = desk_.files().deleteFile(files_.path(name), false);
  if (!deleted) dialogs.alert("Cannot Delete Collection File !\r" + name + " :  " + deleted.error().text);
  showFiles();
}

}  // namespace varnholt::basket
