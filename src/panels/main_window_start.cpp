#include "panels/main_window_start.hpp"

#include "core/program_files.hpp"
#include "platform/paths.hpp"

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

}  // namespace

// --- Form_Load -----------------------------------------------------------------------------------------------------

void MainWindowStart::Form_Load() {
  auto& form = d_.form;
  d_.state.RestorePositions();

  form.ProgressBar1.Min = 0;
  form.ProgressBar1.Max = 100;
  form.ProgressBar1.Value = 0;
  d_.listing.viewHightreset();
  form.Menu["Viewfilter"].Visible = true;
  form.Menu["Filefilter"].Visible = false;
  for (const char* entry : {"Viewall", "Psi", "selhis"})
    form.Menu[entry].Checked = true;

  const bool hiddenShown = d_.program.settings.get(core::setting::SysHidShow) == "1";
  form.Menu["HidSysfiles"].Checked = hiddenShown;
  d_.choices.showFilterLine();

  d_.drives.fill();
  startFolders();
  setColumns();
  d_.state.restoreColumns();

  for (Panel* panel : {&form.Panel1, &form.Panel2}) {
    panel->backStack.push(panel->path());
    panel->showPath();
  }
  d_.listing.bothPanels([&] {
    d_.navigation.enter(form.Panel1);
    d_.navigation.enter(form.Panel2);
  });

  d_.active.UpdateClock();
  form.StatusBar1.setPanel(status::ActiveView, "View2Active");
  form.setActive(Side::Right);
  d_.active.showDrive(form.Panel2);
  form.setMode("SelectMode");
  for (auto* button : {&form.Command22, &form.Command23, &form.Command24, &form.Command25})
    button->Enabled = false;

  ApplyInitState();
  LoadHistoryFiles();
  d_.looks.colorMenuState();
}

void MainWindowStart::startFolders() {
  auto& form = d_.form;
  const std::string systemDrive = d_.program.platform.environment.variable("SystemDrive");
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
  d_.drives.ViewDriveSelection();
}

std::string MainWindowStart::existingDrive(const std::string& drive) {
  const auto& items = d_.form.Drive1.Items.get();
  const std::string letter = paths::driveOf(drive);
  if (items.empty() || (!letter.empty() && d_.drives.has(letter.front()))) return drive;
  const std::string first = paths::driveOf(items.front().text);
  d_.program.dialogs.alert("Drive " + drive + " Not Found !\rBoth Views Start On Drive " + first);
  return first;
}

void MainWindowStart::setColumns() {
  auto& form = d_.form;
  for (controls::ListView* list : {&form.ListView1, &form.ListView2}) {
    list->ImageList = panelImageList();
    list->ColumnHeaders = panelColumns();
  }
  form.ListView3.ImageList = panelImageList();
  form.ListView3.ColumnHeaders = std::vector<controls::ColumnHeader>{
      {"Virtual DeskTop (" + d_.program.init.VDTViewState + "),  -  Path:", 9000, 13, false},
      {"Name:", 4200, 0, false}};
  form.ListView3.setSortKey(1);
}

// --- ApplyInitState ------------------------------------------------------------------------------------------------

void MainWindowStart::ApplyInitState() {
  const auto& init = d_.program.init;
  auto& menu = d_.form.Menu;
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
  d_.tip.LoadTip.Value = init.Tip_State == "0" ? 0 : 1;

  d_.choices.applyDateSystem();
  d_.looks.applyInitState();
}

void MainWindowStart::applyCommands() {
  const auto& init = d_.program.init;
  init.LastCommand == "0" ? d_.dispatcher.PreFolder_Click() : d_.dispatcher.RLC_Click();
  if (init.LockCommand == "1") d_.form.Menu["LockOnLast"].Checked = true;
}

// --- History files -------------------------------------------------------------------------------------------------

void MainWindowStart::showFolderHistory() {
  auto& combo = d_.form.ImageCombo1;
  const std::string shown = combo.Text;
  combo.Clear();
  for (const auto& folder : d_.histories.folders.entries()) {
    combo.AddItem(paths::withoutClosing(folder), "folder");
    if (combo.Items->back().text == shown) combo.choose(static_cast<int>(combo.Items->size()) - 1);
  }
  if (!combo.Items->empty()) return;
  combo.AddItem(paths::withoutClosing(d_.form.Panel2.path()), "folder");
  combo.choose(0);
}

void MainWindowStart::LoadHistoryFiles() {
  d_.looks.colors = {};
  core::LoadEnvironmentFolders(d_.program.platform, d_.program.dialogs, d_.program.folders);
  d_.histories.load(d_.program);
  showFolderHistory();
  d_.histories.forgetVanished(d_.program, [this] { showFolderHistory(); });
  if (load) load();
}

// --- Form_Activate -------------------------------------------------------------------------------------------------

void MainWindowStart::Form_Activate() {
  auto& menu = d_.form.Menu;
  if (!d_.dispatcher.busy) d_.drives.refresh();
  const bool first = !std::exchange(activated_, true);
  menu["TipStart"].Checked = d_.tip.LoadTip.Value == 0;
  // Closing the tip activates the window again: once a run is enough.
  if (d_.tip.LoadTip.Value == 0 && d_.program.init.Tip_State == "0" && !std::exchange(tipShown_, true))
    d_.tip.ShowModal();
  if (!first) return;
  d_.listing.FocusView();
  d_.drives.watch(d_.dispatcher);
}

}  // namespace varnholt::panels
