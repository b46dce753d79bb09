#include "panels/selection.hpp"

#include "core/attribute_words.hpp"
#include "core/format.hpp"
#include "core/item_text.hpp"
#include "platform/paths.hpp"

namespace varnholt::panels {

namespace paths = platform::paths;

// --- Clicks --------------------------------------------------------------------------------------------------------

void Selection::Click(Panel& panel) {
  active_.showFreeSpace(panel);
  follow(panel, Keeping::All);
}

void Selection::KeySelect(Panel& panel, bool builds) { follow(panel, builds ? Keeping::NewOnes : Keeping::None); }

void Selection::follow(Panel& panel, Keeping keeping) {
  clearFilterLine();
  form_.setMode("SelectMode");
  active_.UpdateClock();

  const auto focused = panel.list.SelectedItem();
  if (focused) currentItem(panel, *focused);
  resetcollect();
  if (panel.list.MultiSelect) {
    collectSelected(panel, keeping);
  } else if (focused) {
    collect(panel, *focused);
  }
  panel.list.ghostSelected(form_.CtrlHeld);
  if (form_.Menu.checked("Psi")) showCount(panel.list.selectedCount());
  form_.events.selectionChanged(panel);
}

void Selection::clearFilterLine() {
  form_.Menu["Filefilter"].Visible = false;
  form_.Menu["Viewfilter"].Visible = true;
}

void Selection::currentItem(Panel& panel, controls::ListItem item) {
  const bool folder = panel.isFolder(item);
  form_.CurrentItem = folder ? panel.itemPath(item) : panel.fileName(item);
  form_.events.itemChanged(panel);
}

void Selection::chooseItem(Panel& panel, std::optional<controls::ListItem> item) {
  const Command* edit = form_.commands.find("Command2_Click");
  const bool folder = item && panel.isFolder(*item);
  form_.Command2.Enabled = !folder && edit && edit->run;
  form_.Menu["EditFile"].Enabled = form_.Command2.Enabled.get();
  if (item) return fileatrib(panel, *item);
  // An empty list alone would tell of a folder that holds nothing.
  form_.statusLine(panel.unreadable.empty() ? "" : "Folder Cannot Be Read !, - " + panel.unreadable);
}

void Selection::showItem(Panel& panel) {
  if (form_.activePanel() != &panel) return;
  chooseItem(panel, panel.list.SelectedItem());
  form_.StatusBar1.setPanel(status::SizeReport, "");
  const auto count = panel.list.selectedCount();
  form_.StatusBar1.setPanel(status::SelectedCount, "");
  if (count > 0 && form_.Menu.checked("Psi")) showCount(count);
}

void Selection::fileatrib(Panel& panel, controls::ListItem item) {
  if (!panel.rows) return;
  form_.statusLine(std::string(core::fileatrib(panel.rows->entry(item.id()).attributes)));
}

void Selection::collect(Panel& panel, controls::ListItem item) {
  keepForRecall(panel, item);
  form_.filecollect.push(panel.item(item));
}

void Selection::keepForRecall(Panel& panel, controls::ListItem item) {
  if (form_.Menu.checked("selhis") && form_.panelRecall(panel.side).push(panel.fileName(item))) tellRecallFull();
}

void Selection::tellRecallFull() {
  form_.statusLine("Recall Bufffer Full ! - Auto Pop out in progress, (Apply Reset to increase speed !)");
}

// A row is new to the Recall unless it bears the mark of a selection that was kept. What holds for all rows is asked
// and told once: there may be a million of them.
void Selection::collectSelected(Panel& panel, Keeping keeping) {
  const int side = panel.side == Side::Left ? 0 : 1;
  const bool walked = std::exchange(walked_[side], keeping == Keeping::None);
  const RowSet selected = selectedRows(panel);
  if (keeping != Keeping::None && !selected.ids.empty()) {
    lastSet_[side].hold(selected);
    if (form_.Menu.checked("selhis")) {
      std::vector<std::uint32_t> kept = selected.ids;
      if (keeping == Keeping::NewOnes && !walked)
        std::erase_if(kept, [&](std::uint32_t id) { return panel.list.isGhosted(id); });
      if (form_.panelRecall(panel.side).push(*panel.rows, kept)) tellRecallFull();
    }
  }
  form_.filecollect.hold(selected);
}

RowSet Selection::selectedRows(Panel& panel) {
  if (!panel.rows) return {};
  return {panel.rows, panel.path(), panel.list.selectedIds()};
}

// Recalling looks for names, not for the rows that bore them: a listing of a folder that was left is not to be held.
void Selection::letRowsGo() {
  for (const FileCollect& set : lastSet_)
    (void)set.items();
}

void Selection::Psi_Click() {
  auto& entry = form_.Menu["Psi"];
  entry.Checked = !entry.Checked;
  form_.StatusBar1.setPanel(status::SelectedCount, "");
  const Panel* panel = form_.activePanel();
  if (entry.Checked && panel && panel->list.selectedCount() > 0) showCount(panel->list.selectedCount());
}

void Selection::ClickPane() {
  if (Panel* active = form_.activePanel()) Click(*active);
}

// --- Collecting ----------------------------------------------------------------------------------------------------

void Selection::ViewClickCopy(Panel& panel) {
  form_.setMode("SelectMode");
  active_.UpdateClock();
  resetcollect();
  listing_.colorreset(panel);
  form_.filecollect.hold(selectedRows(panel));
  if (const auto item = panel.list.SelectedItem()) fileatrib(panel, *item);
}

void Selection::ResetView(Panel& panel) {
  panel.list.clearGhosted();
  panel.list.selectNone();
  panel.list.clearColors();
  form_.StatusBar1.setPanel(status::SelectedCount, "");
  form_.StatusBar1.setPanel(status::SizeReport, "");
}

void Selection::ResetView() {
  if (Panel* active = form_.activePanel()) ResetView(*active);
}

void Selection::ResetAll() {
  resetcollect();
  ResetView(form_.Panel1);
  ResetView(form_.Panel2);
  clearFilterLine();
}

// --- Reports -------------------------------------------------------------------------------------------------------

void Selection::showCount(std::uint64_t count) {
  form_.StatusBar1.setPanel(status::SelectedCount, std::to_string(count) + "  Item(s) Selected");
}

void Selection::report(std::uint64_t count, const Sum& sum) {
  form_.StatusBar1.setPanel(status::SizeReport,
                            std::to_string(count) + (sum.exact ? " Item(s) ,  In " : " Item(s) ,  In ~ ") +
                                core::format("###,##0", sum.bytes, program_.platform.regional) + " Bytes");
}

void Selection::addSize(Panel& panel, controls::ListItem item, Sum& sum) {
  if (!panel.isFolder(item)) {
    sum.bytes += panel.rows->entry(item.id()).size;
    return;
  }
  const auto size = program_.files().folderSize(panel.itemPath(item));
  if (size) sum.bytes += size->bytes;
  if (!size || !size->exact) sum.exact = false;
}

Selection::Sum Selection::sizeOfSelected(Panel& panel) {
  Sum sum;
  for (const std::uint32_t id : panel.list.selectedIds())
    addSize(panel, {panel.list, id}, sum);
  return sum;
}

void Selection::reportSelected(Panel& panel) {
  report(panel.list.selectedCount(), sizeOfSelected(panel));
  if (form_.Menu.checked("Psi")) showCount(panel.list.selectedCount());
  form_.events.selectionChanged(panel);
}

void Selection::select(Panel& panel, const std::function<bool(controls::ListItem)>& takes) {
  for (std::uint32_t row = 0; row < panel.list.count(); ++row) {
    controls::ListItem item = panel.list.item(row);
    if (!takes(item)) continue;
    item.setSelected(true);
    item.setGhosted(true);
  }
  form_.filecollect.hold(selectedRows(panel));
}

// --- Selection commands --------------------------------------------------------------------------------------------

void Selection::selectall_Click() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  form_.setMode("SelectMode");
  form_.statusLine("Calculating...  Please Wait !");
  resetcollect();
  panel->list.selectNone();
  select(*panel,
         [&, folders = includesFolders()](controls::ListItem item) { return folders || !panel->isFolder(item); });
  reportSelected(*panel);
  chooseItem(*panel, panel->list.SelectedItem());
}

