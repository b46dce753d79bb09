#include "panels/listing.hpp"

#include "core/item_text.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;
namespace pointer = controls::pointer;

// The header icons: sorted down, sorted up, not sorted by this column.
constexpr int SortedDown = 12, SortedUp = 13, NotSorted = 14;

bool isProgram(const platform::Entry& file) {
  const std::string extension = platform::foldCase(paths::extension(file.name));
  return extension == "com" || extension == "exe";
}

}  // namespace

std::map<int, std::string> panelImageList() {
  return {{core::FolderClass, "folder"}, {core::FileClass, "file"},
          {core::HiddenClass, "hidden"}, {core::ReadOnlyClass, "read-only"},
          {SortedDown, "sort-down"},     {SortedUp, "sort-up"},
          {NotSorted, "sort-none"}};
}

std::vector<controls::ColumnHeader> panelColumns() {
  return {{"Name:", 4350, SortedUp, false},
          {".Ext", 840, NotSorted, false},
          {"ByteSize:", 1635, NotSorted, true},
          {"Date Modified:", 2100, NotSorted, false},
          {"", 0, 0, false},
          {"", 0, 0, false}};
}

// --- Listing -------------------------------------------------------------------------------------------------------

void Listing::filedir(Panel& panel) {
  colorreset(panel);
  program_.loop.screen().MousePointer = pointer::Hourglass;
  panel.list.MousePointer = pointer::Hourglass;

  const auto listing = read(panel.path());
  panel.unreadable = listing ? "" : listing.error().text;
  if (listing) {
    panel.hidesFiles = false;
    panel.show(std::make_shared<PanelRows>(*listing, fileTest(panel.hidesFiles), rowFormat(panel)));
    form_.Menu["Viewfilter"].Accented = form_.Panel1.hidesFiles || form_.Panel2.hidesFiles;
    panel.list.ensureSorted();
    pbar_beregning((*listing)->files().size(), (*listing)->files().size());
  }

  form_.ProgressBar1.Value = 0;
  panel.list.MousePointer = pointer::Default;
  program_.loop.screen().MousePointer = pointer::Default;
}

platform::Result<platform::ListingPtr> Listing::read(const std::string& folder) {
  if (read_ && read_->listing && read_->folder == folder) return read_->listing;
  auto listing = program_.files().list(folder);
  if (read_ && listing) read_ = {folder, *listing};
  return listing;
}

void Listing::bothPanels(const std::function<void()>& list) {
  read_.emplace();
  list();
  read_.reset();
}

// The menu is asked once a listing, and not once a file.
FileTest Listing::fileTest(bool& hidesFiles) const {
  const bool hiddenToo = form_.Menu.checked("HidSysfiles"), programsOnly = form_.Menu.checked("ViewProg");
  FileTest passes;
  if (form_.Menu.checked("Viewuser") && viewFilter) passes = viewFilter();
  if (hiddenToo && !programsOnly && !passes) return {};
  return [hiddenToo, programsOnly, passes = std::move(passes), &hidesFiles](const platform::Entry& file) {
    if (!hiddenToo && core::itemClass(file.attributes) == core::HiddenClass) return false;
    const bool shown = programsOnly ? isProgram(file) : !passes || passes(file);
    hidesFiles = hidesFiles || !shown;
    return shown;
  };
}

RowFormat Listing::rowFormat(const Panel& panel) const {
  RowFormat format{program_.init.DateSystem, program_.init.DateTimeFormat, false, program_.platform.regional,
                   &program_.platform.clock};
  if (format.DateSystem != "3") return format;
  const auto volume = program_.files().volume(panel.path());
  format.datesNotAvailable = volume && volume->isDisc();
  return format;
}

void Listing::pbar_beregning(std::size_t counter, std::size_t total) {
  if (total == 0 || counter > total) return;
  form_.ProgressBar1.Value = static_cast<double>(counter) / static_cast<double>(total) * 100;
}

// --- Updates -------------------------------------------------------------------------------------------------------

