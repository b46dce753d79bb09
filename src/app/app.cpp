#include "app/app.hpp"

#include "app/all_commands.hpp"
#include "core/diagnostic_log.hpp"
#include "core/program_files.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <iterator>

namespace varnholt::app {
namespace {

// Below this width the window does not fit: about 667 pixels.
constexpr controls::Twips NarrowScreen = 10000;

}  // namespace

App::App(controls::MessageLoop& loop, platform::Platform& platform)
    : Form1(loop),
      Form9(loop),
      dialogs(loop, Form1.Timer2),
      program{loop, platform, dialogs},
      frmSplash(loop, core::programVersion()),
      frmTip(loop),
      listing(Form1, program),
      activePanel(Form1, program),
      looks(Form1, program, activePanel),
      choices(Form1, program, listing, activePanel),
      state(Form1, Form9, program, histories),
      drives(Form1, program),
      navigation(Form1, program, listing, activePanel, histories, drives),
      selection(Form1, program, listing, activePanel),
      opener(program, histories),
      icons(program),
      dispatcher(Form1, program),
      keys({Form1, program, listing, navigation, selection}),
      drops(Form1, dispatcher, navigation, selection),
      trees(Form9, Form1, program),
      Form35(program),
      fileops({Form1, program, dispatcher, listing, navigation, selection, trees, Form35}),
      filters({Form1, program, dispatcher, listing, selection, choices}),
      presets({Form1, program, navigation}),
      rename({Form1, program, dispatcher, listing, navigation, selection, trees, Form35}, fileops.policy,
             fileops.Form7),
      form8(loop, core::programVersion()),
      shortcuts(Form1, program),
      NewSkin(program, looks),
      start({Form1, program, listing, activePanel, looks, choices, state, histories, drives, frmTip}) {
  Form1.commands.add(allCommands());
  bindCommands();
  Form1.Menu.build(Form1.commands);
  drawButtons();
  bindPanel(Form1.Panel1);
  bindPanel(Form1.Panel2);
  bindMainWindow();
  bindButtonDrops();
  bindHooks();
}

// --- Start ---------------------------------------------------------------------------------------------------------

bool App::Main() {
  if (program.loop.screen().width < NarrowScreen) dialogs.inform("Monitor Width to Small !", "Alert");
  program.init = core::LoadInitSettings(program.settings, program.platform.regional.twelveHourClock);
  if (!core::CheckEnvironment(program.platform, dialogs, program.folders)) return false;
  core::program_file::makeFolders(program.platform);
  core::writeDiagnosticLog(program.platform, program.folders);
  tellStartNotices();
  frmSplash.ShowModal();
  NewSkin.applyInitState();
  Form1.WindowState = controls::WindowState::Minimized;
  Form1.Show();
  Form1.WindowState = state.storedWindowState();
  Form9.WindowState = controls::WindowState::Normal;
  program.loop.runBeside(program.platform.clearLeftovers, [] {});
  return true;
}

void App::openFolders(const std::vector<std::string>& folders) {
  panels::Panel* const targets[] = {&Form1.Panel1, &Form1.Panel2};
  for (std::size_t at = 0; at < std::min(folders.size(), std::size(targets)); ++at) {
    const std::string& named = folders[at];
    const std::string path = named.starts_with('/') ? program.platform.toProgram(named) : named;
    const auto there = program.files().resolve(path);
    const bool isFile = there && program.files().fileExists(*there);
    if (!there || !navigation.goTo(*targets[at], isFile ? platform::paths::parent(*there) : *there))
      dialogs.alert("Folder Not Found !\r" + (path.empty() ? named : path));
  }
  listing.FocusView();
}

void App::tellStartNotices() {
  for (const auto& notice : program.platform.startNotices)
    dialogs.alert(notice);
}

// --- Wiring --------------------------------------------------------------------------------------------------------

void App::bindCommands() {
  const auto bind = [this](const char* handler, std::function<void()> run) {
    dispatcher.bind(handler, std::move(run));
  };
  // Leaving, state, positions
  bind("Command10_Click", [this] { state.Command10_Click(); });
  bind("exit_program_Click", [this] { state.exit_program_Click(); });
  bind("ReturnDefault_Click", [this] { state.ReturnDefault_Click(); });
  bind("Peruninstall_Click", [this] { state.Peruninstall_Click(); });
  bind("Program_pos_Click", [this] { state.Program_pos_Click(); });
  bind("SavColumnH_Click", [this] { state.SavColumnH_Click(); });
  bind("ResetCol_Click", [this] { state.ResetCol_Click(); });
  // What is shown
  bind("refrechview_Click", [this] {
    drives.refresh();
    navigation.leaveVanished();
    listing.viewrefresh();
  });
  bind("Viewall_Click", [this] { choices.Viewall_Click(); });
  bind("ViewProg_Click", [this] { choices.ViewProg_Click(); });
  bind("Viewuser_Click", [this] { filters.Viewuser_Click(); });
  bind("HidSysfiles_Click", [this] { choices.HidSysfiles_Click(); });
  bind("DateModi_Click", [this] { choices.DateModi_Click(); });
  bind("DateCreate_Click", [this] { choices.DateCreate_Click(); });
  bind("DateAcess_Click", [this] { choices.DateAcess_Click(); });
  bind("DateTime24_Click", [this] { choices.DateTime24_Click(); });
  bind("DateTime12_Click", [this] { choices.DateTime12_Click(); });
  bind("GridLines_Click", [this] { looks.GridLines_Click(); });
  bind("ShiftColors_Click", [this] { looks.ShiftColors_Click(); });
  bind("ShiftColorOther_Click", [this] { looks.ShiftColorOther_Click(); });
  bind("BlueBlack_Click", [this] { looks.BlueBlack_Click(); });
  bind("BrownBlack_Click", [this] { looks.BrownBlack_Click(); });
  bind("GrayBlack_Click", [this] { looks.GrayBlack_Click(); });
  // Going somewhere
  bind("Command23_Click", [this] { navigation.Browseback(Form1.Panel1); });
  bind("Command25_Click", [this] { navigation.Browseback(Form1.Panel2); });
  bind("Command22_Click", [this] { navigation.Browseforward(Form1.Panel1); });
  bind("Command24_Click", [this] { navigation.Browseforward(Form1.Panel2); });
  bind("Command8_Click", [this] { navigation.Prevfolder(Form1.Panel1); });
  bind("Command9_Click", [this] { navigation.Prevfolder(Form1.Panel2); });
  bind("Command18_Click", [this] { navigation.parentFolder(Form1.Panel1); });
  bind("Command19_Click", [this] { navigation.parentFolder(Form1.Panel2); });
  bind("Command6_Click", [this] { navigation.rootFolder(Form1.Panel1); });
  bind("Command7_Click", [this] { navigation.rootFolder(Form1.Panel2); });
  const auto bindActive = [this, bind](const char* handler, void (panels::Navigation::*go)(panels::Panel&)) {
    bind(handler, [this, go] {
      if (panels::Panel* panel = Form1.activePanel()) (navigation.*go)(*panel);
    });
  };
  bindActive("BrowseBack_Click", &panels::Navigation::Browseback);
  bindActive("BrowseForward_Click", &panels::Navigation::Browseforward);
  bindActive("ParentWithHistory_Click", &panels::Navigation::Prevfolder);
  bind("OtherPanel_Click", [this] { keys.OtherPanel_Click(); });
  bind("rootreset_Click", [this] { navigation.rootreset_Click(); });
  bind("ResetHomeDrive_Click", [this] { navigation.ResetHomeDrive_Click(); });
  bind("store_Click", [this] { navigation.store_Click(); });
  bind("viewlastexit_Click", [this] { navigation.viewlastexit_Click(); });
  bind("savefolder_his_Click", [this] { navigation.savefolder_his_Click(); });
  bind("ClearHis_Click", [this] { navigation.ClearHis_Click(); });
  // Selecting
  bind("OpenSelected_Click", [this] { keys.OpenSelected_Click(); });
  bind("MarkItem_Click", [this] { keys.MarkItem_Click(); });
  bind("selectall_Click", [this] { selection.selectall_Click(); });
  bind("Inversel_Click", [this] { selection.Inversel_Click(); });
  bind("Selsize_Click", [this] { selection.Selsize_Click(); });
  bind("IncludeFolder_Click", [this] { selection.IncludeFolder_Click(); });
  bind("Command16_Click", [this] { selection.Command16_Click(); });
  bind("Command27_Click", [this] { selection.Command27_Click(); });
  bind("Recall_Click", [this] { selection.Recall_Click(); });
  bind("Recallprevius_Click", [this] { selection.Recallprevius_Click(); });
  bind("Undo_recall_Click", [this] { selection.Undo_recall_Click(); });
  bind("ResetRecall_Click", [this] { selection.ResetRecall_Click(); });
  // Commands
  bind("LockOnLast_Click", [this] { dispatcher.LockOnLast_Click(); });
  bind("PreFolder_Click", [this] { dispatcher.PreFolder_Click(); });
  bind("RLC_Click", [this] { dispatcher.RLC_Click(); });
  bind("RunLastCommand_Click", [this] { dispatcher.runLast(); });
  bind("Treeon_Click", [this] { trees.Treeon_Click(); });
  bind("CmdLine_Click", [this] { keys.commandline(); });
  // Copy, move, delete
  for (const char* handler : {"Command1_Click", "CopyItems_Click"})
    bind(handler, [this] { fileops.Copy.start(); });
  for (const char* handler : {"Command3_Click", "MoveItems_Click"})
    bind(handler, [this] { fileops.Move.start(); });
  for (const char* handler : {"Command4_Click", "Deleteitems_Click"})
    bind(handler, [this] { fileops.Delete.start(); });
  for (const char* handler : {"Command2_Click", "EditFile_Click"})
    bind(handler, [this] { fileops.editor.Command2_Click(); });
  for (const char* handler : {"Command13_Click", "Makefile_Click"})
    bind(handler, [this] { fileops.editor.Command13_Click(); });
  bind("ValCopyMove_Click", [this] { fileops.ValCopyMove_Click(); });
  // Filters
  bind("Command5_Click", [this] { filters.Command5_Click(); });
  bind("Filepatt_Click", [this] { dispatcher.perform("Command5_Click"); });
  // Presets
  bind("Command12_Click", [this] { presets.Command12_Click(); });
  bind("presetsetup_Click", [this] { dispatcher.perform("Command12_Click"); });
  bind("DynPresets_Click", [this] { presets.DynPresets_Click(); });
  // Rename
  bind("Command14_Click", [this] { rename.Command14_Click(); });
  bind("RenFileFolder_Click", [this] { rename.RenFileFolder_Click(); });
  // The system and the program itself
  bind("Dos_Click", [this] { shortcuts.Dos_Click(); });
  bind("Readme_Click", [this] { shortcuts.Readme_Click(); });
  bind("About_program_Click", [this] { form8.ShowModal(); });
  // Plain check marks
  for (const char* entry : {"Auto_Save", "AutoSaveHis", "WinStart", "selhis", "Psi", "TipStart"})
    bind((std::string(entry) + "_Click").c_str(), [this, entry] {
      Form1.Menu[entry].Checked = !Form1.Menu[entry].Checked;
      if (std::string_view(entry) == "TipStart") frmTip.LoadTip.Value = Form1.Menu[entry].Checked ? 0 : 1;
    });
  for (int skin = 0; skin < appearance::NewSkin::Count; ++skin)
    bind(("Skin" + appearance::NewSkin::nameOf(skin) + "_Click").c_str(), [this, skin] { NewSkin.load(skin); });
}

void App::drawButtons() {
  for (const auto& command : Form1.commands.commands()) {
    auto* button = command.button.empty() ? nullptr : dynamic_cast<controls::Button*>(Form1.control(command.button));
    if (!button) continue;
    button->Caption = command.caption;
    button->Icon = command.icon;
    button->Enabled = static_cast<bool>(command.run);
    button->ToolTipText = command.run ? command.toolTip : command.toolTip + std::string(panels::NotYetBuilt);
    button->Click = command.run;
    button->MouseUp = [this](const controls::MouseEvent&) { listing.FocusView(); };
  }
}

void App::bindPanel(panels::Panel& panel) {
  controls::ListView& list = panel.list;
  list.GotFocus = [this, &panel] { activated(panel); };
  // The key itself may have gone down while the keyboard was elsewhere.
  list.MouseDown = [this](const controls::MouseEvent& mouse) { Form1.CtrlHeld = mouse.modifiers.ctrl; };
  list.Click = [this, &panel] { selection.Click(panel); };
  list.KeySelect = [this, &panel](bool builds) { selection.KeySelect(panel, builds); };
  list.DblClick = [this, &panel] { keys.DblClick(panel); };
  list.ColumnClick = [this, &panel](int number) { listing.ColumnClick(panel, number); };
  list.KeyDown = [this, &panel](controls::KeyEvent& event) { keys.KeyDown(panel, event); };
  list.KeyUp = [this, &panel](controls::KeyEvent& event) { keys.KeyUp(panel, event); };
  list.PopupEntries = [this] { return panels::selectionMenu(Form1.Menu); };
  list.OLEDropFolder = [this, &panel](controls::ListItem item) { return drops.folderOf(panel, item); };
  list.OLEStartDrag = [this, &panel] { return drops.draggedFiles(panel); };
  list.OLEDragDrop = [this, &panel](controls::DropEvent& event) { drops.OLEDragDrop(panel, event); };
  panel.controls.Drive.Change = [this, &panel] { navigation.DriveChange(panel); };
  panel.controls.Text.KeyDown = [this, &panel](controls::KeyEvent& event) { keys.pathKey(panel, event); };
  panel.controls.Text.LostFocus = [this, &panel] { keys.leavePath(panel); };
}

void App::activated(panels::Panel& panel) {
  const bool another = Form1.activePanel() != &panel;
  activePanel.GotFocus(panel);
  navigation.showPlace();
  if (another) selection.showItem(panel);
}

void App::bindMainWindow() {
  Form1.Load = [this] { start.Form_Load(); };
  Form1.Activate = [this] { start.Form_Activate(); };
  Form1.QueryUnload = [this](bool&) { state.Form_QueryUnload(); };
  Form1.Timer1.Tick = [this] { activePanel.UpdateClock(); };
  Form1.ImageCombo1.Click = [this] { navigation.ImageCombo1_Click(); };
  Form1.Text3.KeyDown = [this](controls::KeyEvent& event) { keys.Text3_KeyDown(event); };
  Form1.Text3.DblClick = [this] { keys.Text3_DblClick(); };
}

void App::bindButtonDrops() {
  for (const char* number : {"1", "3", "4", "14", "15", "26"}) {
    const std::string name = std::string("Command") + number;
    Form1.control(name)->OLEDragDrop = [this, handler = name + "_Click"](controls::DropEvent& event) {
      drops.buttonDrop(handler, event);
    };
  }
}

void App::bindHooks() {
  listing.resetcollect = [this] { selection.resetcollect(); };
  listing.itemChanged = [this](panels::Panel& panel) { selection.showItem(panel); };
  choices.ResetAll = [this] { selection.ResetAll(); };
  state.FocusView = [this] { listing.FocusView(); };
  navigation.ClickPane = [this] { selection.ClickPane(); };
  selection.goTo = [this](panels::Panel& panel, const std::string& folder) { return navigation.goTo(panel, folder); };
  dispatcher.UpdateClock = [this] { activePanel.UpdateClock(); };
  keys.openFile = [this](const std::string& path) { opener.open(path); };
  keys.busy = [this] { return dispatcher.busy; };
  keys.redrawTree = [this] { trees.redraw(); };
  trees.goTo = selection.goTo;
  trees.restorePosition = [this] { state.restoreTreeWindow(); };
  Form1.seams.TreedisplayItem = [this] { trees.TreedisplayItem(); };
  Form1.seams.treeStatus = [this](const std::string& text) {
    Form9.StatusBar1.setPanel(panels::tree_status::ActiveView, text);
  };
  drops.dropFiles = [this](panels::Panel& panel, const std::vector<std::string>& files, bool move) {
    return fileops.dropFiles(panel, files, move);
  };
  rename.openItem = [this](const std::string& path) {
    program.files().folderExists(path) ? opener.OpenItemPath(path) : opener.open(path);
  };
  drives.drivesChanged = [this] { navigation.leaveVanished(); };
  start.enter = [this](panels::Panel& panel) { navigation.enter(panel); };
  frmTip.keepChoice = [this] {
    program.init.Tip_State = frmTip.LoadTip.Value ? "1" : "0";
    Form1.Menu["TipStart"].Checked = frmTip.LoadTip.Value == 0;
    program.settings.save(core::setting::Tip_State, program.init.Tip_State);
  };
  for (controls::Form* dialog : std::initializer_list<controls::Form*>{
           &dialogs.Form11, &dialogs.Form12, &dialogs.Form13, &frmTip, &Form35, &form8, &rename.Form14})
    NewSkin.addDialog(*dialog);
  for (const auto& dialogs : {fileops.dialogs(), filters.dialogs(), presets.dialogs()})
    for (controls::Form* dialog : dialogs)
      NewSkin.addDialog(*dialog);
  NewSkin.addMainWindow(Form1);
  NewSkin.addMainWindow(Form9);
}

}  // namespace varnholt::app
