#include "app/app.hpp"

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
      opener(program, histories, mostUsed),
      icons(program),
      dispatcher(Form1, program),
      trees(Form9, Form1, program),
      Form35(program),
      desk{program,    Form1,     histories, listing, activePanel, looks, choices, state, drives,
           navigation, selection, mostUsed,  opener,  dispatcher,  trees, Form35,  frmTip},
      keys(desk),
      drops(Form1, dispatcher, navigation, selection),
      start(desk),
      panelCommands(desk, keys),
      NewSkin(program, looks),
      pictureView(desk, icons),
      commandTree(desk),
      tools(desk, icons),
      fileops(desk),
      basket(desk, fileops),
      rename(desk, fileops.policy, fileops.Form7),
      properties(desk, fileops.desktop),
      filters(desk),
      presets(desk),
      savedPlaces(desk, fileops.Form32, rename),
      openedItems(desk),
      notes(desk),
      vdt(desk, pictureView),
      search(desk),
      compare(desk, presets),
      cleanup(desk, fileops.desktop, icons),
      zip(desk) {
  addCommands();
  bindPanel(Form1.Panel1);
  bindPanel(Form1.Panel2);
  bindMainWindow();
  bindButtonDrops();
  bindHooks();
  bindHelp();
  dress();
}

// Here, so that not everyone who holds a program compiles the ends of all its windows.
App::~App() = default;

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
  // Who names folders names first the one to work in.
  if (!folders.empty()) {
    activePanel.GotFocus(Form1.Panel1);
    navigation.showPlace();
  }
  listing.FocusView();
}

void App::tellStartNotices() {
  for (const auto& notice : program.platform.startNotices)
    dialogs.alert(notice);
}

// --- Wiring --------------------------------------------------------------------------------------------------------

void App::addCommands() {
  for (panels::Room* room : rooms())
    room->addCommands(Form1.commands);
  Form1.commands.add(panels::closingCommands(desk));
  Form1.Menu.perform = [this](const std::string& handler) { dispatcher.perform(handler); };
  Form1.Menu.build(Form1.commands);
  drawButtons();
}

void App::drawButtons() {
  for (const auto& command : Form1.commands.commands()) {
    auto* button = command.button.empty() ? nullptr : dynamic_cast<controls::Button*>(Form1.control(command.button));
    if (!button) continue;
    button->Caption = command.caption;
    button->Icon = command.icon;
    button->Enabled = true;
    button->ToolTipText = command.toolTip;
    button->Click = [this, handler = command.handler] { dispatcher.perform(handler); };
    // The Virtual DeskTop keeps the keyboard while its rows may be what the button deletes.
    const bool deletes = command.handler == "Command4_Click";
    button->MouseUp = [this, deletes](const controls::MouseEvent&) {
      if (!deletes || !Form1.VDT_Aktive) listing.FocusView();
    };
  }
}

void App::bindPanel(panels::Panel& panel) {
  controls::ListView& list = panel.list;
  list.GotFocus = [this, &panel] { activePanel.GotFocus(panel); };
  // The key itself may have gone down while the keyboard was elsewhere.
  list.MouseDown = [this](const controls::MouseEvent& mouse) { Form1.CtrlHeld = mouse.modifiers.ctrl; };
  // While a command works its mode word and its item stand, whatever is looked at.
  list.Click = [this, &panel] {
    if (!dispatcher.busy) selection.Click(panel);
  };
  list.KeySelect = [this, &panel](bool builds) {
    if (!dispatcher.busy) selection.KeySelect(panel, builds);
  };
  list.DblClick = [this, &panel] { keys.DblClick(panel); };
  list.ColumnClick = [this, &panel](int number) { listing.ColumnClick(panel, number); };
  list.KeyDown = [this, &panel](controls::KeyEvent& event) { keys.KeyDown(panel, event); };
  list.KeyUp = [this, &panel](controls::KeyEvent& event) { keys.KeyUp(panel, event); };
  list.PopupEntries = [this] { return panels::selectionMenu(Form1.Menu); };
  list.OLEDropFolder = [this, &panel](controls::ListItem item) { return drops.folderOf(panel, item); };
  list.OLEStartDrag = [this, &panel] { return drops.draggedFiles(panel); };
  list.OLEDragDrop = [this, &panel](controls::DropEvent& event) { drops.OLEDragDrop(panel, event); };
  panel.controls.Drive.Change = [this, &panel] {
    dispatcher.busy ? navigation.ViewDriveSelection() : navigation.DriveChange(panel);
  };
  panel.controls.Text.KeyDown = [this, &panel](controls::KeyEvent& event) { keys.pathKey(panel, event); };
  panel.controls.Text.LostFocus = [this, &panel] { keys.leavePath(panel); };
}