void Listing::ViewClearItems(Panel& panel) {
  const auto row = panel.isListed() ? panel.list.focusedRow() : std::nullopt;
  const std::string name = row ? panel.fileName(panel.list.item(*row)) : std::string();
  panel.clearItems();
  filedir(panel);
  form_.events.itemChanged(panel);
  if (row && panel.list.count() > 0)
    panel.goOnFrom(panel.rowOfName(name).value_or(std::min(*row, panel.list.count() - 1)));
}

void Listing::ViewRenew() {
  bothPanels([this] {
    View1ClearItems();
    View2ClearItems();
  });
}

void Listing::viewupdate() {
  if (paths::sameFolder(form_.Panel1.path(), form_.Panel2.path())) {
    UpdateBothViews();
    return;
  }
  form_.View1Active() ? View2ClearItems() : View1ClearItems();
}

void Listing::UpdateBothViews() {
  if (!paths::sameFolder(form_.Panel1.path(), form_.Panel2.path())) return;
  Panel* active = form_.activePanel();
  if (!active) return;
  bothPanels([&] {
    ViewClearItems(form_.otherPanel(*active));
    ViewClearItems(*active);
  });
}

void Listing::ViewUpdateAll(const std::string& folder) {
  bothPanels([&] {
    for (Panel* panel : {&form_.Panel1, &form_.Panel2})
      if (paths::sameFolder(panel->path(), folder)) ViewClearItems(*panel);
  });
}

void Listing::viewrefresh() {
  if (resetcollect) resetcollect();
  Panel* active = form_.activePanel();
  if (!active) return;
  bothPanels([&] {
    keepCurrentItem(*active);
    Panel& otherOne = form_.otherPanel(*active);
    if (paths::sameFolder(active->path(), otherOne.path())) ViewClearItems(otherOne);
  });
}

void Listing::keepCurrentItem(Panel& panel) {
  const auto current = panel.list.SelectedItem();
  const std::string noted = current ? panel.compareText(*current) : std::string();
  const bool selected = current && current->Selected();
  ViewClearItems(panel);
  if (!selected) return;
  auto again = panel.findByCompareText(noted);
  if (!again) return;
  again->setSelected(true);
  again->EnsureVisible();
  panel.list.focusRow(again->row());
  form_.events.itemChanged(panel);
}

// --- Sorting -------------------------------------------------------------------------------------------------------

void Listing::ColumnClick(Panel& panel, int number) {
  controls::ListView& list = panel.list;
  if (panel.side == Side::Left) list.MousePointer = pointer::Hourglass;
  int key = number - 1;
  if (key == column::Size) key = column::SizeKey;
  if (key == column::Date) key = column::DateKey;
  list.setSortKey(key);

  auto headers = list.ColumnHeaders.get();
  for (int at = 0; at < static_cast<int>(headers.size()); ++at)
    headers[static_cast<std::size_t>(at)].Icon = at <= column::Date ? NotSorted : 0;
  const bool ascending = list.SortOrder() == controls::SortOrder::Ascending;
  headers.at(static_cast<std::size_t>(number - 1)).Icon = ascending ? SortedDown : SortedUp;
  list.setSortOrder(ascending ? controls::SortOrder::Descending : controls::SortOrder::Ascending);
  list.ColumnHeaders = std::move(headers);
  list.ensureSorted();
  list.MousePointer = pointer::Default;
}

// --- Marks and focus -----------------------------------------------------------------------------------------------

void Listing::resetv1v2() {
  if (Panel* active = form_.activePanel()) active->list.clearGhosted();
}

void Listing::viewHightreset() { form_.Text3.Visible = false; }

void Listing::ColorReset() {
  colorreset1();
  colorreset2();
}

void Listing::FocusView() {
  Panel* active = form_.activePanel();
  if (!active) return;
  active->list.SetFocus();
  if (auto item = active->list.SelectedItem()) item->EnsureVisible();
}

}  // namespace varnholt::panels
