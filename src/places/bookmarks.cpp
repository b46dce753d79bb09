#include "places/bookmarks.hpp"

#include "controls/dress.hpp"
#include "core/item_text.hpp"
#include "core/program_files.hpp"
#include "core/text_file.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <memory>

namespace varnholt::places {
namespace {

namespace paths = platform::paths;

constexpr const char* Title = "Book-Marks";
constexpr std::string_view PathMark = "[Path]", FolderMark = "[Folder]", FileMark = "[FileName]";
/// More than the longest paths need; a file of any size may lie there.
constexpr std::uint64_t Beginning = 1 << 16;

bool isThere(const platform::FileSystem& files, const std::string& path, bool asFolder) {
  const auto found = files.resolve(path);
  return found && (asFolder ? files.folderExists(*found) : files.fileExists(*found));
}

/// Nothing when the file itself is gone.
std::optional<Bookmark> read(const platform::FileSystem& files, const std::string& file) {
  const auto bytes = files.readBeginning(file, Beginning);
  if (!bytes) return {};
  return bookmarkOf(*bytes);
}

bool holds(const platform::FileSystem& files, const Bookmark& bookmark) {
  if (!isThere(files, bookmark.path, true)) return false;
  if (!bookmark.folder.empty()) return isThere(files, bookmark.folderPath(), true);
  return bookmark.fileName.empty() || isThere(files, bookmark.filePath(), false);
}

}  // namespace

std::string Bookmark::folderPath() const {
  return folder.empty() ? folder : paths::join(path, core::folderRowName(folder));
}

std::string Bookmark::filePath() const { return fileName.empty() ? fileName : paths::join(path, fileName); }

Bookmark bookmarkOf(std::string_view bytes) {
  Bookmark bookmark;
  const auto lines = core::splitLines(bytes);
  for (std::size_t at = 0; at + 1 < lines.size(); ++at) {
    std::string* value = lines[at] == PathMark     ? &bookmark.path
                         : lines[at] == FolderMark ? &bookmark.folder
                         : lines[at] == FileMark   ? &bookmark.fileName
                                                   : nullptr;
    if (value) *value = lines[++at];
  }
  return bookmark;
}

// --- Form33 --------------------------------------------------------------------------------------------------------

places::Form33::Form33(panels::Desk& desk, rename::Rename& rename)
    : PlacesForm(desk, rename, "Form33", {core::program_file::Bookmarks, ".Bmk", "Name:", place_icon::Good},
                 {rename::Caller::Bookmark, " Bookmark(s) !"}) {
  Caption = Title;
  ListView1.AccessibleName = "Bookmarks";
  ListView1.ToolTipText = "Dbl. Click to Go To Bookmark, or press Enter key.";
  dress(Command1, "&Del. Bookmark(s)", "Delete Selected Bookmark(s)");
  dress(Command4, "&Rename Bookmark", "Rename Selected Bookmark");
  dress(Command3, "&Cancel", "Close the Bookmarks");
  places.selected = [this] { ListView1_Click(); };
  places.refreshed = [this] {
    Caption = Title;
    testRows();
  };
}

void places::Form33::ListView1_Click() {
  if (const auto row = places.inHand()) Caption = std::string(Title) + ", - " + row->Text();
}

void places::Form33::open(controls::ListItem row) {
  if (!follow(places.path(row))) return;
  UnloadForm();
  arrived();
}

void places::Form33::testRows() {
  struct Test {
    std::string file;
    std::uint32_t id;
    int icon;
  };
  const auto tests = std::make_shared<std::vector<Test>>();
  for (std::uint32_t row = 0; row < ListView1.count(); ++row) {
    controls::ListItem item = ListView1.item(row);
    tests->push_back({places.path(item), item.id(), place_icon::Good});
  }
  const auto& files = desk_.program.platform.files;
  const auto ask = [tests, &files] {
    for (Test& test : *tests)
      if (const auto bookmark = read(files, test.file); bookmark && !holds(files, *bookmark))
        test.icon = place_icon::Broken;
  };
  desk_.program.loop.runBeside(ask, [this, tests, filled = ++filled_] {
    if (filled != filled_) return;
    for (const Test& test : *tests)
      controls::ListItem(ListView1, test.id).setSmallIcon(test.icon);
  });
}

// --- Commands ------------------------------------------------------------------------------------------------------

Bookmarks::Bookmarks(panels::Desk& desk, fileops::Form32& nameDialog, rename::Rename& rename)
    : desk_(desk), Form32_(nameDialog), Form33(desk, rename) {
  Form33.follow = [this](const std::string& file) { return follow(file); };
  Form33.arrived = [this] { arrive(); };
}

void Bookmarks::addtobook_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  addBookmark(*desk_.form.activePanel());
  desk_.dispatcher.commandDone();
}