void App::bindMainWindow() {
  Form1.Load = [this] { start.Form_Load(); };
  Form1.Activate = [this] { start.Form_Activate(); };
  Form1.QueryUnload = [this](bool& keep) {
    keep = dispatcher.busy;
    if (!keep) state.Form_QueryUnload();
  };
  Form1.Timer1.Tick = [this] { activePanel.UpdateClock(); };
  Form1.ImageCombo1.Click = [this] { dispatcher.busy ? navigation.showPlace() : navigation.ImageCombo1_Click(); };
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
  choices.ResetAll = [this] { selection.ResetAll(); };
  state.FocusView = [this] { listing.FocusView(); };
  state.store = [this] {
    for (panels::Room* room : rooms())
      room->store();
  };
  start.load = [this] {
    for (panels::Room* room : rooms())
      room->load();
  };
  navigation.ClickPane = [this] { selection.ClickPane(); };
  selection.goTo = [this](panels::Panel& panel, const std::string& folder) {
    return navigation.goToStored(panel, folder);
  };
  dispatcher.commandEnded.listen([this] { activePanel.UpdateClock(); });
  trees.goTo = [this](panels::Panel& panel, const std::string& folder) {
    return !dispatcher.busy && navigation.goTo(panel, folder);
  };
  trees.restorePosition = [this] { state.restoreTreeWindow(); };
  drops.dropFiles = [this](panels::Panel& panel, const std::vector<std::string>& files, bool move) {
    return fileops.dropFiles(panel, files, move);
  };
  drives.drivesChanged = [this] { navigation.leaveVanished(); };
  frmTip.keepChoice = [this] {
    program.init.Tip_State = frmTip.LoadTip.Value ? "1" : "0";
    Form1.Menu["TipStart"].Checked = frmTip.LoadTip.Value == 0;
    program.settings.save(core::setting::Tip_State, program.init.Tip_State);
  };
}

std::vector<controls::Form*> App::allDialogs() {
  std::vector<controls::Form*> all{&dialogs.Form11, &dialogs.Form12, &dialogs.Form13, &frmTip, &Form35};
  for (panels::Room* room : rooms())
    std::ranges::copy(room->dialogs(), std::back_inserter(all));
  return all;
}

void App::bindHelp() {
  std::vector<controls::Form*> windows = allDialogs();
  windows.push_back(&Form9);  // the main window's help is a command of its menu
  for (controls::Form* window : windows)
    window->KeyDown = [this, window, own = window->KeyDown](controls::KeyEvent& event) {
      own(event);
      const auto& held = event.modifiers;
      if (event.handled || event.code != controls::key::F1 || held.shift || held.ctrl || held.alt) return;
      event.handled = true;
      if (window != &Form9 || !dispatcher.busy) tools.frmHelp.showFor(window->name());
    };
}

void App::dress() {
  for (controls::Form* dialog : allDialogs()) {
    NewSkin.addDialog(*dialog);
    looks.addDialog(*dialog);
  }
  NewSkin.addMainWindow(Form1);
  NewSkin.addMainWindow(Form9);
}

}  // namespace varnholt::app
