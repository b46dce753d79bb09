#include "places/place_list.hpp"

#include "controls/header_sort.hpp"
#include "core/error_words.hpp"
#include "core/item_text.hpp"
#include "core/program_files.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::places {
namespace {

namespace paths = platform::paths;

constexpr int NameColumn = 0, DateColumn = 1, KeyColumn = 2;

}  // namespace

PlaceList::PlaceList(panels::Desk& desk, controls::ListView& list, PlaceKind kind)
    : desk_(desk), list_(list), kind_(kind) {
  list_.ImageList =
      std::map<int, std::string>{{place_icon::Favorite, "favorites"},   {place_icon::Note, "notes"},
                                 {place_icon::Good, "bookmark-good"},   {place_icon::Broken, "bookmark-broken"},
                                 {place_icon::SortedDown, "sort-down"}, {place_icon::SortedUp, "sort-up"}};
  bind();
  resetColumns();
}

void PlaceList::bind() {
  const auto select = [this] {
    clearMarks();
    selected();
  };
  list_.Click = select;
  list_.KeySelect = [select](bool) { select(); };
  list_.DblClick = [this] { open(); };
  list_.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Enter && event.code != controls::key::Delete) return;
    event.handled = true;
    event.code == controls::key::Enter ? open() : deleted();
  };
  list_.ColumnClick = [this](int number) { ColumnClick(number); };
}

void PlaceList::open() {
  if (const auto row = inHand()) opened(*row);
}

std::string PlaceList::folder() const { return core::program_file::path(desk_.program.platform, kind_.folder) + '\\'; }

std::string PlaceList::fileOf(const std::string& name) const { return folder() + name + std::string(kind_.extension); }

bool PlaceList::makeFolder() const {
  core::program_file::makeFolders(desk_.program.platform);
  return desk_.files().folderExists(folder());
}

// --- Columns -------------------------------------------------------------------------------------------------------

void PlaceList::resetColumns() {
  list_.ColumnHeaders =
      std::vector<controls::ColumnHeader>{{kind_.nameHeader, 4500, 0, false}, {"", 2400, 0, false}, {"", 0, 0, false}};
  list_.setSorted(false);
  showDateHeader();
}

void PlaceList::showDateHeader() {
  auto headers = list_.ColumnHeaders.get();
  headers[DateColumn].Text = core::dateColumnTitle(desk_.program.init.DateSystem);
  list_.ColumnHeaders = std::move(headers);
}

void PlaceList::ColumnClick(int number) {
  const int column = number - 1;
  controls::turnByHeader(list_, column, column == DateColumn ? KeyColumn : column,
                         {place_icon::SortedUp, place_icon::SortedDown, 0});
}

// --- Rows ----------------------------------------------------------------------------------------------------------

const platform::Date& PlaceList::dateOf(const platform::Entry& entry) const {
  const std::string& which = desk_.program.init.DateSystem;
  return which == "3" ? entry.accessed : which == "2" ? entry.created : entry.modified;
}

void PlaceList::refresh() {
  list_.clear();
  const auto listing = desk_.files().list(folder());
  if (!listing) return;
  const std::string extension = platform::foldCase(kind_.extension.substr(1));
  for (const platform::Entry& entry : (*listing)->files()) {
    if (entry.kind != platform::EntryKind::File || platform::foldCase(paths::extension(entry.name)) != extension)
      continue;
    controls::ListItem row = list_.add(std::string(entry.name), kind_.icon);
    if (!entry.hasDates) continue;
    const platform::CalendarTime time = desk_.program.platform.clock.local(dateOf(entry));
    row.setSubItem(DateColumn, core::propertiesDate(desk_.program.init.DateTimeFormat, time));
    row.setSubItem(KeyColumn, core::dateKey(time));
  }
  if (refreshed) refreshed();
}

bool PlaceList::selectName(const std::string& name) {
  for (std::uint32_t row = 0; row < list_.count(); ++row) {
    if (list_.cell(row, NameColumn) != name) continue;
    list_.chooseRow(row);
    return true;
  }
  return false;
}

// --- What is selected ----------------------------------------------------------------------------------------------

void PlaceList::clearMarks() {
  list_.clearColors();
  list_.clearGhosted();
}

std::vector<std::string> PlaceList::markSelected() {
  clearMarks();
  std::vector<std::string> files;
  for (std::uint32_t row = 0; row < list_.count(); ++row) {
    controls::ListItem item = list_.item(row);
    if (!item.Selected()) continue;
    item.setForeColor(panels::mark_color::Selection);
    item.setGhosted(true);
    files.push_back(path(item));
  }
  return files;
}

void PlaceList::deleteFiles(std::vector<std::string> files) {
  constexpr platform::Attributes ArchiveOnly = 32;
  std::vector<std::string> stay;
  for (; !files.empty(); files.pop_back()) {
    const std::string& file = files.back();
    if (!desk_.files().fileExists(file)) continue;
    (void)desk_.files().setAttributes(file, ArchiveOnly);
    const auto deleted = desk_.files().deleteFile(file, true);
    if (deleted) continue;
    const std::string name(paths::fileName(file));
    stay.push_back(name + ":  " + core::reasonOf(deleted.error(), name));
  }
  refresh();
  if (list_.count() > 0) selectName(list_.cell(0, NameColumn));
  desk_.listing.ViewUpdateAll(folder());
  if (!stay.empty()) desk_.program.dialogs.alert(core::leftOutText("Not Deleted !", stay));
}

}  // namespace varnholt::places