void Selection::Inversel_Click() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  form_.setMode("SelectMode");
  clearFilterLine();
  form_.statusLine("Calculating...  Please Wait !");
  controls::ListView& list = panel->list;
  std::vector<bool> wasSelected(list.count());
  for (std::uint32_t id = 0; id < list.count(); ++id)
    wasSelected[id] = list.isGhosted(id) || list.isSelected(id);
  list.clearGhosted();
  list.selectNone();
  resetcollect();
  select(*panel, [&, folders = includesFolders()](controls::ListItem item) {
    return !wasSelected[item.id()] && (folders || !panel->isFolder(item));
  });
  reportSelected(*panel);
  chooseItem(*panel, panel->list.SelectedItem());
}

void Selection::Selsize_Click() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  if (panel->list.selectedCount() == 0) {
    nonselect();
    return;
  }
  form_.statusLine("Calculating... Please wait !");
  program_.loop.giveTurn();
  const Sum sum = sizeOfSelected(*panel);
  form_.statusLine("Size of selected Item(s) :  " + core::format("###,##0", sum.bytes, program_.platform.regional) +
                   "   Bytes");
}

void Selection::IncludeFolder_Click() {
  auto& entry = form_.Menu["IncludeFolder"];
  entry.Checked = !entry.Checked;
  program_.init.SelectFolders = entry.Checked ? "1" : "0";
}

