#include "panels/main_window_start.hpp"

#include "core/program_files.hpp"
#include "platform/paths.hpp"

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

}  // namespace

// --- Form_Load -----------------------------------------------------------------------------------------------------

void MainWindowStart::Form_Load() {
  auto& [form, program, listing, active, looks, choices, state, histories, drives, tip] = p_;
  state.RestorePositions();

  form.ProgressBar1.Min = 0;
  form.ProgressBar1.Max = 100;
  form.ProgressBar1.Value = 0;
  listing.viewHightreset();
  form.Menu["Viewfilter"].Visible = true;
  form.Menu["Filefilter"].Visible = false;
  for (const char* entry : {"Viewall", "Psi", "selhis"})
    form.Menu[entry].Checked = true;

  const bool hiddenShown = program.settings.get(core::setting::SysHidShow) == "1";
  form.Menu["HidSysfiles"].Checked = hiddenShown;
  choices.showFilterLine();

  drives.fill();
  startFolders();
  setColumns();
  state.restoreColumns();

  for (Panel* panel : {&form.Panel1, &form.Panel2}) {
    panel->backStack.push(panel->path());
    panel->showPath();
  }
  enter(form.Panel1);
  enter(form.Panel2);

  active.UpdateClock();
  form.StatusBar1.setPanel(status::ActiveView, "View2Active");
  form.setActive(Side::Right);
  active.showDrive(form.Panel2);
  form.setMode("SelectMode");
  for (auto* button : {&form.Command22, &form.Command23, &form.Command24, &form.Command25})
    button->Enabled = false;

  ApplyInitState();
  LoadHistoryFiles();
  looks.colorMenuState();
}

void MainWindowStart::startFolders() {
  auto& form = p_.form;
  const std::string systemDrive = p_.program.platform.environment.variable("SystemDrive");
  if (!systemDrive.empty()) {
    form.InitFolder = paths::withClosing(existingDrive(systemDrive));
    form.Panel1.setPath(form.InitFolder);
    form.Panel2.setPath(form.InitFolder);
  } else {
    for (Panel* panel : {&form.Panel1, &form.Panel2}) {
      const auto& items = panel->controls.Drive.Items.get();
      panel->setPath(items.empty() ? "C:\\" : items.front().text.substr(0, 2) + "\\");
    }
    form.InitFolder = form.Panel2.path();
  }
  p_.drives.ViewDriveSelection();
}

std::string MainWindowStart::existingDrive(const std::string& drive) {
  const auto& items = p_.form.Drive1.Items.get();
  const std::string letter = paths::driveOf(drive);
  if (items.empty() || (!letter.empty() && p_.drives.has(letter.front()))) return drive;
  const std::string first = paths::driveOf(items.front().text);
  p_.program.dialogs.alert("Drive " + drive + " Not Found !\rBoth Views Start On Drive " + first);
  return first;
}

void MainWindowStart::setColumns() {
  auto& form = p_.form;
  for (controls::ListView* list : {&form.ListView1, &form.ListView2}) {
    list->ImageList = panelImageList();
    list->ColumnHeaders = panelColumns();
  }
  form.ListView3.ImageList = panelImageList();
  form.ListView3.ColumnHeaders = std::vector<controls::ColumnHeader>{
      {"Virtual DeskTop (" + p_.program.init.VDTViewState + "),  -  Path:", 9000, 13, false},
      {"Name:", 4200, 0, false}};
  form.ListView3.setSortKey(1);
}

// --- ApplyInitState ------------------------------------------------------------------------------------------------

void MainWindowStart::ApplyInitState() {
  const auto& init = p_.program.init;
  auto& menu = p_.form.Menu;
  const auto version = p_.program.platform.system.version();
  const double number = version.major + version.minor / 10.0;
  for (const char* entry : {"Cleanwindows", "NetOp"})
    if (!(number > 5 && number < 7)) menu[entry].Enabled = false;
  menu["Clear_Vd"].Enabled = false;
  menu["DelItems_Vd"].Enabled = false;

  applyCommands();
  if (init.SelectFolders == "1") menu["IncludeFolder"].Checked = true;
  if (init.ValidateCM == "1" || init.ValidateCM == "-1") menu["ValCopyMove"].Checked = true;
  menu["DateTime24"].Checked = init.DateTimeFormat == "0";
  menu["DateTime12"].Checked = init.DateTimeFormat != "0";
  if (init.FolderHistory == "1") menu["AutoSaveHis"].Checked = true;
  if (init.GetColorState == "1") menu["ShiftColorOther"].Checked = true;
  if (init.WinStart == "1") menu["WinStart"].Checked = true;
  if (init.AutoPosition == "1") menu["Auto_Save"].Checked = true;
  menu["TipStart"].Checked = init.Tip_State == "0";
  p_.tip.LoadTip.Value = init.Tip_State == "0" ? 0 : 1;

  p_.choices.applyDateSystem();
  p_.looks.applyInitState();
}

void MainWindowStart::applyCommands() {
  auto& menu = p_.form.Menu;
  const bool preFolder = p_.program.init.LastCommand == "0";
  menu["PreFolder"].Checked = preFolder;
  menu["RLC"].Checked = !preFolder;
  menu["LockOnLast"].Enabled = !preFolder;
  if (p_.program.init.LockCommand == "1") menu["LockOnLast"].Checked = true;
}

// --- History files -------------------------------------------------------------------------------------------------

void MainWindowStart::showFolderHistory() {
  auto& combo = p_.form.ImageCombo1;
  const std::string shown = combo.Text;
  combo.Clear();
  for (const auto& folder : p_.histories.folders.entries()) {
    combo.AddItem(paths::withoutClosing(folder), "folder");
    if (combo.Items->back().text == shown) combo.choose(static_cast<int>(combo.Items->size()) - 1);
  }
  if (!combo.Items->empty()) return;
  combo.AddItem(paths::withoutClosing(p_.form.Panel2.path()), "folder");
  combo.choose(0);
}

void MainWindowStart::LoadHistoryFiles() {
  p_.looks.colors = {};
  core::LoadEnvironmentFolders(p_.program.platform, p_.program.dialogs, p_.program.folders);
  p_.histories.load(p_.program);
  showFolderHistory();
  p_.histories.forgetVanished(p_.program, [this] { showFolderHistory(); });
  if (p_.form.seams.loadStores) p_.form.seams.loadStores();

  const std::string system = paths::join(p_.program.folders.windir, "system32");
  for (const auto& [tool, entry] : {std::pair{"cmd.exe", "Dos"}, std::pair{"ipconfig.exe", "IPconfig"}}) {
    const auto found = p_.program.files().resolve(paths::join(system, tool));
    if (!found) p_.form.Menu[entry].Enabled = false;
  }
}

// --- Form_Activate -------------------------------------------------------------------------------------------------

void MainWindowStart::Form_Activate() {
  auto& menu = p_.form.Menu;
  p_.drives.refresh();
  const bool first = !std::exchange(activated_, true);
  if (first && p_.program.init.VDT_State == "1") {
    menu["VDTstartup"].Checked = true;
    if (p_.form.seams.VDTstart) p_.form.seams.VDTstart();
  }
  menu["TipStart"].Checked = p_.tip.LoadTip.Value == 0;
  // Closing the tip activates the window again: once a run is enough.
  if (p_.tip.LoadTip.Value == 0 && p_.program.init.Tip_State == "0" && !std::exchange(tipShown_, true))
    p_.tip.ShowModal();
  if (first) p_.listing.FocusView();
}

}  // namespace varnholt::panels
