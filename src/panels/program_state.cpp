#include "panels/program_state.hpp"

#include "core/error_words.hpp"
#include "core/program_files.hpp"
#include "core/temp_folders.hpp"
#include "platform/paths.hpp"

#include <algorithm>
#include <utility>

namespace varnholt::panels {
namespace {

namespace setting = core::setting;

struct StoredPosition {
  const core::SettingKey& key;
  controls::Property<controls::Twips>& value;
};

std::vector<StoredPosition> mainWindow(Form1& form) {
  return {{setting::Left, form.Left},
          {setting::Top, form.Top},
          {setting::Width, form.Width},
          {setting::Hight, form.Height}};
}

std::vector<StoredPosition> treeWindow(Form9& form) {
  return {{setting::Leftf9, form.Left},
          {setting::Topf9, form.Top},
          {setting::Widthf9, form.Width},
          {setting::Hightf9, form.Height}};
}

void restore(const core::Settings& settings, const std::vector<StoredPosition>& positions) {
  for (const auto& [key, value] : positions)
    if (const auto number = settings.number(key)) value = *number;
}

/// Wider than any screen: a stored number may be anything.
constexpr controls::Twips WidestColumn = 1e6;

struct StoredWidth {
  const core::SettingKey& key;
  controls::ListView& list;
  std::size_t column;
};

std::vector<StoredWidth> columnWidths(Form1& form) {
  return {{setting::W1Col1, form.ListView1, 0}, {setting::W1Col2, form.ListView1, 1},
          {setting::W1Col3, form.ListView1, 2}, {setting::W1Col4, form.ListView1, 3},
          {setting::W2Col1, form.ListView2, 0}, {setting::W2Col2, form.ListView2, 1},
          {setting::W2Col3, form.ListView2, 2}, {setting::W2Col4, form.ListView2, 3},
          {setting::W3Col1, form.ListView3, 0}, {setting::W3Col2, form.ListView3, 1}};
}

const char* flag(bool on) { return on ? "1" : "0"; }

}  // namespace

// --- Positions and columns -----------------------------------------------------------------------------------------

platform::Result<void> ProgramState::storePositions() {
  core::Settings::Batch batch;
  for (const auto& positions : {mainWindow(form_), treeWindow(Form9_)})
    for (const auto& [key, value] : positions)
      batch.add(key, value.get());
  batch.add(setting::Maximized, flag(form_.WindowState == controls::WindowState::Maximized));
  return program_.settings.save(batch);
}

void ProgramState::Program_pos_Click() {
  noteStored(storePositions());
  tellNotStored();
}

controls::WindowState ProgramState::storedWindowState() const {
  const bool maximized = program_.settings.get(setting::Maximized) == "1";
  return maximized ? controls::WindowState::Maximized : controls::WindowState::Normal;
}

void ProgramState::RestorePositions() {
  restore(program_.settings, mainWindow(form_));
  restoreTreeWindow();
}

void ProgramState::restoreTreeWindow() { restore(program_.settings, treeWindow(Form9_)); }

void ProgramState::SavColumnH_Click() {
  core::Settings::Batch batch;
  for (const auto& [key, list, column] : columnWidths(form_))
    if (column < list.ColumnHeaders->size()) batch.add(key, list.ColumnHeaders.get()[column].Width);
  noteStored(program_.settings.save(batch));
  tellNotStored();
}

void ProgramState::ResetCol_Click() {
  if (program_.settings.holds(setting::W1Col1)) program_.settings.removeSection(setting::W1Col1);
}

void ProgramState::restoreColumns() {
  if (!program_.settings.holds(setting::W1Col1)) return;
  for (const auto& [key, list, column] : columnWidths(form_)) {
    const auto width = program_.settings.number(key);
    auto headers = list.ColumnHeaders.get();
    if (!width || *width <= 0 || *width > WidestColumn || column >= headers.size()) continue;
    headers[column].Width = *width;
    list.ColumnHeaders = std::move(headers);
  }
}

// --- The state -----------------------------------------------------------------------------------------------------

void ProgramState::collectFromMenus() {
  auto& init = program_.init;
  auto& menu = form_.Menu;
  if (menu["DateModi"].Checked) init.DateSystem = "1";
  if (menu["DateCreate"].Checked) init.DateSystem = "2";
  if (menu["DateAcess"].Checked) init.DateSystem = "3";
  init.DateTimeFormat = menu["DateTime24"].Checked ? "0" : "1";
  init.LastCommand = menu["PreFolder"].Checked ? "0" : "1";
  init.LockCommand = flag(menu["LockOnLast"].Checked);
  init.ValidateCM = flag(menu["ValCopyMove"].Checked);
  init.SelectFolders = flag(menu["IncludeFolder"].Checked);
  init.FolderHistory = flag(menu["AutoSaveHis"].Checked);
  const bool grid = menu["GridLines"].Checked, shift = menu["ShiftColors"].Checked;
  init.MainViewState = grid && shift ? "3" : grid ? "2" : shift ? "1" : "0";
  init.Tip_State = flag(!menu["TipStart"].Checked);
  init.VDT_State = flag(menu["VDTstartup"].Checked);
  init.WinStart = flag(menu["WinStart"].Checked);
  init.AutoPosition = flag(menu["Auto_Save"].Checked);
  init.GetColorState = flag(menu["ShiftColorOther"].Checked);
}

void ProgramState::StoreProgramState() {
  collectFromMenus();
  filesNotStored_.clear();
  notStored.clear();
  if (program_.init.FolderHistory == "1")
    for (const auto& stored : histories_.store(program_))
      noteStored(stored);
  if (program_.init.AutoPosition == "1" && !positionsReset_) noteStored(storePositions());
  core::Settings::Batch batch;
  core::StoreInitSettings(program_.init, batch);
  batch.add(setting::SysHidShow, flag(form_.Menu["HidSysfiles"].Checked));
  batch.add(setting::view1path, form_.Panel1.path());
  batch.add(setting::view2path, form_.Panel2.path());
  noteStored(program_.settings.save(batch));
  if (store) store();
}

// Settings lie in no file that has a path of the program.
void ProgramState::noteStored(const platform::Result<void>& stored) {
  if (stored) return;
  const std::string file(platform::paths::fileName(stored.error().path));
  const std::string name = file.empty() ? "Settings" : file;
  const std::string line = name + ":  " + core::reasonOf(stored.error(), name);
  if (std::ranges::find(filesNotStored_, line) == filesNotStored_.end()) filesNotStored_.push_back(line);
}

void ProgramState::tellNotStored() {
  if (!filesNotStored_.empty())
    program_.dialogs.alert(core::leftOutText("Could Not Be Stored :", std::exchange(filesNotStored_, {})));
  for (const std::string& text : std::exchange(notStored, {}))
    program_.dialogs.alert(text);
}

// --- Ways out ------------------------------------------------------------------------------------------------------

void ProgramState::end() {
  ended_ = true;
  form_.Visible = false;
  program_.loop.quit();
}

void ProgramState::exit_program_Click() { form_.UnloadForm(); }

void ProgramState::Command10_Click() {
  StoreProgramState();
  tellNotStored();
  close();
}

void ProgramState::leave() {
  if (ended_) return;
  StoreProgramState();
  close();
}

void ProgramState::close() {
  core::CleanTempFolders(program_.files(), program_.folders.tmp, program_.folders.temp);
  form_.Visible = false;
  Form9_.UnloadForm();
  end();
}

void ProgramState::Form_QueryUnload() {
  if (!ended_) Command10_Click();
}

void ProgramState::ReturnDefault_Click() {
  const auto answer =
      program_.loop.show({"Alert !", "Varnholt Resets To Default Positions/Size !\rProgram Shut Down... !",
                          controls::MessageIcon::Exclamation, controls::MessageButtons::OkCancel});
  if (answer != controls::MessageAnswer::Ok) return;
  if (program_.settings.holds(setting::Hight)) program_.settings.removeSection(setting::Hight);
  if (program_.settings.holds(setting::W1Col1)) program_.settings.removeSection(setting::W1Col1);
  positionsReset_ = true;
  Command10_Click();
}

// A text of its own, which stays until it is read: the one behind it goes away by itself.
void ProgramState::tellKept(const std::vector<std::string>& kept) {
  if (kept.empty()) return;
  program_.dialogs.alert(core::leftOutText("These were not made by Varnholt, or hold your files, and stay:", kept));
}

void ProgramState::Peruninstall_Click() {
  const bool sure = program_.dialogs.AskRetry("Warning: Are you About to Prepare for Uninstall. !\r"
                                              "All Program related settings/data will be deleted !\r"
                                              "Program will shut down afterwards !\r"
                                              "ARE YOU SURE ?") &&
                    program_.dialogs.AskRetry("All Personal program data are Lost !\r"
                                              "Uninstall program from windows control panel afterwards.\r"
                                              "ARE YOU QUIT SURE ?");
  if (!sure) {
    if (FocusView) FocusView();
    return;
  }
  (void)program_.platform.settings.removeApplication(core::MainApplication);
  (void)program_.platform.settings.removeApplication(core::PresetsApplication);
  tellKept(core::program_file::deleteUserData(program_.platform));
  program_.dialogs.inform("System Cleaned before Uninstall !");
  end();
}

}  // namespace varnholt::panels