// --- Recall --------------------------------------------------------------------------------------------------------

void Selection::Command16_Click() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  form_.setMode("RecallMode");
  active_.UpdateClock();
  const auto& bufferNames = form_.panelRecall(panel->side).names();
  if (bufferNames.empty()) {
    form_.StatusBar1.setPanel(status::SelectedCount, "0 Recall Items Selected !");
    return;
  }
  recall(*panel, {bufferNames.begin(), bufferNames.end()});
}

void Selection::Recallprevius_Click() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  form_.setMode("RecallMode");
  std::unordered_set<std::string_view> names;
  for (const core::Item& item : lastSet_[panel->side == Side::Left ? 0 : 1].items())
    names.insert(paths::fileName(item.path));
  recall(*panel, names);
}

void Selection::recall(Panel& panel, const std::unordered_set<std::string_view>& names) {
  program_.loop.screen().MousePointer = controls::pointer::Hourglass;
  form_.statusLine("ReCall Working, - Please Wait !");
  resetcollect();
  panel.list.selectNone();
  panel.list.clearGhosted();
  const auto wanted = panel.rows ? panel.rows->named(names) : std::vector<bool>();
  select(panel, [&](controls::ListItem item) { return item.id() < wanted.size() && wanted[item.id()]; });
  program_.loop.screen().MousePointer = controls::pointer::Default;
  chooseItem(panel, panel.list.SelectedItem());
  form_.StatusBar1.setPanel(status::SizeReport, "");
  showCount(panel.list.selectedCount());
  form_.events.selectionChanged(panel);
}

void Selection::Command27_Click() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  form_.statusLine("Resetting Recall data, - Please wait ! ");
  form_.panelRecall(panel->side).reset();
  listing_.colorreset(*panel);
  listing_.viewrefresh();
  chooseItem(*panel, panel->list.SelectedItem());
}

void Selection::ResetRecall_Click() {
  if (Panel* panel = form_.activePanel()) form_.panelRecall(panel->side).reset();
}

void Selection::Recall_Click() {
  if (Panel* panel = form_.activePanel()) program_.settings.save(core::setting::viewpath, panel->path());
}

void Selection::memundo() {
  Panel* panel = form_.activePanel();
  if (!panel) return;
  const std::string folder = program_.settings.get(core::setting::viewpath);
  if (!goTo || !goTo(*panel, folder)) program_.dialogs.alert("Location has Changed and NOT Valid !");
}

}  // namespace varnholt::panels