void Bookmarks::addBookmark(const panels::Panel& panel) {
  auto& dialogs = desk_.program.dialogs;
  if (!Form33.places.makeFolder()) return;
  const auto item = panel.list.SelectedItem();
  if (!item) return desk_.selection.nonselect();
  const bool isFolder = panel.isFolder(*item);
  const std::string folder = panel.path(), itemName = panel.fileName(*item);
  const std::string preset(isFolder ? core::folderRowName(item->Text()) : item->Text());
  const auto name = Form32_.ask({.caption = "BookMark Creation",
                                 .toolTip = "Key in Valit Filename Without Any Backslash, Extension. Ect.",
                                 .pictureTip = "BookMark Creation As *.bmk Files",
                                 .emptyAnswer = "Key Bookmark Name !",
                                 .preset = preset,
                                 .icon = "bookmark",
                                 .refusedCaption = "Bookmark Creation",
                                 .beside = &desk_.form});
  if (!name) return;
  const std::string file = Form33.places.fileOf(*name);
  if (desk_.files().fileExists(file) && !dialogs.AskRetry("Bookmark:  " + *name + "\r\rAlready Exist !, OverWrite ?"))
    return;
  if (!isFolder && platform::foldCase(paths::extension(itemName)) == "bmk")
    return dialogs.inform("Operation NOT Allowed !");
  const auto written = core::writeLines(desk_.files(), file,
                                        {std::string(PathMark), folder, std::string(isFolder ? FolderMark : FileMark),
                                         isFolder ? core::folderRowText(itemName) : itemName});
  if (!written) return dialogs.alert(*name + ".Bmk:  " + written.error().text);
  desk_.listing.ViewUpdateAll(Form33.places.folder());
  dialogs.inform("Bookmark Created, To Selected Item !");
}

void Bookmarks::OpenBook_Click() {
  desk_.form.setMode("BookMarkMode");
  Form33.ShowModal();
  desk_.listing.FocusView();
}

// --- Following -----------------------------------------------------------------------------------------------------

bool Bookmarks::follow(const std::string& file) {
  const auto alert = [this](const char* text) {
    desk_.program.dialogs.alert(text);
    return false;
  };
  const auto bookmark = read(desk_.files(), file);
  if (!bookmark) return alert("Bookmark Data File NOT Found !");
  if (!BookmarkPath(bookmark->path)) return alert("Bookmark Primary Path NOT Valid !");
  const panels::Panel& panel = *desk_.form.activePanel();
  if (!bookmark->folder.empty()) {
    if (!isThere(desk_.files(), bookmark->folderPath(), true)) return alert("Bookmark Path NOT Valid !");
    select(findRow(panel, bookmark->folder, true));
  }
  if (!bookmark->fileName.empty()) {
    if (!isThere(desk_.files(), bookmark->filePath(), false)) return alert("Bookmark File NOT Valid !");
    select(findRow(panel, bookmark->fileName, false));
  }
  return true;
}

bool Bookmarks::BookmarkPath(const std::string& folder) {
  panels::Panel* panel = desk_.form.activePanel();
  const auto found = desk_.files().resolve(folder);
  return panel && found && desk_.navigation.goTo(*panel, *found);
}

// Letter case does not count, unless a row is spelled exactly so.
std::optional<controls::ListItem> Bookmarks::findRow(const panels::Panel& panel, const std::string& text,
                                                     bool isFolder) const {
  const std::string folded = platform::foldCase(text);
  std::optional<controls::ListItem> found;
  for (std::uint32_t row = 0; row < panel.list.count(); ++row) {
    const controls::ListItem item = panel.list.item(row);
    if (panel.isFolder(item) != isFolder) continue;
    const std::string name = isFolder ? core::folderRowText(panel.fileName(item)) : panel.fileName(item);
    if (name == text) return item;
    if (!found && platform::foldCase(name) == folded) found = item;
  }
  return found;
}

void Bookmarks::select(const std::optional<controls::ListItem>& row) {
  if (!row) return desk_.program.dialogs.alert("Bookmark Item Not Found In View !");
  desk_.navigation.selectRow(*desk_.form.activePanel(), *row);
}

void Bookmarks::arrive() {
  desk_.listing.FocusView();
  desk_.selection.ClickPane();
}

}  // namespace varnholt::places
