#include "vdt/vdt.hpp"

#include "controls/header_sort.hpp"
#include "core/item_text.hpp"
#include "platform/paths.hpp"

#include <map>
#include <utility>

namespace varnholt::vdt {
namespace {

namespace key = controls::key;
namespace status = panels::status;

constexpr int SortedDownIcon = 12, SortedUpIcon = 13, NotSortedIcon = 14;
constexpr const char* ToolTip =
    "Drag and Drop your File/Folder Into Virtual Desktop from Panels.  CTRL+ L => Enable/Disable.";

}  // namespace

VDT::VDT(panels::Desk& desk, appearance::PictureView& pictures)
    : desk_(desk),
      pictures_(pictures),
      pointers(desk.form.ListView3),
      targets(desk.program, pointers),
      projects(desk.program, pointers, targets),
      Form44(desk, projects, pointers),
      copy_(desk, pointers) {
  list().setSorted(false);
  list().ToolTipText = ToolTip;
  targets.answered = [this] {
    updateMenu();
    if (desk_.form.VDT_Aktive && list().hasFocus()) statusLine();
  };
  Form44.projectChanged = [this] {
    showHeader();
    updateMenu();
  };
  bind();
}

void VDT::bind() {
  list().Click = [this] { ListView3_Click(); };
  list().DblClick = [this] { ListView3_DblClick(); };
  list().KeySelect = [this](bool) {
    showItem();
    showCount();
  };
  list().KeyDown = [this](controls::KeyEvent& event) { ListView3_KeyDown(event); };
  list().KeyUp = [this](controls::KeyEvent& event) { ListView3_KeyUp(event); };
  list().GotFocus = [this] { ListView3_GotFocus(); };
  list().LostFocus = [this] { ListView3_LostFocus(); };
  list().ColumnClick = [this](int number) { listview3_columnclick(number); };
  list().OLEDragDrop = [this](controls::DropEvent& event) { ListView3_OLEDragDrop(event); };
  list().PopupEntries = [this] {
    auto& menu = desk_.form.Menu;
    return std::vector<controls::MenuItem*>{&menu["CopyVDT"], &menu["DelItems_Vd"], &menu["Clear_Vd"],
                                            nullptr,          &menu["OpenPro"],     &menu["NewPro"]};
  };
  // The item in hand of a panel can be another while the list has the keyboard.
  desk_.form.events.itemChanged.listen([this](panels::Panel&) {
    if (!desk_.form.VDT_Aktive) return;
    for (controls::Control* control : switchedControls())
      control->Enabled = false;
  });
}

void VDT::load() {
  auto& init = desk_.program.init;
  auto images = list().ImageList.get();
  images[ThereIcon] = "pointer";
  images[GoneIcon] = "pointer-gone";
  list().ImageList = std::move(images);
  if (desk_.files().fileExists(projects.path(projects.current())))
    projects.VdtProjectLoad();
  else
    projects.beginEmpty();
  showHeader();
  desk_.form.Menu["CopyVDT"].Enabled = false;
  desk_.form.Menu["VDTstartup"].Checked = init.VDT_State == "1";
  if (init.VDT_State == "1") showList();
  updateMenu();
}

void VDT::store() {
  if (const auto saved = projects.saveChanges(); !saved)
    desk_.state.notStored.push_back(projects.notSaved(saved.error()));
}

// --- What is shown -------------------------------------------------------------------------------------------------

void VDT::updateMenu() {
  auto& menu = desk_.form.Menu;
  const bool hasRows = pointers.count() > 0;
  menu["Clear_Vd"].Enabled = menu["DelItems_Vd"].Enabled = hasRows && list().Visible;
  if (desk_.form.VDT_Aktive) menu["CopyVDT"].Enabled = hasRows;
}

void VDT::showHeader() {
  auto headers = list().ColumnHeaders.get();
  if (headers.empty()) return;
  headers.front().Text = "Virtual DeskTop (" + projects.current() + "),  -  Path:";
  list().ColumnHeaders = std::move(headers);
}

// Where the row in focus is the only one in hand, it is selected, too.
void VDT::statusLine() {
  const auto item = list().SelectedItem();
  if (!item) return;
  if (list().selectedCount() == 0) list().setSelected(item->id(), true);
  const Pointer& pointer = pointers.at(item->id());
  const bool isFile = !pointer.isFolder() && pointers.isThere(item->id());
  desk_.form.Caption = "Varnholt - ShortCut To : " + (isFile ? pointer.target() : pointer.Text);
}

void VDT::showItem() {
  statusLine();
  const auto item = list().SelectedItem();
  if (!item) return;
  const Pointer& pointer = pointers.at(item->id());
  pictures_.ViewpicvVDT(pointer.Text, pointer.SubItem);
  pictures_.showIcon(pointer.target());
}

void VDT::showCount() {
  desk_.form.StatusBar1.setPanel(status::ActiveView, std::to_string(list().selectedCount()) + "  Item(s) Selected, " +
                                                         (desk_.form.View1Active() ? "View1Active" : "View2Active"));
}

// --- The list ------------------------------------------------------------------------------------------------------

void VDT::ListView3_Click() {
  list().clearColors();
  targets.ask(false);
  statusLine();
  updateMenu();
  showItem();
  showCount();
}

void VDT::ListView3_DblClick() {
  const auto item = list().SelectedItem();
  if (desk_.dispatcher.busy || !item) return;
  const Pointer pointer = pointers.at(item->id());
  desk_.dispatcher.busy = true;
  desk_.pointer() = controls::pointer::Hourglass;
  const bool opened = open(pointer);
  desk_.pointer() = controls::pointer::Default;
  if (!opened) {
    targets.ask(false);
    desk_.program.dialogs.inform("File/Folder Path Not Available..!");
  }
  desk_.dispatcher.busy = false;
  desk_.form.statusLine("");
}

bool VDT::open(const Pointer& pointer) {
  const std::string target = pointer.target();
  panels::Panel* panel = desk_.form.activePanel();
  if (desk_.files().fileExists(target)) {
    desk_.mostUsed.Muf(target);
    desk_.opener.OpenItemPath(target);
    return true;
  }
  if (!panel || !desk_.navigation.goTo(*panel, target)) return false;
  desk_.trees.TreedisplayItem();
  list().SetFocus();
  return true;
}

void VDT::ListView3_KeyDown(controls::KeyEvent& event) {
  const bool plain = !event.modifiers.ctrl && !event.modifiers.alt && !event.modifiers.shift;
  const bool opens = plain && (event.code == key::Enter || event.code == key::F3);
  const bool deletes = plain && event.code == key::Delete;
  const bool selects = event.modifiers.ctrl && !event.modifiers.alt && event.code == 'A';
  const bool leaves = plain && event.code == key::Esc;
  event.handled = opens || deletes || selects || leaves;
  if (desk_.dispatcher.busy) return;
  if (leaves) desk_.listing.FocusView();
  if (opens) ListView3_DblClick();
  if (deletes) desk_.form.Menu["DelItems_Vd"].choose();
  if (selects) selectAll();
}

void VDT::ListView3_KeyUp(const controls::KeyEvent& event) {
  if (event.code == key::Up || event.code == key::Down) showItem();
}

void VDT::selectAll() {
  for (std::uint32_t id = 0; id < pointers.count(); ++id)
    list().setSelected(id, true);
  showCount();
}

void VDT::listview3_columnclick(int number) {
  controls::turnByHeader(list(), number - 1, number - 1, {SortedUpIcon, SortedDownIcon, NotSortedIcon});
}

// --- VDT_Aktive ----------------------------------------------------------------------------------------------------

void VDT::ListView3_GotFocus() {
  auto& form = desk_.form;
  const bool enters = !std::exchange(form.VDT_Aktive, true);
  form.StatusBar1.setPanel(status::ActiveView, "VDT_Aktive");
  if (!list().SelectedItem() && list().count() > 0) list().focusRow(0);
  updateMenu();
  if (enters) {
    switchCommands(true);
    form.events.VDT_Aktive(true);
  }
  targets.ask(false);
  showItem();
}

void VDT::ListView3_LostFocus() {
  auto& form = desk_.form;
  if (!std::exchange(form.VDT_Aktive, false)) return;
  form.Menu["CopyVDT"].Enabled = false;
  switchCommands(false);
  form.StatusBar1.setPanel(status::ActiveView, form.View1Active() ? "View1Active" : "View2Active");
  form.events.VDT_Aktive(false);
}

std::vector<controls::Control*> VDT::switchedControls() const {
  // The last one has a key by which the panels' selection could be reached.
  constexpr const char* Entries[] = {"CopySelection", "CopyItems", "WinCopy",      "WinPaste",      "CopyDesktop",
                                     "Deleteitems",   "EditFile",  "Fdetails",     "Filepatt",      "Makefile",
                                     "Foldermake",    "MoveItems", "multiAtribut", "RenFileFolder", "selectall",
                                     "Selsize",       "Inversel",  "Recallprevius"};
  auto& form = desk_.form;
  std::vector<controls::Control*> controls{&form.Command1,  &form.Command2,  &form.Command3,  &form.Command5,
                                           &form.Command11, &form.Command13, &form.Command14, &form.Command15};
  for (const char* entry : Entries)
    controls.push_back(&form.Menu[entry]);
  return controls;
}

void VDT::switchCommands(bool vdtIsActive) {
  if (vdtIsActive) {
    before_.clear();
    for (controls::Control* control : switchedControls()) {
      before_.emplace_back(control, control->Enabled.get());
      control->Enabled = false;
    }
    return;
  }
  for (const auto& [control, wasEnabled] : before_)
    control->Enabled = wasEnabled;
  // The item in hand may be another.
  if (panels::Panel* panel = desk_.form.activePanel()) desk_.selection.showItem(*panel);
}

// --- Drops ---------------------------------------------------------------------------------------------------------

void VDT::ListView3_OLEDragDrop(controls::DropEvent& event) {
  if (desk_.dispatcher.busy || event.files.empty()) return;
  event.accepted = true;
  const bool fromPanel = event.source == &desk_.form.ListView1 || event.source == &desk_.form.ListView2;
  const bool allNew = fromPanel ? addFocusedItem() : addFiles(event.files);
  updateMenu();
  if (!allNew) desk_.program.dialogs.inform("Item Already Exist in VDT.. !");
}

bool VDT::addFocusedItem() {
  panels::Panel* panel = desk_.form.activePanel();
  if (!panel) return true;
  if (panel->list.selectedCount() < 2) desk_.selection.Click(*panel);
  const auto item = panel->list.SelectedItem();
  if (!item) return true;
  const Pointer pointer =
      panel->isFolder(*item) ? toFolder(panel->itemPath(*item)) : Pointer{panel->path(), panel->fileName(*item)};
  return !pointers.contains(pointer) && pointers.add({pointer}) == 1;
}

bool VDT::addFiles(const std::vector<std::string>& files) {
  const auto dropped = desk_.program.loop.ask([&] {
    std::vector<Pointer> found;
    for (const std::string& file : files) {
      const std::string path = platform::paths::withoutClosing(file);
      found.push_back(desk_.files().folderExists(path) ? toFolder(path) : toFile(path));
    }
    return found;
  });
  return pointers.add(dropped) == dropped.size();
}

// --- Commands ------------------------------------------------------------------------------------------------------

void VDT::DelItems_Vd_Click() {
  if (pointers.count() > 0) {
    list().clearColors();
    // Rows may have gone behind the question, when a drive has answered: those selected are asked for when it is over.
    if (desk_.program.dialogs.AskRetry("You are about to Delete \r" + std::to_string(list().selectedCount()) +
                                       " Selected ShortCut(s)\rAre you Sure ?"))
      pointers.remove(list().selectedIds());
  }
  list().SetFocus();
  ListView3_Click();
}

void VDT::Clear_Vd_Click() {
  if (pointers.count() == 0) return updateMenu();
  list().clearColors();
  if (!desk_.program.dialogs.AskRetry("You are about to Clear All ShortCut(s)\rAre you Sure ?"))
    return ListView3_Click();
  pointers.clear();
  updateMenu();
}

void VDT::LocalDesk_Click() {
  if (!list().Visible) return showList();
  // The keyboard goes back to the panel before its holder is hidden.
  if (list().hasFocus()) desk_.listing.FocusView();
  list().Visible = false;
  desk_.form.Menu["LocalDesk"].Checked = false;
  desk_.form.Menu["CmdLine"].Enabled = true;
  updateMenu();
}

void VDT::showList() {
  list().Visible = true;
  desk_.form.Menu["LocalDesk"].Checked = true;
  desk_.form.Menu["CmdLine"].Enabled = false;
  updateMenu();
}

void VDT::GoToVDT_Click() {
  if (list().hasFocus()) return desk_.listing.FocusView();
  showList();
  list().SetFocus();
}

void VDT::VDTstartup_Click() {
  auto& entry = desk_.form.Menu["VDTstartup"];
  entry.Checked = !entry.Checked;
}

void VDT::CopyVDT_Click() {
  copy_.run();
  showCount();
}

void VDT::NewPro_Click() {
  if (Form44.nameProject()) showList();
}

void VDT::OpenPro_Click() {
  if (Form44.chooseProject()) showList();
}

void VDT::DeletePro_Click() {
  panels::Panel* panel = desk_.form.activePanel();
  if (!panel) return;
  if (!desk_.navigation.goTo(*panel, projects.folder())) {
    desk_.program.dialogs.alert("Project Folder Do Not Exist !");
    return;
  }
  desk_.selection.ClickPane();
  desk_.listing.FocusView();
}

}  // namespace varnholt::vdt
